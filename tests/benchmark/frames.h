// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

// Frames of the game's screens and, in turn with them, the same drawing calls without the game, so
// that the ratio is reliable on a busy machine. The flip at the end of a frame is the library's own
// work and is never included.

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
