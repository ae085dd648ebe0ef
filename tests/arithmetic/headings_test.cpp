// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include <cmath>
#include <cstdlib>
#include <vector>

#include "battle.h"
#include "bullet.h"
#include "gamehandler.h"
#include "keyboard.h"
#include "keys.h"
#include "playership.h"

namespace {

const int turns = 10000;
const int startHeadings = 20;

// The sizes of the hit box for all 36 phases, from the ship's outline: flat while it lies across,
// tall while it lies along, growing in between.
const int hitBoxes[36][2] = {
    {100, 40}, {95, 50}, {95, 60}, {90, 65}, {85, 75}, {75, 85}, {65, 90}, {60, 95}, {50, 95},
    {40, 100}, {50, 95}, {60, 95}, {65, 90}, {75, 85}, {85, 75}, {90, 65}, {95, 60}, {95, 50},
    {100, 40}, {95, 50}, {95, 60}, {90, 65}, {85, 75}, {75, 85}, {65, 90}, {60, 95}, {50, 95},
    {40, 100}, {50, 95}, {60, 95}, {65, 90}, {75, 85}, {85, 75}, {90, 65}, {95, 60}, {95, 50},
};

class HeadingsTest : public BattleTest {
protected:
    // One of the twenty headings that a ship can start with, in thousandths of a radian, with
    // turns to the left taken one by one.
    static long thousandths(int start, int turned) {
        return 200L * start + 50L * turned;
    }

    // The phase in integer arithmetic. A heading exactly on the border of two phases may have
    // either.
    static std::vector<int> phasesOf(long thousandthsOfHeading) {
        const long a = ((4911 - thousandthsOfHeading) % 6282 + 6282) % 6282;
        const int phase = static_cast<int>(a * 36 / 6282);
        if (a * 36 % 6282 == 0) {
            return {phase, (phase + 35) % 36};
        }
        return {phase};
    }

    static bool hasBoxOf(const SDL_Rect& box, int phase) {
        return box.w == hitBoxes[phase][0] && box.h == hitBoxes[phase][1];
    }
};

// The whole pixels of a distance, towards zero, by comparison alone and with more digits than a
// double has.
int cut(long double distance) {
    int pixels = 0;
    while (static_cast<long double>(pixels + 1) <= std::fabs(distance)) {
        ++pixels;
    }
    return distance < 0 ? -pixels : pixels;
}

} // namespace

TEST_F(HeadingsTest, theHitBoxFollowsEveryReachableHeading) {
    GameHandler battle;
    PlayerShip& ship = *battle.ship1;
    ship.rect = {600, 500, 100, 100};
    long seen[36] = {};
    long onTheLine = 0;
    for (SDLKey key : {SDLK_a, SDLK_d}) {
        const int side = key == SDLK_a ? 1 : -1;
        for (int start = 0; start < startHeadings; ++start) {
            ship.direction = start / 5.0;
            press(key);
            for (int i = 1; i <= turns; ++i) {
                ship.keyboard();
                const std::vector<int> phases = phasesOf(thousandths(start, side * i));
                const SDL_Rect box = ship.myCollisionRect();
                ASSERT_TRUE(hasBoxOf(box, phases.front()) || hasBoxOf(box, phases.back()))
                    << "start " << start << ", turn " << side * i;
                // Centred on the ship, except for an odd pixel.
                ASSERT_EQ(box.x, 600 + 50 - box.w / 2);
                ASSERT_EQ(box.y, 500 + 50 - box.h / 2);
                ++seen[phases.front()];
                onTheLine += phases.size() > 1 ? 1 : 0;
            }
            release(key);
            Keyboard::releaseKeys();
        }
    }
    for (long times : seen) {
        EXPECT_GT(times, turns / 36);
    }
    EXPECT_LT(onTheLine, 2 * turns * startHeadings / 50);
}

TEST_F(HeadingsTest, shipsSailWholePixelsAtEverySpeedAndHeading) {
    GameHandler battle;
    battle.barriers.clear();
    PlayerShip& ship = *battle.ship1;
    for (int start = 0; start < startHeadings; ++start) {
        for (int turned = -turns; turned <= turns; turned += 7) {
            ship.direction = start / 5.0 + turned * 0.05;
            for (int halves = 0; halves <= 12; ++halves) {
                ship.velocity = halves / 2.0;
                ship.rect = {600, 600, 100, 100};
                ship.move();
                const long double heading = ship.direction;
                const int across = cut(std::sin(heading) * halves / 2);
                const int down = cut(std::cos(heading) * halves / 2);
                ASSERT_EQ(ship.rect.x - 600, across) << ship.direction << " " << halves;
                ASSERT_EQ(ship.rect.y - 600, down) << ship.direction << " " << halves;
            }
        }
    }
}

TEST_F(HeadingsTest, ballsLeaveWithHalfTheShipsSpeedAndTheirOwn) {
    GameHandler battle;
    for (PlayerShip* ship : {battle.ship1, battle.ship2}) {
        PlayerShip* other = ship == battle.ship1 ? battle.ship2 : battle.ship1;
        Bullet* ball = ship == battle.ship1 ? battle.bullet1 : battle.bullet2;
        const int ownQuarters = ship == battle.ship1 ? 24 : 28;
        other->rect = {0, 0, 100, 100};
        ship->rect = {700, 700, 100, 100};
        for (int turned = -turns; turned <= turns; turned += 3) {
            ship->direction = turned * 0.05;
            for (int halves = 0; halves <= 2 * ship->shipSpeed; ++halves) {
                ship->velocity = halves / 2.0;
                ship->reloading = 0;
                ship->shoot();
                const long double heading = ship->direction;
                const long double speed = (ownQuarters + halves) / 4.0L;
                ASSERT_EQ(ball->velocity.x, cut(std::sin(heading) * speed)) << ship->direction;
                ASSERT_EQ(ball->velocity.y, cut(std::cos(heading) * speed)) << ship->direction;
                ASSERT_EQ(ball->pos.x, 740);
                ASSERT_EQ(ball->pos.y, 740);
            }
        }
    }
}

TEST_F(HeadingsTest, bordersHoldAShipFromEverySide) {
    GameHandler battle;
    battle.barriers.clear();
    PlayerShip& ship = *battle.ship2;
    ship.velocity = 5;
    for (int place = 0; place <= 1200; ++place) {
        for (int turned = 0; turned < 126; ++turned) {
            ship.direction = turned * 0.05;
            for (bool across : {true, false}) {
                ship.rect = {static_cast<Sint16>(across ? place : 600),
                             static_cast<Sint16>(across ? 600 : place), 100, 100};
                ship.move();
                // Step by step to where the ship wants to go, and not a pixel over the border.
                const long double part = across
                                             ? std::sin(static_cast<long double>(ship.direction))
                                             : std::cos(static_cast<long double>(ship.direction));
                int expected = place;
                for (int steps = std::abs(cut(part * 5)); steps > 0; --steps) {
                    const int next = expected + (part < 0 ? -1 : 1);
                    expected = next < 0 || next > 1200 ? expected : next;
                }
                ASSERT_EQ(across ? ship.rect.x : ship.rect.y, expected)
                    << place << " " << ship.direction;
            }
        }
    }
}
