// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "gamehandler.h"

#include <algorithm>
#include <cstdlib>

#include "barrier.h"
#include "bullet.h"
#include "main.h"
#include "mainmenu.h"
#include "music.h"
#include "playership.h"

namespace {

const int worldSize = 1300;
const int barriersOfType[] = {1, 3, 9}; // the index is the type
const SDL_Rect viewport1Place = {5, 5, 0, 0};
const SDL_Rect viewport2Place = {405, 5, 0, 0};
const Uint16 viewportWidth = 390;
const Uint16 viewportHeight = 490;
const Uint8 firstCompatPatch = 50; // sdl12-compat counts its versions from 1.2.50

// Lays the water tile over the sea, column by column. Deliberate: the number of rows comes from the
// tile's width, like that of the columns. A tile wider than it is tall leaves the bottom of the sea
// plain blue.
void layWater(SDL_Surface* sea) {
    SDL_Surface* tile = imagePool["voda.png"];
    const int n = sea->w / tile->w + 1;
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < n; ++j) {
            const int x = i * tile->w;
            const int y = j * tile->h;
            const int w = std::min(tile->w, sea->w - x);
            const int h = std::min(tile->h, sea->h - y);
            if (w == 0 || h == 0) {
                continue;
            }
            // A tile below the sea has a negative h; the blit clips it away.
            SDL_Rect source = {0, 0, static_cast<Uint16>(w), static_cast<Uint16>(h)};
            SDL_Rect place = {static_cast<Sint16>(x), static_cast<Sint16>(y), 0, 0};
            SDL_BlitSurface(tile, &source, sea, &place);
        }
    }
}

// Prepares the sea for being copied whole in every frame. The classic library's plain copy bypasses
// the processor's cache, so the copied pixels are missing there when the barriers, the ships and
// the viewports need them. With a colour key and SDL_RLEACCEL, the library copies each run of
// pixels with memcpy instead, and the whole frame takes about two thirds of the time. No pixel has
// the colour key: magenta in the water's tile is transparent and never copied to the sea.
// sdl12-compat would compare every pixel with the key, so with that library the copy stays plain.
void copyInRuns(SDL_Surface* sea) {
    if (SDL_Linked_Version()->patch < firstCompatPatch) {
        const Uint32 unused = SDL_MapRGB(sea->format, 255, 0, 255);
        SDL_SetColorKey(sea, SDL_SRCCOLORKEY | SDL_RLEACCEL, unused);
    }
}

} // namespace

GameHandler::GameHandler() {
    Music::play(static_cast<int>(2 + random() % 2));
    world = createSurface(worldSize, worldSize);
    background = createSurface(world->w, world->h);
    SDL_FillRect(background, nullptr, SDL_MapRGB(background->format, 0, 0, 255));
    layWater(background);
    copyInRuns(background);
    viewportSize = {0, 0, viewportWidth, viewportHeight};
    viewport1 = viewportSize;
    viewport2 = viewportSize;
    viewport1Pos = viewport1Place;
    viewport2Pos = viewport2Place;
    shipType1 = 0;
    shipType2 = 1;
    int type = 0;
    for (const int count : barriersOfType) {
        for (int i = 0; i < count; ++i) {
            objects.push_back(new Barrier(this, type));
        }
        ++type;
    }
    bullet1 = new Bullet(this, 1);
    objects.push_back(bullet1);
    bullet2 = new Bullet(this, 2);
    objects.push_back(bullet2);
    ship1 = new PlayerShip(this, 1);
    objects.push_back(ship1);
    ship2 = new PlayerShip(this, 2);
    objects.push_back(ship2);
    bullet1->shipsWereInitialized();
    bullet2->shipsWereInitialized();
    // Deliberate: there is one retry only, and the new place is not checked again. Occasionally the
    // ships do start in each other's line of fire.
    if (ship1->rect.x == ship2->rect.x || ship1->rect.y == ship2->rect.y) {
        ship2->relocate();
    }
}

GameHandler::~GameHandler() {
    for (GameObject* object : objects) {
        delete object;
    }
    SDL_FreeSurface(world);
    SDL_FreeSurface(background);
}

void GameHandler::event(SDL_Event* e) {
    if (e->type == SDL_KEYDOWN && e->key.keysym.sym == SDLK_ESCAPE) {
        newProgramMode = new MainMenu;
    }
}

void GameHandler::activate() {
    blackenDisplay();
    moveViewport(1);
    moveViewport(2);
}

void GameHandler::update() {
    SDL_BlitSurface(background, &background->clip_rect, world, &background->clip_rect);
    for (GameObject* object : objects) {
        object->update(world);
    }
    // Blits write clipped sizes back into rectangles, so the sizes are restored in every frame.
    // Deliberate: viewport1Pos is not restored. A blit changes x and y of its place only when the
    // display clips it at the left or the top, which happens to neither viewport.
    viewport2Pos.x = viewport2Place.x;
    viewport2Pos.y = viewport2Place.y;
    viewport1.w = viewportSize.w;
    viewport1.h = viewportSize.h;
    viewport2.w = viewportSize.w;
    viewport2.h = viewportSize.h;
    SDL_BlitSurface(world, &viewport1, screen, &viewport1Pos);
    SDL_BlitSurface(world, &viewport2, screen, &viewport2Pos);
    SDL_Flip(screen);
}

void GameHandler::cleanUp() {}

void GameHandler::moveViewport(int viewportId) {
    const SDL_Rect ship = viewportId == 1 ? ship1->rect : ship2->rect;
    SDL_Rect& viewport = viewportId == 1 ? viewport1 : viewport2;
    viewport.x = static_cast<Sint16>(ship.x + ship.w / 2 - viewportSize.w / 2);
    viewport.y = static_cast<Sint16>(ship.y + ship.h / 2 - viewportSize.h / 2);
    viewport.x = std::max<Sint16>(viewport.x, 0);
    viewport.y = std::max<Sint16>(viewport.y, 0);
    if (viewport.x + viewportSize.w >= world->w) {
        viewport.x = static_cast<Sint16>(world->w - viewportSize.w - 1);
    }
    if (viewport.y + viewportSize.h >= world->h) {
        viewport.y = static_cast<Sint16>(world->h - viewportSize.h - 1);
    }
}

bool GameHandler::collidesWithBarriers(SDL_Rect rect1) {
    return std::any_of(barriers.begin(), barriers.end(), [rect1](const Barrier* barrier) {
        return rectanglesCollide(rect1, barrier->rect);
    });
}

int GameHandler::mapWorldRGB(Uint8 r, Uint8 g, Uint8 b) {
    world->format->palette = nullptr;
    return static_cast<int>(SDL_MapRGB(world->format, r, g, b));
}

bool rectanglesCollide(SDL_Rect rect1, SDL_Rect rect2) {
    return rect1.y + rect1.h > rect2.y && rect1.y < rect2.y + rect2.h &&
           rect1.x + rect1.w > rect2.x && rect1.x < rect2.x + rect2.w;
}
