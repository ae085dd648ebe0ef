// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "display.h"

#include "main.h"
#include "programmode.h"

bool operator==(const Colour& left, const Colour& right) {
    return left.r == right.r && left.g == right.g && left.b == right.b;
}

std::ostream& operator<<(std::ostream& out, const Colour& colour) {
    return out << "(" << colour.r << ", " << colour.g << ", " << colour.b << ")";
}

Colour pixel(SDL_Surface* surface, int x, int y) {
    SDL_LockSurface(surface);
    const auto* row = static_cast<const Uint8*>(surface->pixels) + y * surface->pitch;
    const Uint32 value = reinterpret_cast<const Uint32*>(row)[x];
    SDL_UnlockSurface(surface);
    Uint8 r = 0;
    Uint8 g = 0;
    Uint8 b = 0;
    Uint8 a = 0;
    SDL_GetRGBA(value, surface->format, &r, &g, &b, &a);
    return {r, g, b, a};
}

void fill(SDL_Surface* surface, SDL_Rect rect, Colour colour) {
    SDL_FillRect(surface, &rect,
                 SDL_MapRGBA(surface->format, static_cast<Uint8>(colour.r),
                             static_cast<Uint8>(colour.g), static_cast<Uint8>(colour.b),
                             static_cast<Uint8>(colour.a)));
}

SDL_Surface* addPicture(const std::string& filename, int w, int h, Colour colour) {
    SDL_Surface* plain = createSurface(w, h);
    SDL_Surface* picture = SDL_DisplayFormatAlpha(plain);
    SDL_FreeSurface(plain);
    // A converted plain surface blends on the classic library only; a loaded picture on both.
    SDL_SetAlpha(picture, SDL_SRCALPHA, 255);
    fill(picture, {0, 0, static_cast<Uint16>(w), static_cast<Uint16>(h)}, colour);
    imagePool[filename] = picture;
    return picture;
}

void DisplayTest::SetUp() {
    ASSERT_EQ(SDL_Init(SDL_INIT_VIDEO), 0) << SDL_GetError();
    screen = SDL_SetVideoMode(800, 600, 32, SDL_FULLSCREEN);
    ASSERT_NE(screen, nullptr) << SDL_GetError();
    // The classic library paints its pointer into the display, the other does not clear the
    // display.
    SDL_ShowCursor(SDL_DISABLE);
    SDL_FillRect(screen, nullptr, 0);
}

void DisplayTest::TearDown() {
    delete newProgramMode;
    newProgramMode = nullptr;
    for (const auto& image : imagePool) {
        SDL_FreeSurface(image.second);
    }
    imagePool.clear();
    SDL_Quit();
}
