// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include <cstdio>
#include <cstdlib>

#include <SDL.h>

#include "surroundings.h"

// The surfaces that the game makes, with or without pixels of their own.

namespace {

// The pixels that all surfaces share in a replay without drawing: zeros that are never touched and
// so take no memory.
void* sharedPixels(int w, int h) {
    const std::size_t size = std::size_t{1300} * 1300 * 4;
    static void* const pixels = std::calloc(size, 1);
    if (static_cast<std::size_t>(w) * static_cast<std::size_t>(h) * 4 > size) {
        std::fputs("No surface of the game is larger than its world.\n", stderr);
        std::abort();
    }
    return pixels;
}

} // namespace

extern "C" {

SDL_Surface* __real_SDL_CreateRGBSurface(Uint32 flags, int w, int h, int depth, Uint32 r, Uint32 g,
                                         Uint32 b, Uint32 a);

SDL_Surface* __wrap_SDL_CreateRGBSurface(Uint32 flags, int w, int h, int depth, Uint32 r, Uint32 g,
                                         Uint32 b, Uint32 a) {
    if (surroundings.keepsSurfaces) {
        return __real_SDL_CreateRGBSurface(flags, w, h, depth, r, g, b, a);
    }
    return SDL_CreateRGBSurfaceFrom(sharedPixels(w, h), w, h, depth, w * 4, r, g, b, a);
}

} // extern "C"
