// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>

// Records a player's input to the real game as a script that can be replayed, in session.txt in the
// directory MORVANE_RECORD. After every tenth frame, it saves the display as FRAME.bmp. Does
// nothing without that variable.

// A frame begins.
void recordFrame();

// The game has received an event.
void recordEvent(const SDL_Event& event);
