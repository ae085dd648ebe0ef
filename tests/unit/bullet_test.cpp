// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "bullet.h"

#include "duel.h"
#include "main.h"
#include "pictures.h"
#include "rects.h"

namespace {

class BulletTest : public DuelTest {
protected:
    // One frame of a cannonball alone, on a world of plain water.
    void fly(Bullet* ball) {
        fillAll(battle->world, waterColour);
        ball->update(battle->world);
    }
};

TEST_F(BulletTest, isAsFastAsTheTypeOfTheShip) {
    EXPECT_EQ(Bullet(battle.get(), 1).type, 0);
    EXPECT_EQ(Bullet(battle.get(), 1).speed, 6);
    EXPECT_EQ(Bullet(battle.get(), 2).type, 1);
    EXPECT_EQ(Bullet(battle.get(), 2).speed, 7);
    battle->shipType1 = 1;
    battle->shipType2 = 0;
    EXPECT_EQ(Bullet(battle.get(), 1).type, 1);
    EXPECT_EQ(Bullet(battle.get(), 1).speed, 7);
    EXPECT_EQ(Bullet(battle.get(), 2).type, 0);
    EXPECT_EQ(Bullet(battle.get(), 2).speed, 6);
}

TEST_F(BulletTest, takesEveryOtherPlayerForPlayer2) {
    Bullet fresh(battle.get(), 3);
    fresh.shipsWereInitialized();
    EXPECT_EQ(fresh.type, 1);
    EXPECT_EQ(fresh.myPlayerShip, ship2);
    EXPECT_EQ(fresh.otherPlayerShip, ship1);
}

TEST_F(BulletTest, takesOnlyPlacesAndStepsWhenLaunched) {
    ball1->velocity = {0, 0, 8, 9};
    ball1->show({300, 400, 1, 2}, {-3, 5, 6, 7});
    EXPECT_THAT(ball1->pos, isRect(300, 400, 20, 20));
    EXPECT_THAT(ball1->velocity, isRect(-3, 5, 8, 9));
    EXPECT_TRUE(ball1->visible);
}

TEST_F(BulletTest, takesTheSizeOfTheBallWhenLaunched) {
    ball1->size = {0, 0, 31, 32};
    ball1->show({300, 400, 1, 2}, {0, 0, 0, 0});
    EXPECT_THAT(ball1->pos, isRect(300, 400, 31, 32));
}

TEST_F(BulletTest, testsNothingWhenLaunched) {
    ball1->show({1040, 1040, 20, 20}, {0, 0, 0, 0});
    EXPECT_EQ(ship2->hp, 50);
    ball1->show({-100, 5000, 20, 20}, {0, 0, 0, 0});
    EXPECT_TRUE(ball1->visible);
}

// A flight of one frame near the border of the world.
struct Border {
    const char* what;
    SDL_Rect from;
    SDL_Rect step;
    bool staysInFlight;
};

const Border borders[] = {
    {"to the left column", {6, 600, 20, 20}, {-6, 0, 0, 0}, true},
    {"past the left column", {5, 600, 20, 20}, {-6, 0, 0, 0}, false},
    {"to the top row", {600, 6, 20, 20}, {0, -6, 0, 0}, true},
    {"past the top row", {600, 5, 20, 20}, {0, -6, 0, 0}, false},
    {"to the right column", {1293, 600, 20, 20}, {6, 0, 0, 0}, true},
    {"past the right column", {1294, 600, 20, 20}, {6, 0, 0, 0}, false},
    {"to the bottom row", {600, 1293, 20, 20}, {0, 6, 0, 0}, true},
    {"past the bottom row", {600, 1294, 20, 20}, {0, 6, 0, 0}, false},
    {"to the last corner", {1290, 1290, 20, 20}, {9, 9, 0, 0}, true},
    {"past the last corner", {1290, 1290, 20, 20}, {9, 10, 0, 0}, false},
};

TEST_F(BulletTest, restsWhenItsCornerLeavesTheWorld) {
    for (const Border& border : borders) {
        SCOPED_TRACE(border.what);
        ball1->show(border.from, border.step);
        fly(ball1);
        EXPECT_EQ(ball1->visible, border.staysInFlight);
        EXPECT_EQ(countOf(battle->world, ballColour) > 0, border.staysInFlight);
    }
}

TEST_F(BulletTest, leavesTheWorldOfTheBattleWhateverItIsDrawnOnto) {
    const OwnedSurface canvas(createSurface(100, 100));
    ball1->show({600, 600, 20, 20}, {0, 0, 0, 0});
    ball1->update(canvas.get());
    EXPECT_TRUE(ball1->visible);
}

TEST_F(BulletTest, hitsTheOtherShip) {
    ball1->show({1030, 1030, 20, 20}, {6, 0, 0, 0});
    fly(ball1);
    EXPECT_EQ(ship2->hp, 45);
    EXPECT_FALSE(ball1->visible);
    EXPECT_EQ(ship1->hp, 50);
    ball2->show({140, 140, 20, 20}, {0, 0, 0, 0});
    fly(ball2);
    EXPECT_EQ(ship1->hp, 45);
    EXPECT_EQ(ship2->hp, 45);
}

TEST_F(BulletTest, hitsTheHitBoxAndNotTheWholeShip) {
    // Heading left, the ship is hit between y 1030 and 1069.
    ship2->direction = 4.82;
    ball1->show({1040, 1009, 20, 20}, {0, 1, 0, 0});
    fly(ball1);
    EXPECT_TRUE(ball1->visible) << "touches only";
    fly(ball1);
    EXPECT_FALSE(ball1->visible);
    EXPECT_EQ(ship2->hp, 45);
}

TEST_F(BulletTest, leavesTheWorldBeforeItCanHit) {
    place(ship2, 0, 600, headingLeft);
    ball1->show({5, 640, 20, 20}, {-6, 0, 0, 0});
    fly(ball1);
    EXPECT_FALSE(ball1->visible);
    EXPECT_EQ(ship2->hp, 50);
}

TEST_F(BulletTest, fliesOverBarriers) {
    addBarrier({400, 400, 100, 100});
    ball1->show({380, 440, 20, 20}, {6, 0, 0, 0});
    play(10);
    EXPECT_THAT(ball1->pos, isRect(440, 440, 20, 20));
    EXPECT_TRUE(ball1->visible);
    EXPECT_EQ(firstOther(battle->world, {440, 440, 20, 20}, ballColour), "");
    EXPECT_EQ(pixel(battle->world, 439, 450), barrierColours[0]);
}

TEST_F(BulletTest, fliesOverTheOtherCannonball) {
    ball1->show({400, 400, 20, 20}, {6, 0, 0, 0});
    ball2->show({460, 400, 20, 20}, {-6, 0, 0, 0});
    play(10);
    EXPECT_TRUE(ball1->visible);
    EXPECT_TRUE(ball2->visible);
    EXPECT_THAT(ball1->pos, isAt(460, 400));
    EXPECT_THAT(ball2->pos, isAt(400, 400));
}

TEST_F(BulletTest, missesWithThePartThatWasCut) {
    place(ship2, 1000, 1200, 4.82); // hit between y 1230 and 1269
    ball1->show({1040, 1295, 0, 0}, {0, 0, 0, 0});
    fly(ball1);
    EXPECT_THAT(ball1->pos, isRect(1040, 1295, 20, 5));
    ball1->velocity = {0, -70, 0, 0};
    fly(ball1);
    EXPECT_TRUE(ball1->visible) << "at y 1225 the part drawn before reaches to y 1229";
    EXPECT_EQ(ship2->hp, 50);
    EXPECT_THAT(ball1->pos, isRect(1040, 1225, 20, 20));
    ball1->velocity = {0, 0, 0, 0};
    fly(ball1);
    EXPECT_FALSE(ball1->visible) << "drawn whole, it reaches to y 1244";
}

} // namespace
