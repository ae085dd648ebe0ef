// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "battles.h"

#include <cstdio>
#include <cstdlib>

#include "barrier.h"
#include "gamedata.h"
#include "keys.h"
#include "main.h"

void prepareGame() {
    if (SDL_Init(SDL_INIT_VIDEO) != 0) {
        error("$Could not initialize SDL", 4);
    }
    screen = SDL_SetVideoMode(800, 600, 32, SDL_FULLSCREEN);
    programDataPath = getDataPath();
    bool loaded = screen != nullptr;
    for (const PictureFile& file : pictureFiles) {
        loaded = loaded && loadImage(file.name, file.hasAlpha) != nullptr;
    }
    if (!loaded) {
        std::fputs("The benchmark needs a display driver and the game's data.\n", stderr);
        std::exit(1);
    }
}

void holdBattleKeys() {
    for (SDLKey key : {SDLK_w, SDLK_a, SDLK_TAB, SDLK_UP, SDLK_LEFT, SDLK_RETURN}) {
        press(key);
    }
}

void multiplyBarriers(GameHandler& battle, int times) {
    const std::vector<Barrier*> first = battle.barriers;
    for (int i = 1; i < times; ++i) {
        for (const Barrier* model : first) {
            // A barrier seeks a place free of the others; an empty list gives it any place.
            std::vector<Barrier*> others;
            others.swap(battle.barriers);
            auto* barrier = new Barrier(&battle, model->type);
            battle.barriers.swap(others);
            battle.barriers.push_back(barrier);
            battle.objects.insert(battle.objects.begin(), barrier);
        }
    }
}

void enlargeWorld(GameHandler& battle, int size) {
    SDL_Surface* sea = createSurface(size, size);
    SDL_Surface* old = battle.background;
    for (int x = 0; x < size; x += old->w) {
        for (int y = 0; y < size; y += old->h) {
            drawPicture(old, sea, x, y);
        }
    }
    // The game's own flags, so that the larger sea is copied as the game copies its own.
    const Uint32 kept = SDL_SRCCOLORKEY | SDL_RLEACCEL | SDL_RLEACCELOK;
    SDL_SetColorKey(sea, old->flags & kept, old->format->colorkey);
    SDL_FreeSurface(battle.world);
    SDL_FreeSurface(old);
    battle.background = sea;
    battle.world = createSurface(size, size);
}

BareCopies::BareCopies(GameHandler& copiedBattle)
    : battle(copiedBattle), sea(createSurface(battle.background->w, battle.background->h)),
      world(createSurface(battle.world->w, battle.world->h)) {
    drawPicture(battle.background, sea, 0, 0);
}

BareCopies::~BareCopies() {
    SDL_FreeSurface(sea);
    SDL_FreeSurface(world);
}

void BareCopies::run() {
    SDL_Rect place1 = {5, 5, 0, 0};
    SDL_Rect place2 = {405, 5, 0, 0};
    SDL_BlitSurface(sea, nullptr, world, nullptr);
    SDL_BlitSurface(world, &battle.viewport1, screen, &place1);
    SDL_BlitSurface(world, &battle.viewport2, screen, &place2);
}
