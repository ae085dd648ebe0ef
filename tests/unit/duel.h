// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "barrier.h"
#include "battle.h"
#include "bullet.h"
#include "gamehandler.h"
#include "gameobject.h"
#include "keys.h"
#include "playership.h"

const double headingDown = 0;
const double headingRight = 1.5707963267948966;
const double headingUp = 3.141592653589793;
const double headingLeft = 4.71238898038469;
const double headingDownRight = 0.7853981633974483;
const double headingUpLeft = 3.9269908169872414;

// The number of random numbers taken since the generator was seeded. Does not change its state.
int randomNumbersSince(unsigned seed);

// An object of a battle that calls a test's functions when it is updated and deleted.
class Probe : public GameObject {
public:
    explicit Probe(std::function<void(SDL_Surface*)> whatAtUpdate,
                   std::function<void()> whatAtDeletion = nullptr);
    ~Probe() override;
    Probe(const Probe&) = delete;
    Probe& operator=(const Probe&) = delete;

    void update(SDL_Surface* where) override;

    std::function<void(SDL_Surface*)> atUpdate;
    std::function<void()> atDeletion;
};

// Tests with a battle on an open sea, without barriers. Both ships are at rest and head down, ship
// 1 at 100, 100 and ship 2 at 1000, 1000. Objects: cannonball 1, cannonball 2, ship 1, ship 2.
class DuelTest : public BattleTest {
protected:
    void SetUp() override;
    void TearDown() override;

    // Adds a barrier with its own picture, before all other objects.
    Barrier* addBarrier(SDL_Rect rect, Colour colour = barrierColours[0]);

    // Plays frames as the main loop does. Keys released in a frame go up after it.
    void play(int frames);

    PlayerShip* ship(int playerId);
    Bullet* ball(int playerId);

    std::unique_ptr<GameHandler> battle;
    PlayerShip* ship1;
    PlayerShip* ship2;
    Bullet* ball1;
    Bullet* ball2;
};

// Puts a ship somewhere.
void place(PlayerShip* ship, int x, int y, double direction = headingDown, double velocity = 0);
