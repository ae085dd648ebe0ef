// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>

#include "gameobject.h"

class GameHandler;
class PlayerShip;

// A player's only cannonball, reused for every shot. In flight it moves in a straight line over
// barriers and over its own ship until it leaves the world or hits the other player's ship.
class Bullet : public GameObject {
public:
    // A cannonball that is not in flight. The constructor does not use the ships, which are built
    // later.
    Bullet(GameHandler* battle, int owningPlayer);
    ~Bullet() override;

    void update(SDL_Surface* where) override;

    // Learns its own ship and its target; called once both ships exist.
    void shipsWereInitialized();

    // Starts the flight with the top left corner at npos, in world pixels, moving by nspeed pixels
    // per frame; only x and y of both count. A ball already in flight starts again.
    void show(SDL_Rect npos, SDL_Rect nspeed);

    GameHandler* handler; // not owned
    int playerId;
    int type; // the type of the owner's ship
    SDL_Rect size;
    SDL_Rect pos;      // place in the world and hit box; drawing sets w and h to what is visible
    SDL_Rect velocity; // x and y in pixels per frame
    int speed;         // launch speed in pixels per frame
    bool visible;      // in flight
    PlayerShip* myPlayerShip; // the ships are owned by the battle
    PlayerShip* otherPlayerShip;
};
