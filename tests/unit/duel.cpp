// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "duel.h"

#include <cstdlib>
#include <string>
#include <utility>

#include "keyboard.h"
#include "main.h"
#include "programmode.h"

int randomNumbersSince(unsigned seed) {
    const long next = random();
    srandom(seed);
    int count = 0;
    while (random() != next) {
        ++count;
    }
    srandom(seed);
    for (int i = 0; i < count; ++i) {
        random();
    }
    return count;
}

Probe::Probe(std::function<void(SDL_Surface*)> whatAtUpdate, std::function<void()> whatAtDeletion)
    : atUpdate(std::move(whatAtUpdate)), atDeletion(std::move(whatAtDeletion)) {}

Probe::~Probe() {
    if (atDeletion) {
        atDeletion();
    }
}

void Probe::update(SDL_Surface* where) {
    if (atUpdate) {
        atUpdate(where);
    }
}

void DuelTest::SetUp() {
    BattleTest::SetUp();
    battle = std::make_unique<GameHandler>();
    for (Barrier* barrier : battle->barriers) {
        delete barrier;
    }
    battle->barriers.clear();
    battle->objects = {battle->bullet1, battle->bullet2, battle->ship1, battle->ship2};
    ship1 = battle->ship1;
    ship2 = battle->ship2;
    ball1 = battle->bullet1;
    ball2 = battle->bullet2;
    place(ship1, 100, 100);
    place(ship2, 1000, 1000);
}

void DuelTest::TearDown() {
    battle.reset();
    releaseAllKeys();
    BattleTest::TearDown();
}

Barrier* DuelTest::addBarrier(SDL_Rect rect, Colour colour) {
    // Without the other barriers, because a new barrier looks for a free place.
    std::vector<Barrier*> others;
    others.swap(battle->barriers);
    auto* barrier = new Barrier(battle.get(), 2);
    barrier->rect = rect;
    barrier->image =
        addPicture("barrier " + std::to_string(imagePool.size()), rect.w, rect.h, colour);
    others.push_back(barrier);
    battle->barriers = others;
    battle->objects.insert(battle->objects.begin(), barrier);
    return barrier;
}

void DuelTest::play(int frames) {
    for (int i = 0; i < frames; ++i) {
        battle->update();
        Keyboard::releaseKeys();
    }
}

PlayerShip* DuelTest::ship(int playerId) {
    return playerId == 1 ? ship1 : ship2;
}

Bullet* DuelTest::ball(int playerId) {
    return playerId == 1 ? ball1 : ball2;
}

void place(PlayerShip* ship, int x, int y, double direction, double velocity) {
    ship->rect.x = static_cast<Sint16>(x);
    ship->rect.y = static_cast<Sint16>(y);
    ship->direction = direction;
    ship->velocity = velocity;
}
