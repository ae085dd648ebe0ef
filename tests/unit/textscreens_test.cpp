// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// What the three text screens have in common.

#include "textscreen.h"

#include <algorithm>
#include <functional>
#include <memory>

#include "credits.h"
#include "drawing.h"
#include "gameover.h"
#include "helpscreen.h"
#include "main.h"
#include "music.h"
#include "pictures.h"

namespace {

struct Kind {
    const char* name;
    std::function<ProgramMode*()> make;
    std::vector<SDLKey> leavingKeys;
    bool isLeftByMouse;
};

void PrintTo(const Kind& kind, std::ostream* out) {
    *out << kind.name;
}

class EveryTextScreenTest : public TextScreenTest, public ::testing::WithParamInterface<Kind> {
protected:
    // Whether the event leaves the screen.
    bool leavesOn(SDL_Event event) {
        mode->event(&event);
        return takeMenuRequest();
    }

    std::unique_ptr<ProgramMode> mode{GetParam().make()};
};

TEST_P(EveryTextScreenTest, showsNothingUntilItIsActivated) {
    const FlipWatch watch;
    const std::unique_ptr<ProgramMode> another(GetParam().make());
    EXPECT_EQ(watch.count, 0);
    EXPECT_EQ(pixel(screen, 0, 0), red);
}

TEST_P(EveryTextScreenTest, flipsTheFinishedPictureOnce) {
    OwnedSurface atFlip;
    const FlipWatch watch([&atFlip] { atFlip = copyOf(screen); });
    mode->activate();
    EXPECT_EQ(watch.count, 1);
    EXPECT_EQ(difference(atFlip.get(), screen), "");
    EXPECT_EQ(pixel(screen, 0, 0), black);
}

TEST_P(EveryTextScreenTest, drawsNothingAfterItsActivation) {
    mode->activate();
    fillAll(screen, red);
    const OwnedSurface before = copyOf(screen);
    const FlipWatch watch;
    mode->update();
    mode->cleanUp();
    EXPECT_TRUE(leavesOn(keyDown(SDLK_ESCAPE)));
    EXPECT_EQ(watch.count, 0);
    EXPECT_EQ(difference(before.get(), screen), "");
}

TEST_P(EveryTextScreenTest, leavesTheMusicAlone) {
    haveSound = true;
    Music::play(2);
    mode->activate();
    EXPECT_EQ(Music::current(), 2);
}

TEST_P(EveryTextScreenTest, isLeftByItsKeysGoingDownAndNoOthers) {
    const std::vector<SDLKey>& leaving = GetParam().leavingKeys;
    for (int code = 0; code < SDLK_LAST; ++code) {
        const auto key = static_cast<SDLKey>(code);
        const bool leaves = std::find(leaving.begin(), leaving.end(), key) != leaving.end();
        EXPECT_EQ(leavesOn(keyDown(key)), leaves) << code;
        EXPECT_FALSE(leavesOn(keyUp(key))) << code;
    }
    EXPECT_TRUE(running);
}

TEST_P(EveryTextScreenTest, takesOnlyReleasesOfMouseButtonsIfAny) {
    for (int button = 1; button <= 7; ++button) {
        EXPECT_FALSE(leavesOn(mouseDown(button))) << button;
        EXPECT_EQ(leavesOn(mouseUp(button)), GetParam().isLeftByMouse) << button;
    }
    EXPECT_FALSE(leavesOn(mouseMotion(400, 300)));
    EXPECT_TRUE(running);
}

// The code of Escape, where another kind of event keeps something else.
TEST_P(EveryTextScreenTest, ignoresAllOtherEvents) {
    for (int type : {SDL_ACTIVEEVENT, SDL_MOUSEMOTION, SDL_JOYBUTTONUP, SDL_QUIT, SDL_VIDEOEXPOSE,
                     SDL_USEREVENT}) {
        SDL_Event event = keyDown(SDLK_ESCAPE);
        event.type = static_cast<Uint8>(type);
        EXPECT_FALSE(leavesOn(event)) << type;
    }
    EXPECT_TRUE(running);
}

TEST_P(EveryTextScreenTest, keepsTheLatestRequestOfAFrame) {
    SDL_Event escape = keyDown(SDLK_ESCAPE);
    mode->event(&escape);
    const std::unique_ptr<ProgramMode> first(newProgramMode);
    mode->event(&escape);
    EXPECT_NE(newProgramMode, first.get());
    EXPECT_TRUE(takeMenuRequest());
}

const Kind kinds[] = {
    {"GameOver", [] { return new GameOver(2); }, {SDLK_ESCAPE}, false},
    {"HelpScreen", [] { return new HelpScreen; }, {SDLK_ESCAPE, SDLK_RETURN, SDLK_SPACE}, true},
    {"Credits", [] { return new Credits; }, {SDLK_ESCAPE, SDLK_RETURN, SDLK_SPACE}, true},
};

INSTANTIATE_TEST_SUITE_P(Screens, EveryTextScreenTest, ::testing::ValuesIn(kinds),
                         [](const auto& kind) { return kind.param.name; });

} // namespace
