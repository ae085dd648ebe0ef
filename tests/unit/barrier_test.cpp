// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "barrier.h"

#include <csignal>
#include <cstdlib>
#include <memory>
#include <set>
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

    void setWorldSize(int w, int h) {
        SDL_FreeSurface(battle->world);
        battle->world = createSurface(w, h);
    }

    std::vector<std::unique_ptr<Barrier>> barriers;
};

TEST_F(BarrierTest, takesThePictureOfItsTypeFromThePool) {
    const char* pictures[] = {"prekazka1.png", "prekazka2.png", "prekazka3.png"};
    for (int type = 0; type <= 2; ++type) {
        SCOPED_TRACE(type);
        const Barrier* barrier = build(type);
        EXPECT_EQ(barrier->image, imagePool[pictures[type]]);
        EXPECT_EQ(barrier->type, type);
        EXPECT_EQ(barrier->handler, battle.get());
    }
}

TEST_F(BarrierTest, joinsTheBarriersOfTheBattleButNotItsObjects) {
    Barrier* first = build(0);
    Barrier* second = build(2);
    EXPECT_THAT(battle->barriers, testing::ElementsAre(first, second));
    EXPECT_EQ(battle->objects.size(), 4U);
}

TEST_F(BarrierTest, picksXBeforeYWithinTheWorldLessItsSize) {
    // The generator seeded with 1 starts with 1804289383 and 846930886.
    const int places[][2] = {{343, 326}, {793, 886}, {103, 966}};
    for (int type = 0; type <= 2; ++type) {
        SCOPED_TRACE(type);
        battle->barriers.clear();
        srandom(1);
        const Barrier* barrier = build(type);
        EXPECT_THAT(barrier->rect, isAt(places[type][0], places[type][1]));
        EXPECT_EQ(randomNumbersSince(1), 2);
    }
}

TEST_F(BarrierTest, leavesTheLastColumnAndRowFree) {
    setWorldSize(62, 63);
    std::set<int> columns;
    std::set<int> rows;
    for (int i = 0; i < 200; ++i) {
        const Barrier* barrier = build(2);
        columns.insert(barrier->rect.x);
        rows.insert(barrier->rect.y);
        battle->barriers.clear();
    }
    EXPECT_THAT(columns, testing::ElementsAre(0, 1));
    EXPECT_THAT(rows, testing::ElementsAre(0, 1, 2));
}

TEST_F(BarrierTest, picksAgainWhereAnEarlierBarrierStands) {
    // Seed 1 gives a rock the places 103, 966, then 1057, 875, then 1073, 855.
    addBarrier({100, 960, 10, 10});
    addBarrier({1057, 920, 10, 10});
    srandom(1);
    EXPECT_THAT(build(2)->rect, isAt(1073, 855));
    EXPECT_EQ(randomNumbersSince(1), 6);
}

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
