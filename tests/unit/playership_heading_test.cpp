// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "playership.h"

#include <cmath>

#include "duel.h"
#include "main.h"
#include "pictures.h"
#include "rects.h"

namespace {

const int noPhase = -1;

class PlayerShipHeadingTest : public DuelTest {
protected:
    void SetUp() override {
        DuelTest::SetUp();
        place(ship1, 0, 0);
        canvas.reset(createSurface(100, 100));
    }

    // The phase of a heading, as the frame of the sheet tells that is drawn in full.
    int phaseOf(double direction) {
        ship1->direction = direction;
        fillAll(canvas.get(), waterColour);
        ship1->update(canvas.get());
        for (int phase = 0; phase < 36; ++phase) {
            if (firstOther(canvas.get(), {0, 0, 100, 100}, shipFrameColour(phase)).empty()) {
                return phase;
            }
        }
        return noPhase;
    }

    OwnedSurface canvas;
};

// A heading near the middle of each phase.
const double headings[] = {4.82, 4.65,  4.47,  4.3,   4.13,  3.95,  3.78,  3.6,   3.43,
                           3.25, 3.08,  2.9,   2.73,  2.56,  2.38,  2.21,  2.03,  1.86,
                           1.68, 1.51,  1.33,  1.16,  0.98,  0.81,  0.64,  0.46,  0.29,
                           0.11, -0.06, -0.24, -0.41, -0.59, -0.76, -0.93, -1.11, -1.28};

TEST_F(PlayerShipHeadingTest, hasAPhaseForEachThirtySixthOfATurn) {
    for (int phase = 0; phase < 36; ++phase) {
        EXPECT_EQ(phaseOf(headings[phase]), phase) << headings[phase];
    }
}

TEST_F(PlayerShipHeadingTest, hasTheSameHitBoxesForBothPlayers) {
    place(ship2, 400, 300, 2.56);
    EXPECT_THAT(ship2->myCollisionRect(), isRect(413, 308, 75, 85));
}

TEST_F(PlayerShipHeadingTest, halvesShipAndHitBoxEachByItself) {
    place(ship1, 400, 300, 4.65);
    ship1->rect.w = 99;
    ship1->rect.h = 97;
    EXPECT_THAT(ship1->myCollisionRect(), isRect(402, 323, 95, 50));
}

struct Phase {
    double direction;
    int phase;
};

const Phase farPhases[] = {
    // Exactly along the axes, a ship has the phase next to the one that is drawn along the axis.
    {headingLeft, 1},
    {headingUp, 10},
    {headingRight, 19},
    {headingDown, 28},
    // The same headings, reached by the other turn.
    {-1.5707963267948966, 1},
    {-3.141592653589793, 10},
    {6.283185307179586, 28},
    // The border between the last phase and the first.
    {4.911, 0},
    {4.9109, 0},
    {4.9111, 35},
    {-1.3709, 35},
    {-1.3711, 0},
    // Ten turns of 6.282 either way.
    {64.5, 18},
    {1.68, 18},
    {-61.14, 18},
    // After 148 true turns the phase has crept on by one.
    {931.5914254625787, 17},
    {-928.2314254625788, 19},
    {100, 31},
    {-100, 25},
    {1000, 21},
    {-1000, 34},
    {12345.6, 19},
    {-12345.6, 0},
};

TEST_F(PlayerShipHeadingTest, takesHeadingsOfAnySize) {
    for (const Phase& far : farPhases) {
        EXPECT_EQ(phaseOf(far.direction), far.phase) << far.direction;
    }
}

TEST_F(PlayerShipHeadingTest, hasAPhaseAtEveryHeadingNearTheLastBorder) {
    for (int turn = -20; turn <= 20; ++turn) {
        double direction = 4.911 + 6.282 * turn;
        for (int i = 0; i < 20; ++i) {
            direction = std::nextafter(direction, -1000.0);
        }
        for (int i = 0; i < 40; ++i) {
            EXPECT_THAT(phaseOf(direction), testing::AnyOf(0, 35)) << turn << ", " << i;
            direction = std::nextafter(direction, 1000.0);
        }
    }
}

} // namespace
