// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include <cstdlib>
#include <random>
#include <vector>

#include "barrier.h"
#include "battle.h"
#include "bullet.h"
#include "drawing.h"
#include "gamehandler.h"
#include "keyboard.h"
#include "keys.h"
#include "main.h"
#include "playership.h"

namespace {

const int voyages = 150;
const int framesOfVoyage = 4000;
const int cannonBusy = 120; // frames after a shot

using VoyagesTest = BattleTest;

const std::vector<SDLKey> battleKeys = {SDLK_a,     SDLK_d,      SDLK_w,     SDLK_TAB,
                                        SDLK_z,     SDLK_LEFT,   SDLK_UP,    SDLK_RIGHT,
                                        SDLK_SPACE, SDLK_RETURN, SDLK_DELETE};

// Presses and releases keys at random. Most are held for a while, as players do.
void fumble(std::mt19937& random) {
    if (random() % 4 != 0) {
        return;
    }
    const SDLKey key = battleKeys[random() % battleKeys.size()];
    if (random() % 3 != 0) {
        press(key);
    } else {
        release(key);
    }
}

bool insideABarrier(const GameHandler& battle, const SDL_Rect& ship) {
    for (const Barrier* barrier : battle.barriers) {
        const SDL_Rect b = barrier->rect;
        const bool apart = ship.x >= b.x + b.w || b.x >= ship.x + ship.w || ship.y >= b.y + b.h ||
                           b.y >= ship.y + ship.h;
        if (!apart) {
            return true;
        }
    }
    return false;
}

// One ship before a frame, and its statistics so far.
struct Watch {
    PlayerShip* ship;
    Bullet* enemyBall;
    int hp;
    bool ballFlew;
    int jumpsLeft;
    long lastJump;
    int jumps;
    long hits;
};

Watch watchOver(PlayerShip* ship, Bullet* enemyBall) {
    return {ship, enemyBall, ship->hp, false, ship->teleportCounter, -100000, 0, 0};
}

void lookBefore(Watch& watch) {
    watch.hp = watch.ship->hp;
    watch.ballFlew = watch.enemyBall->visible;
    watch.jumpsLeft = watch.ship->teleportCounter;
}

void lookAfter(Watch& watch, const GameHandler& battle, long frame) {
    const PlayerShip& ship = *watch.ship;
    ASSERT_TRUE(ship.hp == watch.hp || ship.hp == watch.hp - 5);
    if (ship.hp != watch.hp) {
        ++watch.hits;
        // Only the enemy's ball hurts, and it is spent; a new one must have been fired since.
        ASSERT_TRUE(watch.ballFlew);
        ASSERT_TRUE(!watch.enemyBall->visible ||
                    watch.enemyBall->myPlayerShip->reloading == cannonBusy - 1);
    }
    ASSERT_GE(ship.hp, 0);
    ASSERT_TRUE(ship.rect.x >= 0 && ship.rect.x <= 1200) << ship.rect.x;
    ASSERT_TRUE(ship.rect.y >= 0 && ship.rect.y <= 1200) << ship.rect.y;
    ASSERT_TRUE(ship.rect.w == 100 && ship.rect.h == 100);
    ASSERT_FALSE(insideABarrier(battle, ship.rect));
    ASSERT_TRUE(ship.velocity >= 0 && ship.velocity <= ship.shipSpeed);
    if (ship.teleportCounter != watch.jumpsLeft) {
        ASSERT_EQ(ship.teleportCounter, watch.jumpsLeft - 1);
        ASSERT_GE(frame - watch.lastJump, 900);
        watch.lastJump = frame;
        ++watch.jumps;
        ASSERT_LE(watch.jumps, 3);
    }
}

} // namespace

TEST_F(VoyagesTest, whateverPlayersPressTheRulesHold) {
    const WithoutDrawing quick;
    long hits = 0;
    long jumps = 0;
    long frames = 0;
    long duels = 0;
    for (unsigned seed = 0; seed < voyages; ++seed) {
        srandom(seed);
        std::mt19937 random(seed);
        GameHandler battle;
        battle.activate();
        Watch watches[] = {watchOver(battle.ship1, battle.bullet2),
                           watchOver(battle.ship2, battle.bullet1)};
        for (long frame = 0; frame < framesOfVoyage && newProgramMode == nullptr; ++frame) {
            for (Watch& watch : watches) {
                lookBefore(watch);
            }
            fumble(random);
            battle.update();
            Keyboard::releaseKeys();
            for (Watch& watch : watches) {
                lookAfter(watch, battle, frame);
                ASSERT_FALSE(HasFatalFailure()) << "seed " << seed << ", frame " << frame;
            }
            ++frames;
        }
        if (newProgramMode != nullptr) {
            ASSERT_TRUE(battle.ship1->hp == 0 || battle.ship2->hp == 0);
            ++duels;
        }
        delete newProgramMode;
        newProgramMode = nullptr;
        for (const Watch& watch : watches) {
            hits += watch.hits;
            jumps += watch.jumps;
        }
        for (SDLKey key : battleKeys) {
            release(key);
        }
        Keyboard::releaseKeys();
    }
    // Otherwise too little happened to prove anything.
    EXPECT_GT(frames, voyages * framesOfVoyage / 2);
    EXPECT_GT(hits, voyages);
    EXPECT_GT(jumps, voyages * 2);
    RecordProperty("frames", static_cast<int>(frames));
    RecordProperty("duels", static_cast<int>(duels));
}
