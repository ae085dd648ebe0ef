/* SPDX-FileCopyrightText: 2026 The Morvane makers
   SPDX-License-Identifier: MIT */

/* SDL_image's IMG_Load for the site's pictures. They are the game's PNG files, stored as lossless
   WebP, which is a third smaller. The surface is the one that SDL_image makes from the PNG file:
   24-bit without an alpha channel, 32-bit with one. */
#include <stdlib.h>
#include <webp/decode.h>

#include "SDL.h"
#include "SDL_image.h"

static SDL_Surface* decode(const Uint8* bytes, size_t size) {
    WebPBitstreamFeatures picture = {0};
    WebPGetFeatures(bytes, size, &picture);
    const int isRgba = picture.has_alpha;
    Uint8* pixels = (isRgba ? WebPDecodeRGBA : WebPDecodeRGB)(bytes, size, NULL, NULL);
    if (!pixels) {
        SDL_SetError("The picture is damaged");
        return NULL;
    }
    SDL_Surface* surface = SDL_CreateRGBSurfaceFrom(
        pixels, picture.width, picture.height, isRgba ? 32 : 24, picture.width * (isRgba ? 4 : 3),
        0xFF, 0xFF00, 0xFF0000, isRgba ? 0xFF000000 : 0);
    surface->flags &= ~(Uint32)SDL_PREALLOC; /* the surface owns its pixels and frees them */
    return surface;
}

SDL_Surface* IMG_Load(const char* name) {
    SDL_RWops* file = SDL_RWFromFile(name, "rb");
    if (!file) {
        return NULL;
    }
    const int size = SDL_RWseek(file, 0, SEEK_END);
    SDL_RWseek(file, 0, SEEK_SET);
    Uint8* bytes = malloc((size_t)size);
    const int count = SDL_RWread(file, bytes, 1, size);
    SDL_RWclose(file);
    SDL_Surface* surface = decode(bytes, (size_t)count);
    free(bytes);
    return surface;
}
