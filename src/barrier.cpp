// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "barrier.h"

#include <cstdlib>

#include "gamehandler.h"
#include "main.h"

Barrier::Barrier(GameHandler* battle, int barrierType) : handler(battle), type(barrierType) {
    switch (type) {
    case 0:
        image = imagePool["prekazka1.png"];
        break;
    case 1:
        image = imagePool["prekazka2.png"];
        break;
    case 2:
        image = imagePool["prekazka3.png"];
        break;
    default:
        break;
    }
    relocate();
    handler->barriers.push_back(this);
}

Barrier::~Barrier() = default;

void Barrier::update(SDL_Surface* where) {
    SDL_BlitSurface(image, nullptr, where, &rect);
}

void Barrier::relocate() {
    do {
        rect.w = static_cast<Uint16>(image->w);
        rect.h = static_cast<Uint16>(image->h);
        rect.x = static_cast<Sint16>(random() % (handler->world->w - rect.w));
        rect.y = static_cast<Sint16>(random() % (handler->world->h - rect.h));
    } while (handler->collidesWithBarriers(rect));
}
