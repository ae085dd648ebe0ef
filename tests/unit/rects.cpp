// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "rects.h"

#include <sstream>

std::string rectText(SDL_Rect rect) {
    std::ostringstream text;
    text << rect.x << ", " << rect.y << ", " << rect.w << ", " << rect.h;
    return text.str();
}

std::string firstOther(SDL_Surface* surface, SDL_Rect rect, Colour colour) {
    for (int y = rect.y; y < rect.y + rect.h; ++y) {
        for (int x = rect.x; x < rect.x + rect.w; ++x) {
            const Colour found = pixel(surface, x, y);
            if (!(found == colour)) {
                std::ostringstream text;
                text << found << " at " << x << ", " << y;
                return text.str();
            }
        }
    }
    return "";
}

int countOf(SDL_Surface* surface, Colour colour) {
    int count = 0;
    for (int y = 0; y < surface->h; ++y) {
        for (int x = 0; x < surface->w; ++x) {
            count += pixel(surface, x, y) == colour ? 1 : 0;
        }
    }
    return count;
}
