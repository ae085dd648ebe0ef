// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>

// --wrap redirects the game's drawing calls to this file. They can be recorded and repeated without
// the game, which is the least that a frame with this picture can cost.

void recordCalls(bool on);
void forgetCalls();
// Makes the recorded calls again, in their order, with the rectangles they were given.
void repeatCalls();

// Calls that convert pixels from one format to another, and blits between surfaces whose colour
// masks differ, since the start.
long conversions();

// Microseconds that the last flip took. Repeated calls do not flip.
double lastFlip();
