// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>

// Gives the key table the event of a key going down.
void press(SDLKey key);

// The key counts as pressed until the frame ends; see Keyboard::releaseKeys.
void release(SDLKey key);

// Empties the key table.
void releaseAllKeys();
