// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "gamehandler.h"

#include <memory>

#include "drawing.h"
#include "duel.h"
#include "gameover.h"
#include "main.h"
#include "pictures.h"
#include "rects.h"

namespace {

class GameHandlerFrameTest : public DuelTest {};

TEST_F(GameHandlerFrameTest, laysTheSeaInTheClipRectangleOfTheBackground) {
    SDL_Rect clip = {300, 200, 30, 40};
    SDL_SetClipRect(battle->background, &clip);
    fillAll(battle->world, red);
    play(1);
    EXPECT_EQ(firstOther(battle->world, clip, waterColour), "");
    EXPECT_EQ(countOf(battle->world, waterColour), 30 * 40);
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
