// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>

// Writes down what a player does to the real game, frame by frame, as a script that can be
// replayed: into session.txt in the directory MORVANE_RECORD. After every tenth frame it leaves the
// display in FRAME.bmp. Does nothing without that variable.

// A frame begins.
void recordFrame();

// The game has received an event.
void recordEvent(const SDL_Event& event);
