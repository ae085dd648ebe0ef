// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "drawing.h"

#include <SDL.h>

#include "clipping.h"

Drawing drawing;

extern "C" {

int __real_SDL_UpperBlit(SDL_Surface* source, SDL_Rect* part, SDL_Surface* target, SDL_Rect* place);
int __real_SDL_FillRect(SDL_Surface* target, SDL_Rect* place, Uint32 colour);
int __real_SDL_Flip(SDL_Surface* display);

int __wrap_SDL_UpperBlit(SDL_Surface* source, SDL_Rect* part, SDL_Surface* target,
                         SDL_Rect* place) {
    ++drawing.blits;
    if (drawing.movesPixels) {
        return __real_SDL_UpperBlit(source, part, target, place);
    }
    clipBlit(*source, part, *target, place);
    return 0;
}

int __wrap_SDL_FillRect(SDL_Surface* target, SDL_Rect* place, Uint32 colour) {
    if (drawing.movesPixels) {
        return __real_SDL_FillRect(target, place, colour);
    }
    clipFill(*target, place);
    return 0;
}

int __wrap_SDL_Flip(SDL_Surface* display) {
    ++drawing.flips;
    if (drawing.atFlip) {
        drawing.atFlip();
    }
    return drawing.showsPixels ? __real_SDL_Flip(display) : 0;
}

} // extern "C"
