// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "pictures.h"

#include <sstream>

#include "main.h"

OwnedSurface copyOf(SDL_Surface* surface) {
    SDL_Surface* copy = createSurface(surface->w, surface->h);
    drawPicture(surface, copy, 0, 0);
    return OwnedSurface(copy);
}

std::string difference(SDL_Surface* expected, SDL_Surface* actual) {
    if (expected->w != actual->w || expected->h != actual->h) {
        return "different sizes";
    }
    for (int y = 0; y < expected->h; ++y) {
        for (int x = 0; x < expected->w; ++x) {
            const Colour wanted = pixel(expected, x, y);
            const Colour found = pixel(actual, x, y);
            if (!(wanted == found)) {
                std::ostringstream text;
                text << found << " instead of " << wanted << " at " << x << ", " << y;
                return text.str();
            }
        }
    }
    return "";
}

SDL_Surface* replacePicture(const std::string& filename, int w, int h, Colour colour) {
    SDL_FreeSurface(imagePool[filename]);
    return addPicture(filename, w, h, colour);
}

void fillAll(SDL_Surface* surface, Colour colour) {
    fill(surface, {0, 0, static_cast<Uint16>(surface->w), static_cast<Uint16>(surface->h)}, colour);
}
