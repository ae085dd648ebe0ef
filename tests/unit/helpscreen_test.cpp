// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "helpscreen.h"

#include <vector>

#include "flips.h"
#include "main.h"
#include "music.h"
#include "pictures.h"
#include "textscreen.h"

namespace {

const std::vector<TextLine> wholeScreen = {
    {-4, "Morvane:"},
    {-2, "Player 1 (left): slower projectile, faster ship"},
    {-1, "WASD = move, Tab/Space = shoot, Z = teleport"},
    {0, "Player 2 (right): faster projectile, slower ship"},
    {1, "Arrows = move, Enter = shoot, Delete = teleport"},
    {3, "Enjoy!"},
};

class HelpScreenTest : public TextScreenTest {
protected:
    // Whether the event leaves the screen.
    bool leavesOn(SDL_Event event) {
        help.event(&event);
        return takeMenuRequest();
    }

    HelpScreen help;
};

TEST_F(HelpScreenTest, showsTheControlsOfBothPlayers) {
    help.activate();
    EXPECT_EQ(differenceFrom(wholeScreen), "");
}

TEST_F(HelpScreenTest, showsNothingUntilItIsActivated) {
    const FlipWatch watch;
    const HelpScreen another;
    EXPECT_EQ(watch.count, 0);
    EXPECT_EQ(pixel(screen, 0, 0), red);
}

TEST_F(HelpScreenTest, flipsTheFinishedPictureOnce) {
    std::string atFlip = "no flip";
    const FlipWatch watch([this, &atFlip] { atFlip = differenceFrom(wholeScreen); });
    help.activate();
    EXPECT_EQ(watch.count, 1);
    EXPECT_EQ(atFlip, "");
}

TEST_F(HelpScreenTest, drawsNothingAfterItsActivation) {
    help.activate();
    fillAll(screen, red);
    const OwnedSurface before = copyOf(screen);
    const FlipWatch watch;
    help.update();
    help.cleanUp();
    EXPECT_TRUE(leavesOn(keyDown(SDLK_RETURN)));
    EXPECT_EQ(watch.count, 0);
    EXPECT_EQ(difference(before.get(), screen), "");
}

TEST_F(HelpScreenTest, blackensOnlyTheClipRectangle) {
    const SDL_Rect clip = {0, 0, 10, 20};
    SDL_SetClipRect(screen, &clip);
    help.activate();
    EXPECT_EQ(pixel(screen, 9, 19), black);
    EXPECT_EQ(pixel(screen, 10, 19), red);
    EXPECT_EQ(pixel(screen, 9, 20), red);
}

TEST_F(HelpScreenTest, leavesTheMusicAlone) {
    haveSound = true;
    Music::play(2);
    help.activate();
    EXPECT_EQ(Music::current(), 2);
}

TEST_F(HelpScreenTest, isLeftByEscapeReturnOrSpace) {
    EXPECT_TRUE(leavesOn(keyDown(SDLK_ESCAPE)));
    EXPECT_TRUE(leavesOn(keyDown(SDLK_RETURN)));
    EXPECT_TRUE(leavesOn(keyDown(SDLK_SPACE)));
    EXPECT_TRUE(running);
}

TEST_F(HelpScreenTest, isLeftByNoOtherKey) {
    for (int code = 0; code < SDLK_LAST; ++code) {
        if (code != SDLK_ESCAPE && code != SDLK_RETURN && code != SDLK_SPACE) {
            EXPECT_FALSE(leavesOn(keyDown(static_cast<SDLKey>(code)))) << code;
        }
    }
    EXPECT_TRUE(running);
}

TEST_F(HelpScreenTest, isLeftByNoKeyRelease) {
    for (int code = 0; code < SDLK_LAST; ++code) {
        EXPECT_FALSE(leavesOn(keyUp(static_cast<SDLKey>(code)))) << code;
    }
}

TEST_F(HelpScreenTest, isLeftByTheReleaseOfAnyMouseButtonButNotItsPress) {
    for (int button = 1; button <= 7; ++button) {
        EXPECT_FALSE(leavesOn(mouseDown(button))) << button;
        EXPECT_TRUE(leavesOn(mouseUp(button))) << button;
    }
    EXPECT_TRUE(running);
}

// The code of Escape, where another kind of event keeps something else.
TEST_F(HelpScreenTest, ignoresAllOtherEvents) {
    for (int type : {SDL_ACTIVEEVENT, SDL_MOUSEMOTION, SDL_JOYBUTTONUP, SDL_QUIT, SDL_VIDEOEXPOSE,
                     SDL_USEREVENT}) {
        SDL_Event event = keyDown(SDLK_ESCAPE);
        event.type = static_cast<Uint8>(type);
        EXPECT_FALSE(leavesOn(event)) << type;
    }
    EXPECT_TRUE(running);
}

TEST_F(HelpScreenTest, keepsTheLatestRequestOfAFrame) {
    SDL_Event escape = keyDown(SDLK_ESCAPE);
    SDL_Event click = mouseUp(SDL_BUTTON_LEFT);
    help.event(&escape);
    ProgramMode* first = newProgramMode;
    help.event(&click);
    ASSERT_NE(newProgramMode, first);
    EXPECT_TRUE(takeMenuRequest());
    delete first;
}

// Shared with the credits.
TEST_F(HelpScreenTest, tellsWhichEventsLeaveATextScreen) {
    EXPECT_TRUE(leavesTextScreen(keyDown(SDLK_SPACE)));
    EXPECT_TRUE(leavesTextScreen(mouseUp(SDL_BUTTON_WHEELDOWN)));
    EXPECT_FALSE(leavesTextScreen(keyUp(SDLK_SPACE)));
    EXPECT_FALSE(leavesTextScreen(keyDown(SDLK_KP_ENTER)));
    EXPECT_EQ(newProgramMode, nullptr);
}

} // namespace
