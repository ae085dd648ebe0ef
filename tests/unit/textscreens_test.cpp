// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

#include <SDL_ttf.h>

#include "credits.h"
#include "drawing.h"
#include "gameover.h"
#include "helpscreen.h"
#include "main.h"
#include "mainmenu.h"
#include "music.h"
#include "pictures.h"

namespace {

struct TextLine {
    int line; // 0 is centred vertically, 1 is one text height below
    const char* text;
};

const std::vector<TextLine> helpLines = {
    {-4, "Morvane:"},
    {-2, "Player 1 (left): slower projectile, faster ship"},
    {-1, "WASD = move, Tab/Space = shoot, Z = teleport"},
    {0, "Player 2 (right): faster projectile, slower ship"},
    {1, "Arrows = move, Enter = shoot, Delete = teleport"},
    {3, "Enjoy!"},
};
const std::vector<TextLine> creditsLines = {
    {-2, "This program was made by:"},
    {0, "Brannoc workshop: code"},
    {1, "Brannoc workshop: pictures"},
    {2, "Brannoc workshop: music"},
};
const std::vector<TextLine> firstPlayerWins = {
    {-1, "Game over."}, {0, "Player 1 won."}, {1, "Press Escape to return to main menu."}};
const std::vector<TextLine> secondPlayerWins = {
    {-1, "Game over."}, {0, "Player 2 won."}, {1, "Press Escape to return to main menu."}};

void drawLine(SDL_Surface* where, const TextLine& line) {
    SDL_Surface* text = TTF_RenderText_Blended(papyrusFont, line.text, {255, 255, 255, 0});
    ASSERT_NE(text, nullptr) << line.text;
    drawPicture(text, where, (800 - text->w) / 2, (600 - text->h) / 2 + line.line * text->h);
    SDL_FreeSurface(text);
}

// Tests with the game's font, on a display that is red all over, with the program running.
class TextScreenTest : public DisplayTest {
protected:
    void SetUp() override {
        DisplayTest::SetUp();
        ASSERT_EQ(TTF_Init(), 0) << TTF_GetError();
        papyrusFont = TTF_OpenFont(MORVANE_FONT, 29);
        ASSERT_NE(papyrusFont, nullptr) << TTF_GetError();
        fillAll(screen, red);
        running = true;
    }

    void TearDown() override {
        if (papyrusFont != nullptr) {
            TTF_CloseFont(papyrusFont);
        }
        TTF_Quit();
        DisplayTest::TearDown();
    }

    void expectLines(const std::vector<TextLine>& lines) {
        const OwnedSurface expected(createSurface(800, 600));
        for (const TextLine& line : lines) {
            drawLine(expected.get(), line);
        }
        EXPECT_EQ(difference(expected.get(), screen), "");
    }

    // True when the main menu is requested; forgets the request.
    bool takeMenuRequest() {
        const bool requested = dynamic_cast<MainMenu*>(newProgramMode) != nullptr;
        delete newProgramMode;
        newProgramMode = nullptr;
        return requested;
    }
};

using GameOverTest = TextScreenTest;

TEST_F(GameOverTest, namesTheSecondPlayerForAnyOtherLoser) {
    for (int loser : {0, 3, -1, -2}) {
        SCOPED_TRACE(loser);
        GameOver screenOfLoser(loser);
        EXPECT_EQ(screenOfLoser.defeatedPlayer, loser);
        screenOfLoser.activate();
        expectLines(secondPlayerWins);
    }
}

struct Kind {
    const char* name;
    std::function<ProgramMode*()> make;
    std::vector<TextLine> lines;
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

TEST_P(EveryTextScreenTest, flipsItsFinishedTextOnce) {
    OwnedSurface atFlip;
    const FlipWatch watch([&atFlip] { atFlip = copyOf(screen); });
    mode->activate();
    EXPECT_EQ(watch.count, 1);
    EXPECT_EQ(difference(atFlip.get(), screen), "");
    expectLines(GetParam().lines);
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

// Each carries the code of Escape where a key event has it, for a screen that forgets the type.
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

const std::vector<SDLKey> continueKeys = {SDLK_ESCAPE, SDLK_RETURN, SDLK_SPACE};

const Kind kinds[] = {
    {"Won1", [] { return new GameOver(2); }, firstPlayerWins, {SDLK_ESCAPE}, false},
    {"Won2", [] { return new GameOver(1); }, secondPlayerWins, {SDLK_ESCAPE}, false},
    {"HelpScreen", [] { return new HelpScreen; }, helpLines, continueKeys, true},
    {"Credits", [] { return new Credits; }, creditsLines, continueKeys, true},
};

INSTANTIATE_TEST_SUITE_P(Screens, EveryTextScreenTest, ::testing::ValuesIn(kinds),
                         [](const auto& kind) { return kind.param.name; });

} // namespace
