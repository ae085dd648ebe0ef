// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include <SDL.h>
#include <gmock/gmock.h>

#include "display.h"

// "x, y, w, h" of a rectangle, for the messages of failed tests.
std::string rectText(SDL_Rect rect);

MATCHER_P2(isAt, x, y, "") {
    *result_listener << "at " << arg.x << ", " << arg.y;
    return arg.x == x && arg.y == y;
}

MATCHER_P4(isRect, x, y, w, h, "") {
    *result_listener << "which is " << rectText(arg);
    return arg.x == x && arg.y == y && arg.w == w && arg.h == h;
}

// Empty when every pixel of the rectangle has the colour, else a text that names the first that
// has not. The rectangle must lie within the surface.
std::string firstOther(SDL_Surface* surface, SDL_Rect rect, Colour colour);

// The number of pixels of that colour.
int countOf(SDL_Surface* surface, Colour colour);
