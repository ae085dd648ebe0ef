// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>

#include "gameobject.h"

class GameHandler;

// An obstacle in the water: type 0 is the island, 1 a reef, 2 a rock. The whole rectangle of its
// picture blocks ships; cannonballs fly over it.
class Barrier : public GameObject {
public:
    // Places the barrier clear of all earlier ones and then joins the battle's barriers. Types
    // other than 0, 1 and 2 have no picture and must not be used.
    Barrier(GameHandler* battle, int barrierType);
    ~Barrier() override;

    void update(SDL_Surface* where) override;

    // Picks places at random until one is clear of the barriers in the battle's list. Only a
    // barrier that is not yet in the list may be moved: a barrier in the list would always collide
    // with itself.
    void relocate();

    GameHandler* handler; // not owned
    int type;
    SDL_Rect rect;      // place in the world and size of the picture
    SDL_Surface* image; // owned by imagePool
};
