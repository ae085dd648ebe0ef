// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "hash.h"

#include <cstdio>
#include <cstdlib>

std::uint64_t hashOfColours(const SDL_Surface& surface) {
    const Uint32 colours = 0xffffff;
    const SDL_PixelFormat& format = *surface.format;
    if (format.BytesPerPixel != 4 || format.Rmask != 0xff0000 || format.Gmask != 0xff00 ||
        format.Bmask != 0xff) {
        std::fputs("The display has another layout than the expected hashes.\n", stderr);
        std::abort();
    }
    Hash hash;
    const char* row = static_cast<const char*>(surface.pixels);
    for (int y = 0; y < surface.h; ++y) {
        for (int x = 0; x < surface.w; x += 2) {
            Uint32 pair[2] = {0, 0};
            std::memcpy(pair, row + 4 * x, x + 1 < surface.w ? 8 : 4);
            hash.add(std::uint64_t{pair[0] & colours} << 32 | (pair[1] & colours));
        }
        row += surface.pitch;
    }
    return hash.value;
}

std::string textOf(std::uint64_t hash) {
    char text[17];
    std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(hash));
    return text;
}
