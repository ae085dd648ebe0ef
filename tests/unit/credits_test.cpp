// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "credits.h"

#include <vector>

#include "flips.h"
#include "main.h"
#include "music.h"
#include "pictures.h"
#include "textscreen.h"

namespace {

const std::vector<TextLine> wholeScreen = {
    {-2, "This program was made by:"},
    {0, "Brannoc workshop: code"},
    {1, "Brannoc workshop: pictures"},
    {2, "Brannoc workshop: music"},
};

class CreditsTest : public TextScreenTest {
protected:
    // Whether the event leaves the screen.
    bool leavesOn(SDL_Event event) {
        credits.event(&event);
        return takeMenuRequest();
    }

    Credits credits;
};

TEST_F(CreditsTest, namesTheMakers) {
    credits.activate();
    EXPECT_EQ(differenceFrom(wholeScreen), "");
}

TEST_F(CreditsTest, showsNothingUntilItIsActivated) {
    const FlipWatch watch;
    const Credits another;
    EXPECT_EQ(watch.count, 0);
    EXPECT_EQ(pixel(screen, 0, 0), red);
}

TEST_F(CreditsTest, flipsTheFinishedPictureOnce) {
    std::string atFlip = "no flip";
    const FlipWatch watch([this, &atFlip] { atFlip = differenceFrom(wholeScreen); });
    credits.activate();
    EXPECT_EQ(watch.count, 1);
    EXPECT_EQ(atFlip, "");
}

TEST_F(CreditsTest, drawsNothingAfterItsActivation) {
    credits.activate();
    fillAll(screen, red);
    const OwnedSurface before = copyOf(screen);
    const FlipWatch watch;
    credits.update();
    credits.cleanUp();
    EXPECT_TRUE(leavesOn(keyDown(SDLK_RETURN)));
    EXPECT_EQ(watch.count, 0);
    EXPECT_EQ(difference(before.get(), screen), "");
}

TEST_F(CreditsTest, blackensOnlyTheClipRectangle) {
    const SDL_Rect clip = {0, 0, 10, 20};
    SDL_SetClipRect(screen, &clip);
    credits.activate();
    EXPECT_EQ(pixel(screen, 9, 19), black);
    EXPECT_EQ(pixel(screen, 10, 19), red);
    EXPECT_EQ(pixel(screen, 9, 20), red);
}

TEST_F(CreditsTest, leavesTheMusicAlone) {
    haveSound = true;
    Music::play(2);
    credits.activate();
    EXPECT_EQ(Music::current(), 2);
}

TEST_F(CreditsTest, isLeftByEscapeReturnOrSpace) {
    EXPECT_TRUE(leavesOn(keyDown(SDLK_ESCAPE)));
    EXPECT_TRUE(leavesOn(keyDown(SDLK_RETURN)));
    EXPECT_TRUE(leavesOn(keyDown(SDLK_SPACE)));
    EXPECT_TRUE(running);
}

TEST_F(CreditsTest, isLeftByNoOtherKey) {
    for (int code = 0; code < SDLK_LAST; ++code) {
        if (code != SDLK_ESCAPE && code != SDLK_RETURN && code != SDLK_SPACE) {
            EXPECT_FALSE(leavesOn(keyDown(static_cast<SDLKey>(code)))) << code;
        }
    }
    EXPECT_TRUE(running);
}

TEST_F(CreditsTest, isLeftByNoKeyRelease) {
    for (int code = 0; code < SDLK_LAST; ++code) {
        EXPECT_FALSE(leavesOn(keyUp(static_cast<SDLKey>(code)))) << code;
    }
}

TEST_F(CreditsTest, isLeftByTheReleaseOfAnyMouseButtonButNotItsPress) {
    for (int button = 1; button <= 7; ++button) {
        EXPECT_FALSE(leavesOn(mouseDown(button))) << button;
        EXPECT_TRUE(leavesOn(mouseUp(button))) << button;
    }
    EXPECT_TRUE(running);
}

// The code of Escape, where another kind of event keeps something else.
TEST_F(CreditsTest, ignoresAllOtherEvents) {
    for (int type : {SDL_ACTIVEEVENT, SDL_MOUSEMOTION, SDL_JOYBUTTONUP, SDL_QUIT, SDL_VIDEOEXPOSE,
                     SDL_USEREVENT}) {
        SDL_Event event = keyDown(SDLK_ESCAPE);
        event.type = static_cast<Uint8>(type);
        EXPECT_FALSE(leavesOn(event)) << type;
    }
    EXPECT_TRUE(running);
}

TEST_F(CreditsTest, keepsTheLatestRequestOfAFrame) {
    SDL_Event escape = keyDown(SDLK_ESCAPE);
    SDL_Event click = mouseUp(SDL_BUTTON_LEFT);
    credits.event(&escape);
    ProgramMode* first = newProgramMode;
    credits.event(&click);
    ASSERT_NE(newProgramMode, first);
    EXPECT_TRUE(takeMenuRequest());
    delete first;
}

} // namespace
