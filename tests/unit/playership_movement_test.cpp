// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "playership.h"

#include <vector>

#include "duel.h"
#include "main.h"
#include "rects.h"

namespace {

class PlayerShipMovementTest : public DuelTest {};

struct Step {
    double direction;
    double velocity;
    int dx;
    int dy;
};

const Step steps[] = {
    {headingDown, 6, 0, 6},
    {headingRight, 6, 6, 0},
    {headingUp, 5, 0, -5},
    {headingLeft, 5, -5, 0},
    // Diagonally: 4.24 and 3.54, towards zero on either side.
    {headingDownRight, 6, 4, 4},
    {headingUpLeft, 6, -4, -4},
    {headingDownRight, 5, 3, 3},
    {headingUpLeft, 5, -3, -3},
    // Slowly, and a little off the axis.
    {headingDown, 0.5, 0, 0},
    {headingDown, 1.5, 0, 1},
    {0.1, 1, 0, 0},
    {0.2, 6, 1, 5},
};

TEST_F(PlayerShipMovementTest, goesWholePixelsTowardsZero) {
    for (const Step& step : steps) {
        place(ship1, 600, 600, step.direction, step.velocity);
        ship1->move();
        EXPECT_THAT(ship1->rect, isRect(600 + step.dx, 600 + step.dy, 100, 100))
            << step.direction << " at " << step.velocity;
    }
}

TEST_F(PlayerShipMovementTest, keepsHeadingAndSpeed) {
    place(ship1, 600, 600, 1.1, 4.5);
    ship1->move();
    EXPECT_EQ(ship1->direction, 1.1);
    EXPECT_EQ(ship1->velocity, 4.5);
}

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

TEST_F(PlayerShipMovementTest, sails36PixelsWhilePlayer1Accelerates) {
    place(ship1, 600, 600);
    press(SDLK_w);
    play(12);
    EXPECT_EQ(ship1->velocity, 6);
    EXPECT_THAT(ship1->rect, isAt(600, 636));
}

TEST_F(PlayerShipMovementTest, sails25PixelsWhilePlayer2Accelerates) {
    place(ship2, 600, 600);
    press(SDLK_UP);
    play(10);
    EXPECT_EQ(ship2->velocity, 5);
    EXPECT_THAT(ship2->rect, isAt(600, 625));
}

TEST_F(PlayerShipMovementTest, coastsForAnother30Pixels) {
    place(ship1, 600, 600, headingDown, 6);
    play(12);
    EXPECT_EQ(ship1->velocity, 0);
    EXPECT_THAT(ship1->rect, isAt(600, 630));
}

// A step of 6 pixels, or of 4 on each axis, near the border of the world.
struct BorderStep {
    const char* what;
    int x;
    int y;
    double direction;
    int endX;
    int endY;
};

const BorderStep borderSteps[] = {
    {"right, to the border", 1194, 600, headingRight, 1200, 600},
    {"right, past the border", 1195, 600, headingRight, 1200, 600},
    {"left, past the border", 5, 600, headingLeft, 0, 600},
    {"down, past the border", 600, 1197, headingDown, 600, 1200},
    {"up, past the border", 600, 3, headingUp, 600, 0},
    {"along the right border", 1200, 600, headingDownRight, 1200, 604},
    {"along the upper border", 600, 0, headingUpLeft, 596, 0},
    {"into the lower right corner", 1199, 1199, headingDownRight, 1200, 1200},
    {"into the upper left corner", 1, 1, headingUpLeft, 0, 0},
};

TEST_F(PlayerShipMovementTest, staysWithinTheWorld) {
    for (const BorderStep& step : borderSteps) {
        place(ship1, step.x, step.y, step.direction, 6);
        ship1->move();
        EXPECT_THAT(ship1->rect, isRect(step.endX, step.endY, 100, 100)) << step.what;
        EXPECT_EQ(ship1->velocity, 6) << step.what;
    }
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

TEST_F(PlayerShipMovementTest, leavesTheViewportAloneAtRest) {
    battle->viewport1 = {1, 2, 390, 490};
    place(ship1, 600, 600);
    ship1->move();
    EXPECT_THAT(battle->viewport1, isAt(1, 2));
}

TEST_F(PlayerShipMovementTest, takesItsViewportAlong) {
    battle->viewport1 = {1, 2, 390, 490};
    battle->viewport2 = {3, 4, 390, 490};
    place(ship1, 600, 600, headingRight, 6);
    ship1->move();
    EXPECT_THAT(battle->viewport1, isAt(461, 405));
    EXPECT_THAT(battle->viewport2, isAt(3, 4));
    place(ship2, 600, 600, headingRight, 5);
    ship2->move();
    EXPECT_THAT(battle->viewport1, isAt(461, 405));
    EXPECT_THAT(battle->viewport2, isAt(460, 405));
}

TEST_F(PlayerShipMovementTest, aimsItsViewportEvenTooSlowToMove) {
    battle->viewport1 = {1, 2, 390, 490};
    place(ship1, 600, 600, headingRight, 0.5);
    ship1->move();
    EXPECT_THAT(ship1->rect, isAt(600, 600));
    EXPECT_THAT(battle->viewport1, isAt(455, 405));
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

TEST_F(PlayerShipMovementTest, goesOnSlidingFrameByFrame) {
    addBarrier({500, 300, 50, 400});
    place(ship1, 400, 400, headingDownRight, 6);
    for (int frame = 0; frame < 20; ++frame) {
        ship1->move();
    }
    EXPECT_THAT(ship1->rect, isAt(400, 480));
    EXPECT_EQ(ship1->velocity, 6);
}

TEST_F(PlayerShipMovementTest, losesAWholeStepBeforeABarrierAhead) {
    // Nothing takes it the last pixels: a blocked step is not shortened.
    addBarrier({503, 300, 50, 400});
    place(ship1, 400, 400, headingRight, 6);
    ship1->move();
    EXPECT_THAT(ship1->rect, isAt(400, 400));
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
