// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// No screen reads the held modifiers, or any field of a key's event but the key. Here all modifiers
// are held at once; the seeded replays hold each of them, with random values in the other fields.

#include <initializer_list>

#include "credits.h"
#include "duel.h"
#include "gameover.h"
#include "helpscreen.h"
#include "introscreen.h"
#include "keyboard.h"
#include "main.h"
#include "menu.h"

namespace {

SDL_Event withModifiers(SDL_Event event) {
    event.key.which = 3;
    event.key.keysym.mod = static_cast<SDLMod>(0xffff);
    event.key.keysym.scancode = 200;
    event.key.keysym.unicode = 27; // the character of Escape
    return event;
}

template <typename Mode> bool takeRequest() {
    const bool requested = dynamic_cast<Mode*>(newProgramMode) != nullptr;
    delete newProgramMode;
    newProgramMode = nullptr;
    return requested;
}

class MenuModifierTest : public MenuTest {
protected:
    void sendDown(SDLKey key) {
        send(withModifiers(keyDown(key)));
    }
};

TEST_F(MenuModifierTest, movesTheFocus) {
    sendDown(SDLK_DOWN);
    EXPECT_EQ(menu->focusedButton, 0);
    sendDown(SDLK_UP);
    EXPECT_EQ(menu->focusedButton, 3);
}

TEST_F(MenuModifierTest, choosesWithReturnAndSpace) {
    menu->focusedButton = 1;
    sendDown(SDLK_RETURN);
    EXPECT_TRUE(takeRequest<HelpScreen>());
    menu->focusedButton = 2;
    sendDown(SDLK_SPACE);
    EXPECT_TRUE(takeRequest<Credits>());
}

TEST_F(MenuModifierTest, startsABattleWhenReturnOrSpaceIsReleased) {
    for (const SDLKey key : {SDLK_RETURN, SDLK_SPACE}) {
        menu->focusedButton = 0;
        menu->waitingToReleaseReturn = false;
        ::press(key);
        sendDown(key);
        EXPECT_EQ(newProgramMode, nullptr);
        EXPECT_TRUE(menu->waitingToReleaseReturn);
        send(withModifiers(keyUp(key)));
        EXPECT_TRUE(takeRequest<GameHandler>());
    }
}

TEST_F(MenuModifierTest, endsTheProgram) {
    for (const SDLKey key : {SDLK_ESCAPE, SDLK_q}) {
        running = true;
        sendDown(key);
        EXPECT_FALSE(running);
    }
}

using BattleModifierTest = DuelTest;

TEST_F(BattleModifierTest, isLeftWithEscapeAlone) {
    SDL_Event other = withModifiers(keyDown(SDLK_w));
    battle->event(&other);
    EXPECT_EQ(newProgramMode, nullptr);
    SDL_Event escape = withModifiers(keyDown(SDLK_ESCAPE));
    battle->event(&escape);
    EXPECT_TRUE(takeRequest<MainMenu>());
}

using KeyboardModifierTest = DisplayTest;

TEST_F(KeyboardModifierTest, knowsEveryKeyAsPressedUntilItIsReleased) {
    for (int code = 0; code < SDLK_LAST; ++code) {
        SDL_Event press = withModifiers(keyDown(code));
        SDL_Event release = withModifiers(keyUp(code));
        Keyboard::keyPress(&press);
        Keyboard::releaseKeys();
        EXPECT_TRUE(Keyboard::isPressed(code)) << code;
        Keyboard::keyRelease(&release);
        Keyboard::releaseKeys();
        EXPECT_FALSE(Keyboard::isPressed(code)) << code;
    }
}

using ScreenModifierTest = DisplayTest;

TEST_F(ScreenModifierTest, skipsTheIntroWithAnyKey) {
    IntroScreen intro;
    for (int code = 0; code < SDLK_LAST; ++code) {
        SDL_Event event = withModifiers(keyDown(code));
        intro.event(&event);
        EXPECT_TRUE(takeRequest<MainMenu>()) << code;
    }
}

TEST_F(ScreenModifierTest, leavesTextScreensWithTheirKeysAlone) {
    HelpScreen help;
    Credits credits;
    GameOver gameOver(1);
    for (ProgramMode* mode : std::initializer_list<ProgramMode*>{&help, &credits, &gameOver}) {
        for (const SDLKey key : {SDLK_ESCAPE, SDLK_RETURN, SDLK_SPACE, SDLK_w}) {
            SDL_Event event = withModifiers(keyDown(key));
            mode->event(&event);
            const bool leaves = key == SDLK_ESCAPE || (key != SDLK_w && mode != &gameOver);
            EXPECT_EQ(takeRequest<MainMenu>(), leaves) << int{key};
        }
    }
}

} // namespace
