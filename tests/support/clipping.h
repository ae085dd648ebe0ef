// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>

// What the library's blit and fill do to the caller's rectangles, without moving a pixel. The game
// plays by these rectangles, so a replay that draws nothing needs them exactly; clippingcheck.cpp
// compares them with the library's.

// Clips a blit of source, or of the part of it, to both surfaces and writes the size that would be
// drawn, and a moved corner, into place.
void clipBlit(const SDL_Surface& source, const SDL_Rect* part, const SDL_Surface& target,
              SDL_Rect* place);

// Clips a fill to the target and writes what would be filled into place.
void clipFill(const SDL_Surface& target, SDL_Rect* place);
