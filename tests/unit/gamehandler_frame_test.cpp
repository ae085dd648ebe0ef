// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "gamehandler.h"

#include <memory>
#include <vector>

#include "drawing.h"
#include "duel.h"
#include "gameover.h"
#include "main.h"
#include "pictures.h"
#include "rects.h"

namespace {

class GameHandlerFrameTest : public DuelTest {};

TEST_F(GameHandlerFrameTest, updatesEveryObjectOnceInOrderOnTheWorld) {
    std::vector<int> updates;
    for (int i = 1; i <= 3; ++i) {
        battle->objects.push_back(new Probe([&updates, i, this](SDL_Surface* where) {
            updates.push_back(i);
            EXPECT_EQ(where, battle->world);
        }));
    }
    play(2);
    EXPECT_THAT(updates, testing::ElementsAre(1, 2, 3, 1, 2, 3));
}

TEST_F(GameHandlerFrameTest, laysTheEmptySeaBeforeAnyObject) {
    fillAll(battle->world, red);
    std::string found = "nothing";
    battle->objects.insert(battle->objects.begin(), new Probe([&](SDL_Surface* where) {
                               found = firstOther(where, {0, 0, 1300, 1300}, waterColour);
                           }));
    play(1);
    EXPECT_EQ(found, "");
}

TEST_F(GameHandlerFrameTest, laysTheSeaInTheClipRectangleOfTheBackground) {
    SDL_Rect clip = {300, 200, 30, 40};
    SDL_SetClipRect(battle->background, &clip);
    fillAll(battle->world, red);
    play(1);
    EXPECT_EQ(firstOther(battle->world, clip, waterColour), "");
    EXPECT_EQ(countOf(battle->world, waterColour), 30 * 40);
}

TEST_F(GameHandlerFrameTest, showsTheViewportsAfterAllObjects) {
    fillAll(screen, white);
    std::string found = "nothing";
    const auto look = [&](SDL_Surface*) { found = firstOther(screen, {0, 0, 800, 500}, white); };
    battle->objects.push_back(new Probe(look));
    play(1);
    EXPECT_EQ(found, "");
    EXPECT_EQ(pixel(screen, 5, 5), waterColour);
    EXPECT_EQ(pixel(screen, 405, 5), waterColour);
}

TEST_F(GameHandlerFrameTest, flipsOnceAtTheEndOfTheFrame) {
    OwnedSurface shown;
    FlipWatch flips([&shown] { shown = copyOf(screen); });
    play(1);
    EXPECT_EQ(flips.count, 1);
    EXPECT_EQ(difference(shown.get(), screen), "");
    EXPECT_EQ(pixel(shown.get(), 794, 494), waterColour);
    play(2);
    EXPECT_EQ(flips.count, 3);
}

TEST_F(GameHandlerFrameTest, showsEachViewportPixelForPixel) {
    battle->viewport1 = {200, 300, 0, 0};
    battle->viewport2 = {500, 600, 0, 0};
    SDL_Surface* sea = battle->background;
    fill(sea, {200, 300, 1, 1}, red);
    fill(sea, {589, 300, 1, 1}, green);
    fill(sea, {200, 789, 1, 1}, white);
    fill(sea, {589, 789, 1, 1}, black);
    fill(sea, {500, 600, 1, 1}, white);
    fill(sea, {889, 600, 1, 1}, black);
    fill(sea, {500, 1089, 1, 1}, red);
    fill(sea, {889, 1089, 1, 1}, green);
    play(1);
    EXPECT_EQ(pixel(screen, 5, 5), red);
    EXPECT_EQ(pixel(screen, 394, 5), green);
    EXPECT_EQ(pixel(screen, 5, 494), white);
    EXPECT_EQ(pixel(screen, 394, 494), black);
    EXPECT_EQ(pixel(screen, 405, 5), white);
    EXPECT_EQ(pixel(screen, 794, 5), black);
    EXPECT_EQ(pixel(screen, 405, 494), red);
    EXPECT_EQ(pixel(screen, 794, 494), green);
}

bool isInViewport(int x, int y) {
    return y >= 5 && y <= 494 && ((x >= 5 && x <= 394) || (x >= 405 && x <= 794));
}

TEST_F(GameHandlerFrameTest, leavesMarginGapAndStripAlone) {
    fillAll(screen, white);
    play(1);
    for (int y = 0; y < 500; ++y) {
        for (int x = 0; x < 800; ++x) {
            ASSERT_EQ(pixel(screen, x, y) == white, !isInViewport(x, y)) << x << ", " << y;
        }
    }
}

TEST_F(GameHandlerFrameTest, reestablishesTheSizesOfTheViewports) {
    battle->viewport1 = {200, 300, 17, 19};
    battle->viewport2 = {500, 600, 0, 1000};
    fillAll(screen, white);
    play(1);
    EXPECT_THAT(battle->viewport1, isRect(200, 300, 390, 490));
    EXPECT_THAT(battle->viewport2, isRect(500, 600, 390, 490));
    EXPECT_EQ(countOf(screen, white), 800 * 500 - 2 * 390 * 490);
}

TEST_F(GameHandlerFrameTest, reestablishesThePlaceOfTheRightViewport) {
    battle->viewport2Pos = {700, 300, 0, 0};
    fillAll(screen, white);
    play(1);
    EXPECT_THAT(battle->viewport2Pos, isAt(405, 5));
    EXPECT_EQ(pixel(screen, 405, 5), waterColour);
    EXPECT_EQ(pixel(screen, 795, 300), white);
}

TEST_F(GameHandlerFrameTest, showsTheLeftViewportWhereItsPlaceSays) {
    battle->viewport1Pos = {3, 8, 0, 0};
    fillAll(screen, white);
    play(1);
    EXPECT_EQ(pixel(screen, 3, 8), waterColour);
    EXPECT_EQ(pixel(screen, 3, 7), white);
    EXPECT_EQ(pixel(screen, 393, 8), white);
}

TEST_F(GameHandlerFrameTest, showsTheRightViewportOverTheLeftOne) {
    battle->viewport1Pos = {300, 5, 0, 0};
    battle->viewport1 = {200, 300, 0, 0};
    battle->viewport2 = {600, 300, 0, 0};
    fill(battle->background, {200, 300, 390, 490}, red);
    play(1);
    EXPECT_EQ(pixel(screen, 404, 100), red);
    EXPECT_EQ(pixel(screen, 405, 100), waterColour);
}

TEST_F(GameHandlerFrameTest, leavesTheViewportOfAShipAtRestAlone) {
    battle->viewport1 = {12, 34, 390, 490};
    battle->viewport2 = {56, 78, 390, 490};
    play(1);
    EXPECT_THAT(battle->viewport1, isAt(12, 34));
    EXPECT_THAT(battle->viewport2, isAt(56, 78));
}

TEST_F(GameHandlerFrameTest, drawsShipsOverCannonballsOverBarriers) {
    addBarrier({300, 300, 60, 60});
    place(ship1, 350, 350, headingRight);
    place(ship2, 400, 400, headingUp);
    ball1->show({340, 340, 20, 20}, {0, 0, 0, 0});
    play(1);
    EXPECT_EQ(pixel(battle->world, 320, 320), barrierColours[0]);
    EXPECT_EQ(pixel(battle->world, 345, 345), ballColour);
    EXPECT_EQ(pixel(battle->world, 355, 355), shipFrameColour(19));
    EXPECT_EQ(pixel(battle->world, 399, 399), shipFrameColour(19));
    EXPECT_EQ(pixel(battle->world, 400, 400), shipFrameColour(10));
    EXPECT_EQ(pixel(battle->world, 449, 449), shipFrameColour(10));
}

TEST_F(GameHandlerFrameTest, drawsAShipWhereItHasMovedTo) {
    place(ship1, 600, 600, headingRight, 6);
    press(SDLK_w);
    play(1);
    EXPECT_EQ(pixel(battle->world, 605, 650), waterColour);
    EXPECT_EQ(pixel(battle->world, 606, 600), shipFrameColour(19));
    EXPECT_EQ(pixel(battle->world, 705, 699), shipFrameColour(19));
    EXPECT_EQ(pixel(battle->world, 706, 650), waterColour);
    // The viewport went with it, so the ship stays in its middle.
    EXPECT_EQ(pixel(screen, 5 + 145, 5 + 195), shipFrameColour(19));
    EXPECT_EQ(pixel(screen, 5 + 144, 5 + 195), waterColour);
}

// Keeps the mode requested so far, because a later request of the frame replaces it.
void keepRequest(std::unique_ptr<ProgramMode>& kept) {
    kept.reset(newProgramMode);
}

TEST_F(GameHandlerFrameTest, namesPlayer1WhenBothSinkInOneFrame) {
    std::unique_ptr<ProgramMode> earlier;
    battle->objects.insert(battle->objects.begin() + 1,
                           new Probe([&](SDL_Surface*) { keepRequest(earlier); }));
    ship1->hp = 5;
    ship2->hp = 5;
    ball1->show({1040, 1040, 20, 20}, {0, 0, 0, 0});
    ball2->show({140, 140, 20, 20}, {0, 0, 0, 0});
    play(1);
    const auto* first = dynamic_cast<GameOver*>(earlier.get());
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->defeatedPlayer, 2);
    const auto* last = dynamic_cast<GameOver*>(newProgramMode);
    ASSERT_NE(last, nullptr);
    EXPECT_EQ(last->defeatedPlayer, 1);
}

TEST_F(GameHandlerFrameTest, prefersTheEndOfTheBattleToEscape) {
    SDL_Event event = keyDown(SDLK_ESCAPE);
    battle->event(&event);
    std::unique_ptr<ProgramMode> menu(newProgramMode);
    ship2->hp = 5;
    ball1->show({1040, 1040, 20, 20}, {0, 0, 0, 0});
    play(1);
    EXPECT_NE(newProgramMode, menu.get());
    const auto* gameOver = dynamic_cast<GameOver*>(newProgramMode);
    ASSERT_NE(gameOver, nullptr);
    EXPECT_EQ(gameOver->defeatedPlayer, 2);
}

TEST_F(GameHandlerFrameTest, finishesTheFrameInWhichAShipSinks) {
    place(ship2, 600, 600, headingRight, 5);
    press(SDLK_UP);
    ship2->hp = 5;
    ball1->show({640, 640, 20, 20}, {0, 0, 0, 0});
    FlipWatch flips;
    play(1);
    EXPECT_NE(newProgramMode, nullptr);
    EXPECT_EQ(flips.count, 1);
    EXPECT_THAT(ship2->rect, isAt(605, 600));
    EXPECT_EQ(pixel(battle->world, 704, 650), shipFrameColour(19));
    EXPECT_EQ(firstOther(screen, {404, 578, 396, 22}, black), "");
}

} // namespace
