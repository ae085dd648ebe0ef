// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "battle.h"
#include "gamehandler.h"
#include "introscreen.h"
#include "main.h"
#include "playership.h"

namespace {

using GaugesTest = BattleTest;

// How many of the parts are done, counted one by one, without a division.
int countedParts(int value, int parts, int whole) {
    int done = 0;
    while ((done + 1) * whole <= value * parts) {
        ++done;
    }
    return done;
}

bool isBlack(int x, int y) {
    return pixel(screen, x, y) == black;
}

} // namespace

TEST_F(GaugesTest, theBarShowsEveryNumberOfHitPoints) {
    GameHandler battle;
    for (PlayerShip* ship : {battle.ship1, battle.ship2}) {
        const int left = ship == battle.ship1 ? 0 : 404;
        for (int hp = 0; hp <= 50; ++hp) {
            ship->hp = hp;
            ship->update(battle.world);
            const int shown = countedParts(hp, 396, 50);
            for (int x = left; x < left + 396; ++x) {
                const bool lost = x >= left + shown;
                ASSERT_EQ(isBlack(x, 578), lost) << hp << " hit points, x " << x;
                ASSERT_EQ(isBlack(x, 599), lost) << hp << " hit points, x " << x;
                ASSERT_FALSE(isBlack(x, 577) && x - left < 300) << hp << " hit points, x " << x;
            }
        }
    }
}

TEST_F(GaugesTest, theDialShowsEveryStepOfBothReloads) {
    GameHandler battle;
    for (PlayerShip* ship : {battle.ship1, battle.ship2}) {
        const int x = ship == battle.ship1 ? 308 : 712;
        for (int whole : {1, 120, 300}) {
            for (int left = whole == 1 ? 0 : whole; left >= 0; --left) {
                // The ship counts this frame before it draws the dial.
                ship->setReloading(left == 0 ? 0 : left + 1, whole);
                ship->update(battle.world);
                ASSERT_EQ(ship->reloading, left);
                const Colour expected = dialFrameColour(40 - countedParts(left, 40, whole));
                ASSERT_EQ(pixel(screen, x, 508), expected) << left << " of " << whole;
                ASSERT_EQ(pixel(screen, x + 68, 576), expected) << left << " of " << whole;
            }
        }
    }
}

TEST_F(GaugesTest, theIntroFadesThroughEveryOpacity) {
    addPicture("brannoc4f.png", 500, 400, red);
    addPicture("presentsscreen1.png", 640, 440, green);
    IntroScreen intro;
    int opacity = -1;
    for (int f = 0; f < 600; ++f) {
        intro.update();
        if (f < 540) {
            const int whole = f < 360 ? 180 : 1140;
            opacity = countedParts(f % 180, 255, whole);
        } else if (f == 540) {
            opacity = 255;
        }
        ASSERT_EQ(intro.buf->format->alpha, opacity) << "frame " << f;
    }
}
