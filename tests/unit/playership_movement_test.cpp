// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "playership.h"

#include <vector>

#include "duel.h"
#include "main.h"
#include "rects.h"

namespace {

class PlayerShipMovementTest : public DuelTest {};

TEST_F(PlayerShipMovementTest, neverMakesUpForDroppedFractions) {
    place(ship2, 600, 600, headingDownRight, 5);
    for (int frame = 0; frame < 100; ++frame) {
        ship2->move();
    }
    EXPECT_THAT(ship2->rect, isAt(900, 900));
    place(ship2, 600, 600, headingDown, 0.5);
    for (int frame = 0; frame < 100; ++frame) {
        ship2->move();
    }
    EXPECT_THAT(ship2->rect, isAt(600, 600));
}

TEST_F(PlayerShipMovementTest, returnsToTheWorldEvenAtRest) {
    place(ship1, 1250, 1260);
    ship1->move();
    EXPECT_THAT(ship1->rect, isAt(1200, 1200));
    place(ship1, -50, -1);
    ship1->move();
    EXPECT_THAT(ship1->rect, isAt(0, 0));
}

TEST_F(PlayerShipMovementTest, staysWithinTheSurfaceOfTheWorld) {
    SDL_FreeSurface(battle->world);
    battle->world = createSurface(500, 400);
    place(ship1, 398, 299, headingDownRight, 6);
    ship1->move();
    EXPECT_THAT(ship1->rect, isAt(400, 300));
}

TEST_F(PlayerShipMovementTest, aimsItsViewportAfterTheBorderHasHeldIt) {
    SDL_FreeSurface(battle->world);
    battle->world = createSurface(1600, 1300);
    battle->viewportSize = {0, 0, 40, 40};
    place(ship1, 1, 600, headingLeft, 6);
    ship1->move();
    EXPECT_THAT(battle->viewport1, isAt(30, 630));
}

TEST_F(PlayerShipMovementTest, aimsItsViewportBeforeABarrierHoldsIt) {
    addBarrier({500, 300, 50, 300});
    place(ship1, 400, 400, headingRight, 6);
    ship1->move();
    EXPECT_THAT(ship1->rect, isAt(400, 400));
    EXPECT_THAT(battle->viewport1, isAt(261, 205));
}

// Where a ship of 100 pixels comes to lie that sails 4 pixels right and 4 down from 400, 400.
struct Slide {
    const char* what;
    std::vector<SDL_Rect> barriers;
    int x;
    int y;
};

const Slide slides[] = {
    {"open sea", {}, 404, 404},
    {"a barrier that it comes to touch", {{504, 300, 50, 400}}, 404, 404},
    {"a barrier that it touches already", {{300, 300, 100, 400}}, 404, 404},
    {"a vertical edge", {{503, 300, 50, 400}}, 400, 404},
    {"a vertical edge that it touches", {{500, 300, 50, 400}}, 400, 404},
    {"a horizontal edge", {{300, 503, 400, 50}}, 404, 400},
    {"a horizontal edge that it touches", {{300, 500, 400, 50}}, 404, 400},
    {"a corner that points at it", {{502, 502, 50, 50}}, 400, 404},
    {"a corner into which it sails", {{502, 300, 50, 400}, {300, 502, 400, 50}}, 400, 400},
    {"a vertical edge and then a barrier below",
     {{502, 300, 50, 100}, {300, 504, 400, 50}},
     404,
     404},
    {"a vertical edge beside it and a barrier below",
     {{502, 400, 50, 50}, {400, 503, 50, 50}},
     400,
     400},
    {"a barrier in which it lies", {{350, 350, 200, 200}}, 400, 400},
};

TEST_F(PlayerShipMovementTest, slidesAlongBarriers) {
    for (const Slide& slide : slides) {
        SCOPED_TRACE(slide.what);
        battle->barriers.clear();
        for (const SDL_Rect rect : slide.barriers) {
            addBarrier(rect);
        }
        place(ship1, 400, 400, headingDownRight, 6);
        ship1->move();
        EXPECT_THAT(ship1->rect, isRect(slide.x, slide.y, 100, 100));
        EXPECT_EQ(ship1->velocity, 6);
        EXPECT_EQ(ship1->direction, headingDownRight);
    }
}

TEST_F(PlayerShipMovementTest, slidesUpAndLeftToo) {
    addBarrier({350, 200, 48, 400});
    place(ship1, 400, 400, headingUpLeft, 6);
    ship1->move();
    EXPECT_THAT(ship1->rect, isAt(400, 396));
    battle->barriers.clear();
    addBarrier({200, 350, 400, 48});
    place(ship1, 400, 400, headingUpLeft, 6);
    ship1->move();
    EXPECT_THAT(ship1->rect, isAt(396, 400));
}

TEST_F(PlayerShipMovementTest, slidesWithTheStepThatTheBorderHasLeft) {
    addBarrier({1100, 503, 200, 50});
    place(ship1, 1198, 400, headingDownRight, 6);
    ship1->move();
    EXPECT_THAT(ship1->rect, isAt(1200, 400));
}

TEST_F(PlayerShipMovementTest, testsItsWholeSquareAgainstBarriers) {
    // Far outside of the hit box of a ship that heads right.
    addBarrier({503, 495, 10, 10});
    place(ship1, 400, 400, headingRight, 6);
    ship1->move();
    EXPECT_THAT(ship1->rect, isAt(400, 400));
}

TEST_F(PlayerShipMovementTest, passesThroughTheOtherShip) {
    place(ship2, 450, 400);
    place(ship1, 400, 400, headingRight, 6);
    ship1->move();
    EXPECT_THAT(ship1->rect, isAt(406, 400));
    EXPECT_EQ(ship1->hp, 50);
    EXPECT_EQ(ship2->hp, 50);
}

} // namespace
