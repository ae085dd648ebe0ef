// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

// Frames of the game's screens, each beside the same drawing done bare, in turn in one run, so
// that the ratio holds on a busy machine. The flip at the end of a frame is the library's own work
// and is left out everywhere.

void measureBattleFrames();
void measureMenuFrames();
void measureIntroFrames();
void measureConstruction();

// Battle frames with 1, 2, 10 and 100 times the barriers, and in larger worlds.
void measureGrowth();

// Counts what battle, menu and intro allocate and convert in a frame; the result is the exit
// status: 0 when the game itself allocates nothing and nothing is converted.
int countFrameWork();

// Battle frames for a profiler, nothing else.
void runBattleFrames(int frames);
