// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

// Writes into the file MORVANE_TIMES, when the game is asked to quit: when it started SDL and when
// the first flip was done, and then for every frame when it began, and how many events waited for
// it and after it. All times are in milliseconds of the steady clock since boot. Does nothing
// without that variable.
//
// With MORVANE_DISTURB set, every 50th frame is held up for 40 ms and a hundred movements of the
// mouse wait at the beginning of every frame.

bool isDisturbed();

// The game starts SDL.
void noteStart();

// A frame begins.
void noteFrame();

// A frame is shown.
void noteFlip();

void writeTimes();
