// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>

void press(SDLKey key);

// The key counts as pressed until the frame ends; see Keyboard::releaseKeys.
void letGo(SDLKey key);
