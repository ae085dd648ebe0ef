// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "gameover.h"

#include <vector>

#include "flips.h"
#include "main.h"
#include "music.h"
#include "pictures.h"
#include "textscreen.h"

namespace {

const std::vector<TextLine> firstPlayerWins = {
    {-1, "Game over."}, {0, "Player 1 won."}, {1, "Press Escape to return to main menu."}};
const std::vector<TextLine> secondPlayerWins = {
    {-1, "Game over."}, {0, "Player 2 won."}, {1, "Press Escape to return to main menu."}};

class GameOverTest : public TextScreenTest {
protected:
    // Whether the event leaves the screen.
    bool leavesOn(SDL_Event event) {
        gameOver.event(&event);
        return takeMenuRequest();
    }

    GameOver gameOver = GameOver(2);
};

TEST_F(GameOverTest, remembersWhoLost) {
    EXPECT_EQ(GameOver(1).defeatedPlayer, 1);
    EXPECT_EQ(GameOver(2).defeatedPlayer, 2);
    EXPECT_EQ(GameOver(0).defeatedPlayer, 0);
}

TEST_F(GameOverTest, namesTheFirstPlayerWhenTheSecondLost) {
    GameOver(2).activate();
    EXPECT_EQ(differenceFrom(firstPlayerWins), "");
}

TEST_F(GameOverTest, namesTheSecondPlayerWhenTheFirstLost) {
    GameOver(1).activate();
    EXPECT_EQ(differenceFrom(secondPlayerWins), "");
}

TEST_F(GameOverTest, namesTheSecondPlayerForAnyOtherLoser) {
    for (int loser : {0, 3, -1, -2}) {
        SCOPED_TRACE(loser);
        GameOver(loser).activate();
        EXPECT_EQ(differenceFrom(secondPlayerWins), "");
    }
}

TEST_F(GameOverTest, showsNothingUntilItIsActivated) {
    const FlipWatch watch;
    const GameOver another(1);
    EXPECT_EQ(watch.count, 0);
    EXPECT_EQ(pixel(screen, 0, 0), red);
}

TEST_F(GameOverTest, flipsTheFinishedPictureOnce) {
    std::string atFlip = "no flip";
    const FlipWatch watch([this, &atFlip] { atFlip = differenceFrom(firstPlayerWins); });
    gameOver.activate();
    EXPECT_EQ(watch.count, 1);
    EXPECT_EQ(atFlip, "");
}

TEST_F(GameOverTest, drawsNothingAfterItsActivation) {
    gameOver.activate();
    fillAll(screen, red);
    const OwnedSurface before = copyOf(screen);
    const FlipWatch watch;
    gameOver.update();
    gameOver.cleanUp();
    EXPECT_FALSE(leavesOn(keyDown(SDLK_RETURN)));
    EXPECT_EQ(watch.count, 0);
    EXPECT_EQ(difference(before.get(), screen), "");
}

TEST_F(GameOverTest, blackensOnlyTheClipRectangle) {
    const SDL_Rect clip = {0, 0, 10, 20};
    SDL_SetClipRect(screen, &clip);
    gameOver.activate();
    EXPECT_EQ(pixel(screen, 9, 19), black);
    EXPECT_EQ(pixel(screen, 10, 19), red);
    EXPECT_EQ(pixel(screen, 9, 20), red);
}

TEST_F(GameOverTest, leavesTheMusicAlone) {
    haveSound = true;
    Music::play(3);
    gameOver.activate();
    EXPECT_EQ(Music::current(), 3);
}

TEST_F(GameOverTest, isLeftByEscape) {
    EXPECT_TRUE(leavesOn(keyDown(SDLK_ESCAPE)));
    EXPECT_TRUE(running);
}

TEST_F(GameOverTest, isLeftByNoOtherKey) {
    for (int code = 0; code < SDLK_LAST; ++code) {
        if (code != SDLK_ESCAPE) {
            EXPECT_FALSE(leavesOn(keyDown(static_cast<SDLKey>(code)))) << code;
        }
    }
    EXPECT_TRUE(running);
}

TEST_F(GameOverTest, isLeftByNoKeyRelease) {
    for (int code = 0; code < SDLK_LAST; ++code) {
        EXPECT_FALSE(leavesOn(keyUp(static_cast<SDLKey>(code)))) << code;
    }
}

TEST_F(GameOverTest, ignoresTheMouse) {
    for (int button = 1; button <= 7; ++button) {
        EXPECT_FALSE(leavesOn(mouseDown(button))) << button;
        EXPECT_FALSE(leavesOn(mouseUp(button))) << button;
    }
    EXPECT_FALSE(leavesOn(mouseMotion(400, 300)));
}

// The code of Escape, where another kind of event keeps something else.
TEST_F(GameOverTest, ignoresEventsThatOnlyCarryTheCodeOfEscape) {
    for (int type : {SDL_ACTIVEEVENT, SDL_JOYBUTTONUP, SDL_QUIT, SDL_VIDEOEXPOSE, SDL_USEREVENT}) {
        SDL_Event event = keyDown(SDLK_ESCAPE);
        event.type = static_cast<Uint8>(type);
        EXPECT_FALSE(leavesOn(event)) << type;
    }
    EXPECT_TRUE(running);
}

TEST_F(GameOverTest, keepsTheLatestRequestOfAFrame) {
    SDL_Event escape = keyDown(SDLK_ESCAPE);
    gameOver.event(&escape);
    ProgramMode* first = newProgramMode;
    gameOver.event(&escape);
    ASSERT_NE(newProgramMode, first);
    EXPECT_TRUE(takeMenuRequest());
    delete first;
}

} // namespace
