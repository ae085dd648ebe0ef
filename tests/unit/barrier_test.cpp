// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "barrier.h"

#include <csignal>
#include <cstdlib>
#include <memory>
#include <vector>

#include <sys/resource.h>

#include "duel.h"
#include "main.h"
#include "pictures.h"
#include "rects.h"

namespace {

class BarrierTest : public DuelTest {
protected:
    void TearDown() override {
        barriers.clear();
        DuelTest::TearDown();
    }

    Barrier* build(int type) {
        barriers.push_back(std::make_unique<Barrier>(battle.get(), type));
        return barriers.back().get();
    }

    std::vector<std::unique_ptr<Barrier>> barriers;
};

TEST_F(BarrierTest, mayTouchAnEarlierBarrier) {
    addBarrier({43, 966, 60, 60});
    addBarrier({163, 966, 60, 60});
    addBarrier({103, 906, 60, 60});
    addBarrier({103, 1026, 60, 60});
    srandom(1);
    EXPECT_THAT(build(2)->rect, isAt(103, 966));
    EXPECT_EQ(randomNumbersSince(1), 2);
}

TEST_F(BarrierTest, doesNotAvoidShips) {
    place(ship1, 100, 950);
    srandom(1);
    EXPECT_THAT(build(2)->rect, isAt(103, 966));
}

TEST_F(BarrierTest, takesTheSizeOfItsPictureAgainWhenItIsMoved) {
    Barrier* barrier = build(2);
    battle->barriers.clear();
    barrier->rect = {5, 5, 1, 2};
    srandom(1);
    barrier->relocate();
    EXPECT_THAT(barrier->rect, isRect(103, 966, 60, 60));
}

// The kernel kills the process once it has computed for a second.
void limitToOneSecond() {
    const rlimit limit = {1, 1};
    setrlimit(RLIMIT_CPU, &limit);
}

TEST_F(BarrierTest, neverFindsAPlaceOnceItIsListed) {
    Barrier* barrier = build(0);
    EXPECT_EXIT(
        {
            limitToOneSecond();
            barrier->relocate();
        },
        testing::KilledBySignal(SIGKILL), "");
}

TEST_F(BarrierTest, drawsItsWholePictureAtItsPlaceWhateverTheSizeOfItsRectangle) {
    Barrier* barrier = build(1);
    barrier->rect = {700, 800, 0, 0};
    fillAll(battle->world, waterColour);
    barrier->update(battle->world);
    EXPECT_EQ(firstOther(battle->world, {700, 800, 130, 100}, barrierColours[1]), "");
    EXPECT_EQ(countOf(battle->world, waterColour), 1300 * 1300 - 130 * 100);
    EXPECT_THAT(barrier->rect, isRect(700, 800, 130, 100));
}

TEST_F(BarrierTest, keepsTheSizeThatWasDrawn) {
    Barrier* barrier = build(1);
    barrier->rect = {1200, 1250, 130, 100};
    barrier->update(battle->world);
    EXPECT_THAT(barrier->rect, isRect(1200, 1250, 100, 50));
}

TEST_F(BarrierTest, drawsOntoTheGivenSurface) {
    Barrier* barrier = build(2);
    barrier->rect = {10, 20, 60, 60};
    fillAll(battle->world, waterColour);
    const OwnedSurface canvas(createSurface(100, 100));
    barrier->update(canvas.get());
    EXPECT_EQ(countOf(canvas.get(), barrierColours[2]), 60 * 60);
    EXPECT_EQ(firstOther(battle->world, {0, 0, 1300, 1300}, waterColour), "");
}

} // namespace
