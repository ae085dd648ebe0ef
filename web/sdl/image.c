/* SPDX-FileCopyrightText: 2026 The Morvane makers
   SPDX-License-Identifier: MIT */

/* SDL_image's IMG_Load for the site's pictures. They are the game's PNG files, stored as lossless
   WebP, which is a third smaller. The surface is the same as SDL_image makes from the PNG file:
   24-bit without an alpha channel, 32-bit with an alpha channel. */
#include <stdio.h>
#include <stdlib.h>
#include <webp/decode.h>

#include "SDL.h"
#include "SDL_image.h"

static SDL_Surface* decode(const Uint8* bytes, size_t size) {
    WebPBitstreamFeatures picture;
    if (WebPGetFeatures(bytes, size, &picture) != VP8_STATUS_OK) {
        SDL_SetError("Not a picture");
        return NULL;
    }
    SDL_Surface* surface =
        SDL_CreateRGBSurface(SDL_SWSURFACE, picture.width, picture.height,
                             picture.has_alpha ? 32 : 24, 0xFF, 0xFF00, 0xFF0000,
                             picture.has_alpha ? 0xFF000000 : 0);
    if (!surface) {
        return NULL;
    }
    const size_t length = (size_t)surface->pitch * (size_t)surface->h;
    const Uint8* decoded =
        picture.has_alpha
            ? WebPDecodeRGBAInto(bytes, size, surface->pixels, length, surface->pitch)
            : WebPDecodeRGBInto(bytes, size, surface->pixels, length, surface->pitch);
    if (!decoded) {
        SDL_SetError("The picture is damaged");
        SDL_FreeSurface(surface);
        return NULL;
    }
    return surface;
}

SDL_Surface* IMG_Load(const char* name) {
    FILE* file = fopen(name, "rb");
    if (!file) {
        SDL_SetError("Couldn't open %s", name);
        return NULL;
    }
    fseek(file, 0, SEEK_END);
    const size_t size = (size_t)ftell(file);
    rewind(file);
    Uint8* bytes = malloc(size + 1);
    SDL_Surface* surface = NULL;
    if (!bytes || fread(bytes, 1, size, file) != size) {
        SDL_SetError("Couldn't read %s", name);
    } else {
        surface = decode(bytes, size);
    }
    free(bytes);
    fclose(file);
    return surface;
}
