// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

// At a quit event, writes into the file MORVANE_TIMES when the game started SDL and when the first
// flip was done, and then for every frame when it began and how many events were waiting at its
// beginning and at its end. All times are in milliseconds of the steady clock since boot. Does
// nothing without that variable.
//
// With MORVANE_DISTURB set, every 50th frame is delayed by 40 ms, and a hundred mouse movements are
// waiting at the beginning of every frame.

bool isDisturbed();

// The game starts SDL.
void noteStart();

// A frame begins.
void noteFrame();

// A frame is shown.
void noteFlip();

void writeTimes();
