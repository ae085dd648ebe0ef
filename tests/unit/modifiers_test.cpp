// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// No screen cares for held modifiers, or for anything else of a key's event but the key.

#include "credits.h"
#include "duel.h"
#include "gameover.h"
#include "helpscreen.h"
#include "introscreen.h"
#include "keyboard.h"
#include "main.h"
#include "menu.h"

namespace {

struct Modifier {
    const char* name;
    int mod;
};

void PrintTo(const Modifier& modifier, std::ostream* out) {
    *out << modifier.name;
}

// The seeded replays press keys with every single one, and with random values of the other fields.
const Modifier modifiers[] = {{"none", KMOD_NONE}, {"allAtOnce", 0xffff}};

std::string nameOf(const testing::TestParamInfo<Modifier>& info) {
    return info.param.name;
}

// Every test with every modifier, and with unusual values of the other fields.
template <typename Fixture>
class WithModifier : public Fixture, public ::testing::WithParamInterface<Modifier> {
protected:
    static SDL_Event down(SDLKey key) {
        return filled(keyDown(key));
    }

    static SDL_Event up(SDLKey key) {
        return filled(keyUp(key));
    }

    template <typename Mode> static bool takeRequest() {
        const bool requested = dynamic_cast<Mode*>(newProgramMode) != nullptr;
        delete newProgramMode;
        newProgramMode = nullptr;
        return requested;
    }

private:
    static SDL_Event filled(SDL_Event event) {
        event.key.which = 3;
        event.key.keysym.mod = static_cast<SDLMod>(WithModifier::GetParam().mod);
        event.key.keysym.scancode = event.key.keysym.mod == KMOD_NONE ? 0 : 200;
        event.key.keysym.unicode = 27; // the character of Escape, which no screen may look at
        return event;
    }
};

// The menu.

using MenuModifierTest = WithModifier<MenuTest>;

TEST_P(MenuModifierTest, movesTheFocus) {
    send(down(SDLK_DOWN));
    EXPECT_EQ(menu->focusedButton, 0);
    send(down(SDLK_UP));
    EXPECT_EQ(menu->focusedButton, 3);
}

TEST_P(MenuModifierTest, choosesWithReturnAndSpace) {
    menu->focusedButton = 1;
    send(down(SDLK_RETURN));
    EXPECT_TRUE(takeRequest<HelpScreen>());
    menu->focusedButton = 2;
    send(down(SDLK_SPACE));
    EXPECT_TRUE(takeRequest<Credits>());
    EXPECT_FALSE(menu->waitingToReleaseReturn);
}

TEST_P(MenuModifierTest, startsABattleWhenReturnOrSpaceIsReleased) {
    for (const SDLKey key : {SDLK_RETURN, SDLK_SPACE}) {
        menu->focusedButton = 0;
        menu->waitingToReleaseReturn = false;
        // As in the main loop, the key table comes first.
        SDL_Event pressed = down(key);
        Keyboard::keyPress(&pressed);
        send(pressed);
        EXPECT_EQ(newProgramMode, nullptr);
        EXPECT_TRUE(menu->waitingToReleaseReturn);
        SDL_Event released = up(key);
        Keyboard::keyRelease(&released);
        send(released);
        EXPECT_TRUE(takeRequest<GameHandler>());
        Keyboard::releaseKeys();
    }
}

TEST_P(MenuModifierTest, endsTheProgram) {
    for (const SDLKey key : {SDLK_ESCAPE, SDLK_q}) {
        running = true;
        send(down(key));
        EXPECT_FALSE(running);
    }
}

// The battle and its key table.

using BattleModifierTest = WithModifier<DuelTest>;

TEST_P(BattleModifierTest, isLeftWithEscapeAlone) {
    SDL_Event other = down(SDLK_w);
    battle->event(&other);
    EXPECT_EQ(newProgramMode, nullptr);
    SDL_Event event = down(SDLK_ESCAPE);
    battle->event(&event);
    EXPECT_TRUE(takeRequest<MainMenu>());
}

TEST_P(BattleModifierTest, knowsEveryKeyAsPressedUntilItIsReleased) {
    for (int code = 0; code < SDLK_LAST; ++code) {
        SDL_Event press = down(static_cast<SDLKey>(code));
        SDL_Event release = up(static_cast<SDLKey>(code));
        Keyboard::keyPress(&press);
        Keyboard::releaseKeys();
        EXPECT_TRUE(Keyboard::isPressed(code)) << code;
        Keyboard::keyRelease(&release);
        Keyboard::releaseKeys();
        EXPECT_FALSE(Keyboard::isPressed(code)) << code;
    }
}

// The other screens.

using ScreenModifierTest = WithModifier<DisplayTest>;

TEST_P(ScreenModifierTest, skipsTheIntroWithAnyKey) {
    IntroScreen intro;
    for (int code = 0; code < SDLK_LAST; ++code) {
        SDL_Event event = down(static_cast<SDLKey>(code));
        intro.event(&event);
        EXPECT_TRUE(takeRequest<MainMenu>()) << code;
    }
}

TEST_P(ScreenModifierTest, leavesHelpAndCreditsWithEachOfTheirKeys) {
    HelpScreen help;
    Credits credits;
    for (ProgramMode* mode :
         {static_cast<ProgramMode*>(&help), static_cast<ProgramMode*>(&credits)}) {
        for (const SDLKey key : {SDLK_ESCAPE, SDLK_RETURN, SDLK_SPACE}) {
            SDL_Event event = down(key);
            mode->event(&event);
            EXPECT_TRUE(takeRequest<MainMenu>()) << int{key};
        }
    }
}

TEST_P(ScreenModifierTest, leavesTheGameOverScreenWithEscape) {
    GameOver gameOver(1);
    SDL_Event event = down(SDLK_ESCAPE);
    gameOver.event(&event);
    EXPECT_TRUE(takeRequest<MainMenu>());
}

INSTANTIATE_TEST_SUITE_P(with, MenuModifierTest, testing::ValuesIn(modifiers), nameOf);
INSTANTIATE_TEST_SUITE_P(with, BattleModifierTest, testing::ValuesIn(modifiers), nameOf);
INSTANTIATE_TEST_SUITE_P(with, ScreenModifierTest, testing::ValuesIn(modifiers), nameOf);

} // namespace
