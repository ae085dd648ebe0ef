// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdlib>
#include <memory>
#include <string>

#include <SDL.h>
#include <gmock/gmock.h>

#include "display.h"

struct SurfaceFreer {
    void operator()(SDL_Surface* surface) const {
        SDL_FreeSurface(surface);
    }
};

using OwnedSurface = std::unique_ptr<SDL_Surface, SurfaceFreer>;

// A copy of a picture without alpha, such as the display.
OwnedSurface copyOf(SDL_Surface* surface);

// Empty when both pictures have the same size and colours, else a text that names the first pixel
// in which they differ.
std::string difference(SDL_Surface* expected, SDL_Surface* actual);

// As addPicture, and frees the picture that had the name before.
SDL_Surface* replacePicture(const std::string& filename, int w, int h, Colour colour);

// Fills the whole surface with a colour.
void fillAll(SDL_Surface* surface, Colour colour);

// True when deleting the owner of the surface frees it: deleteOwner must give up one reference.
template <typename DeleteOwner> bool isFreedBy(SDL_Surface* surface, DeleteOwner deleteOwner) {
    ++surface->refcount;
    deleteOwner();
    const bool freed = surface->refcount == 1;
    SDL_FreeSurface(surface);
    return freed;
}

// Both libraries blend by opacity / 256 and round down, so a blended channel may lie a little off
// the ideal one of opacity / 255.
MATCHER_P2(isNear, colour, tolerance, "") {
    return std::abs(arg.r - colour.r) <= tolerance && std::abs(arg.g - colour.g) <= tolerance &&
           std::abs(arg.b - colour.b) <= tolerance;
}
