// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "flips.h"

#include <utility>

#include <SDL.h>
#include <dlfcn.h>

namespace {

FlipWatch* watch = nullptr;

using Flip = int (*)(SDL_Surface*);

Flip libraryFlip() {
    return reinterpret_cast<Flip>(dlsym(RTLD_NEXT, "SDL_Flip"));
}

} // namespace

int SDL_Flip(SDL_Surface* display) {
    if (watch == nullptr) {
        return libraryFlip()(display);
    }
    ++watch->count;
    if (watch->atFlip) {
        watch->atFlip();
    }
    return 0;
}

FlipWatch::FlipWatch(std::function<void()> whatAtFlip) : atFlip(std::move(whatAtFlip)), count(0) {
    watch = this;
}

FlipWatch::~FlipWatch() {
    watch = nullptr;
}
