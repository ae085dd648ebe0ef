// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "playership.h"

#include <vector>

#include "duel.h"
#include "rects.h"

namespace {

class PlayerShipCannonTest : public DuelTest {};

TEST_F(PlayerShipCannonTest, centresCannonballsOfEverySize) {
    place(ship1, 400, 300);
    ball1->size = {0, 0, 31, 8};
    ship1->shoot();
    EXPECT_THAT(ball1->pos, isRect(435, 346, 31, 8));
}

TEST_F(PlayerShipCannonTest, launchesWithTheSpeedOfTheCannonball) {
    ball1->speed = 20;
    ship1->shoot();
    EXPECT_EQ(ball1->velocity.y, 20);
}

TEST_F(PlayerShipCannonTest, doesNothingUntilItIsLoaded) {
    for (const int reloading : {1, 60, 120, 300, -1}) {
        SCOPED_TRACE(reloading);
        ship1->reloading = reloading;
        ship1->maxReloading = 300;
        ball1->show({700, 700, 20, 20}, {1, 2, 0, 0});
        ship1->shoot();
        EXPECT_TRUE(ball1->visible);
        EXPECT_THAT(ball1->pos, isAt(700, 700));
        EXPECT_THAT(ball1->velocity, isAt(1, 2));
        EXPECT_EQ(ship1->reloading, reloading);
        EXPECT_EQ(ship1->maxReloading, 300);
    }
}

TEST_F(PlayerShipCannonTest, replacesTheCannonballInFlight) {
    ball1->show({700, 700, 20, 20}, {1, 2, 0, 0});
    ship1->shoot();
    EXPECT_TRUE(ball1->visible);
    EXPECT_THAT(ball1->pos, isAt(140, 140));
    EXPECT_THAT(ball1->velocity, isAt(0, 6));
}

// Where the enemy lies when a ship fires that lies at 400, 400; its cannonball starts at 440, 440.
struct PointBlank {
    int enemyX;
    int enemyY;
    bool fires;
};

const PointBlank pointBlanks[] = {
    {400, 400, false}, {459, 400, false}, {460, 400, true}, // to the right
    {341, 400, false}, {340, 400, true},                    // to the left
    {400, 459, false}, {400, 460, true},                    // below
    {400, 341, false}, {400, 340, true},                    // above
    {459, 459, false}, {460, 460, true},                    // the corners
    {341, 341, false}, {340, 340, true},
};

TEST_F(PlayerShipCannonTest, losesTheShotInsideTheEnemy) {
    for (const int playerId : {1, 2}) {
        for (const PointBlank& pointBlank : pointBlanks) {
            place(ship(playerId), 400, 400);
            place(ship(3 - playerId), pointBlank.enemyX, pointBlank.enemyY, 4.82);
            SCOPED_TRACE(rectText(ship(3 - playerId)->rect));
            ball(playerId)->visible = false;
            ship(playerId)->reloading = 0;
            ship(playerId)->shoot();
            EXPECT_EQ(ball(playerId)->visible, pointBlank.fires);
            EXPECT_EQ(ship(playerId)->reloading, 120);
            EXPECT_EQ(ship(playerId)->maxReloading, 120);
        }
    }
}

TEST_F(PlayerShipCannonTest, firesEvery120FramesWhileTheKeyIsHeld) {
    press(SDLK_SPACE);
    std::vector<int> frames;
    for (int frame = 0; frame < 400; ++frame) {
        ball1->visible = false;
        play(1);
        if (ball1->visible) {
            frames.push_back(frame);
        }
    }
    EXPECT_THAT(frames, testing::ElementsAre(0, 120, 240, 360));
}

class PlayerShipTeleportTest : public DuelTest {};

TEST_F(PlayerShipTeleportTest, jumpsThreeTimesAtLeast900FramesApart) {
    for (const int playerId : {1, 2}) {
        SCOPED_TRACE(playerId);
        press(playerId == 1 ? SDLK_z : SDLK_DELETE);
        std::vector<int> frames;
        for (int frame = 0; frame < 3000; ++frame) {
            const int before = ship(playerId)->teleportCounter;
            ship(playerId)->update(battle->world);
            if (ship(playerId)->teleportCounter != before) {
                frames.push_back(frame);
            }
        }
        EXPECT_THAT(frames, testing::ElementsAre(0, 900, 1800));
        EXPECT_EQ(ship(playerId)->teleportCounter, 0);
        EXPECT_EQ(ship(playerId)->teleportRecharge, 0);
    }
}

TEST_F(PlayerShipTeleportTest, firesFromWhereItLeavesInTheFrameOfAJump) {
    place(ship1, 900, 300);
    press(SDLK_TAB);
    press(SDLK_z);
    srandom(4);
    play(1);
    EXPECT_THAT(ball1->pos, isAt(940, 340));
    EXPECT_THAT(ship1->rect, isAt(100, 400));
    EXPECT_EQ(ship1->reloading, 299);
    EXPECT_EQ(ship1->maxReloading, 300);
    EXPECT_EQ(ship1->teleportRecharge, 899);
}

} // namespace
