// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "drawing.h"

#include <SDL.h>

#include "clipping.h"

extern "C" {
int __real_SDL_UpperBlit(SDL_Surface* src, SDL_Rect* srcrect, SDL_Surface* dst, SDL_Rect* dstrect);
int __wrap_SDL_UpperBlit(SDL_Surface* src, SDL_Rect* srcrect, SDL_Surface* dst, SDL_Rect* dstrect);
int __real_SDL_FillRect(SDL_Surface* dst, SDL_Rect* rect, Uint32 colour);
int __wrap_SDL_FillRect(SDL_Surface* dst, SDL_Rect* rect, Uint32 colour);
int __real_SDL_Flip(SDL_Surface* surface);
int __wrap_SDL_Flip(SDL_Surface* surface);
}

namespace {

bool drawing = true;
long blits = 0;

} // namespace

long countedBlits() {
    return blits;
}

WithoutDrawing::WithoutDrawing() {
    drawing = false;
}

WithoutDrawing::~WithoutDrawing() {
    drawing = true;
}

extern "C" {

int __wrap_SDL_UpperBlit(SDL_Surface* src, SDL_Rect* srcrect, SDL_Surface* dst, SDL_Rect* dstrect) {
    ++blits;
    if (drawing) {
        return __real_SDL_UpperBlit(src, srcrect, dst, dstrect);
    }
    clipBlit(*src, srcrect, *dst, dstrect);
    return 0;
}

int __wrap_SDL_FillRect(SDL_Surface* dst, SDL_Rect* rect, Uint32 colour) {
    if (drawing) {
        return __real_SDL_FillRect(dst, rect, colour);
    }
    clipFill(*dst, rect);
    return 0;
}

int __wrap_SDL_Flip(SDL_Surface* surface) {
    return drawing ? __real_SDL_Flip(surface) : 0;
}
}
