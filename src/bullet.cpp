// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "bullet.h"

#include "gamehandler.h"
#include "main.h"
#include "playership.h"

namespace {

const Uint16 ballSize = 20; // pixels, the size of its picture
const int speedOfType0 = 6; // pixels per frame
const int speedOfType1 = 7;

} // namespace

Bullet::Bullet(GameHandler* battle, int owningPlayer)
    : handler(battle), playerId(owningPlayer),
      type(owningPlayer == 1 ? battle->shipType1 : battle->shipType2),
      size{0, 0, ballSize, ballSize}, pos{0, 0, ballSize, ballSize}, velocity{0, 0, 0, 0},
      visible(false), myPlayerShip(nullptr), otherPlayerShip(nullptr) {
    if (type == 0) {
        speed = speedOfType0;
    } else if (type == 1) {
        speed = speedOfType1;
    }
}

Bullet::~Bullet() = default;

void Bullet::update(SDL_Surface* where) {
    if (!visible) {
        return;
    }
    pos.x = static_cast<Sint16>(pos.x + velocity.x);
    pos.y = static_cast<Sint16>(pos.y + velocity.y);
    // Only the top left corner counts: a ball that extends beyond the right or lower edge flies on.
    if (pos.x < 0 || pos.x >= handler->world->w || pos.y < 0 || pos.y >= handler->world->h) {
        visible = false;
        return;
    }
    if (otherPlayerShip->collidesWith(pos)) {
        otherPlayerShip->wasHit();
        visible = false;
        return;
    }
    // Deliberate: drawing sets the size of pos to what was drawn, which is the hit box of the next
    // frame. Only the part of a ball that is inside the world is seen, and only that part can hit.
    SDL_BlitSurface(imagePool["cball.png"], nullptr, where, &pos);
}

void Bullet::shipsWereInitialized() {
    myPlayerShip = playerId == 1 ? handler->ship1 : handler->ship2;
    otherPlayerShip = playerId == 1 ? handler->ship2 : handler->ship1;
}

void Bullet::show(SDL_Rect npos, SDL_Rect nspeed) {
    pos.x = npos.x;
    pos.y = npos.y;
    pos.w = size.w;
    pos.h = size.h;
    velocity.x = nspeed.x;
    velocity.y = nspeed.y;
    visible = true;
}
