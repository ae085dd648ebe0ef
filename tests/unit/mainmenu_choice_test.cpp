// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "mainmenu.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include "credits.h"
#include "drawing.h"
#include "gamehandler.h"
#include "helpscreen.h"
#include "keyboard.h"
#include "main.h"
#include "menu.h"
#include "pictures.h"

namespace {

class MainMenuChoiceTest : public MenuTest {
protected:
    template <typename Mode> bool requests() {
        return dynamic_cast<Mode*>(newProgramMode) != nullptr;
    }

    void forgetRequest() {
        delete newProgramMode;
        newProgramMode = nullptr;
    }

    void focusAndClick(int id) {
        menu->focusedButton = id;
        send(mouseUp(SDL_BUTTON_LEFT));
    }

    // An event that must change nothing, whichever button has the focus.
    void expectIgnored(SDL_Event event) {
        for (int focus = noFocus; focus < 4; ++focus) {
            SCOPED_TRACE(focus);
            menu->focusedButton = focus;
            const FlipWatch watch;
            send(event);
            EXPECT_EQ(menu->focusedButton, focus);
            EXPECT_EQ(newProgramMode, nullptr);
            EXPECT_TRUE(running);
            EXPECT_FALSE(menu->waitingToReleaseReturn);
            EXPECT_EQ(watch.count, 0);
        }
    }
};

TEST_F(MainMenuChoiceTest, onlyFocusesTheTopButtonAtFirst) {
    const SDL_Event choices[] = {keyDown(SDLK_RETURN), keyDown(SDLK_SPACE),
                                 mouseUp(SDL_BUTTON_LEFT)};
    for (const SDL_Event& choice : choices) {
        SCOPED_TRACE(static_cast<int>(choice.type));
        menu->focusedButton = noFocus;
        fillAll(screen, blue);
        const FlipWatch watch;
        send(choice);
        EXPECT_EQ(menu->focusedButton, 0);
        EXPECT_EQ(watch.count, 1);
        EXPECT_EQ(pixel(screen, 0, 0), backgroundColour);
        EXPECT_EQ(newProgramMode, nullptr);
        EXPECT_FALSE(menu->waitingToReleaseReturn);
        EXPECT_TRUE(running);
    }
}

TEST_F(MainMenuChoiceTest, actsOnTheFocusedButtonWhereverTheClickIs) {
    press(SDLK_UP);
    press(SDLK_UP);
    SDL_Event click = mouseUp(SDL_BUTTON_LEFT);
    click.button.x = 400;
    click.button.y = 300;
    send(click);
    EXPECT_TRUE(requests<Credits>());
}

TEST_F(MainMenuChoiceTest, opensTheHelpScreenAtOnce) {
    focusAndClick(1);
    EXPECT_TRUE(requests<HelpScreen>());
    EXPECT_TRUE(running);
}

TEST_F(MainMenuChoiceTest, opensTheCreditsAtOnce) {
    focusAndClick(2);
    EXPECT_TRUE(requests<Credits>());
    EXPECT_TRUE(running);
}

TEST_F(MainMenuChoiceTest, endsTheProgramWithItsBottomButton) {
    focusAndClick(3);
    EXPECT_FALSE(running);
    EXPECT_EQ(newProgramMode, nullptr);
}

TEST_F(MainMenuChoiceTest, endsTheProgramByKeyWithoutWaiting) {
    for (SDLKey key : {SDLK_RETURN, SDLK_SPACE}) {
        SCOPED_TRACE(key);
        running = true;
        menu->focusedButton = 3;
        press(key);
        EXPECT_FALSE(running);
        EXPECT_EQ(newProgramMode, nullptr);
    }
}

TEST_F(MainMenuChoiceTest, keepsFocusAndDisplayWhenAButtonIsChosen) {
    for (int id = 0; id < 4; ++id) {
        SCOPED_TRACE(id);
        const FlipWatch watch;
        focusAndClick(id);
        EXPECT_EQ(menu->focusedButton, id);
        EXPECT_EQ(watch.count, 0);
        forgetRequest();
    }
}

TEST_F(MainMenuChoiceTest, keepsTheLatestChoiceOfAFrame) {
    focusAndClick(1);
    ProgramMode* first = newProgramMode;
    focusAndClick(2);
    ASSERT_NE(newProgramMode, first);
    EXPECT_TRUE(requests<Credits>());
    delete first;
}

// The battle waits for the key that chose it.

TEST_F(MainMenuChoiceTest, startsABattleWhenTheChoosingKeyIsReleased) {
    for (SDLKey key : {SDLK_RETURN, SDLK_SPACE}) {
        SCOPED_TRACE(key);
        menu = std::make_unique<MainMenu>();
        menu->focusedButton = 0;
        press(key);
        EXPECT_TRUE(menu->waitingToReleaseReturn);
        EXPECT_EQ(newProgramMode, nullptr);
        menu->update();
        Keyboard::releaseKeys();
        EXPECT_EQ(newProgramMode, nullptr);
        release(key);
        EXPECT_TRUE(requests<GameHandler>());
        forgetRequest();
        Keyboard::releaseKeys();
    }
}

TEST_F(MainMenuChoiceTest, ignoresTheReleaseOfOtherKeysWhileItWaits) {
    menu->focusedButton = 0;
    press(SDLK_RETURN);
    for (SDLKey key : {SDLK_KP_ENTER, SDLK_ESCAPE, SDLK_q, SDLK_UP, SDLK_TAB}) {
        release(key);
        EXPECT_EQ(newProgramMode, nullptr) << key;
    }
    EXPECT_TRUE(running);
}

TEST_F(MainMenuChoiceTest, startsABattleAtOnceWhenOnlyOtherKeysAreHeld) {
    for (SDLKey key : {SDLK_TAB, SDLK_KP_ENTER, SDLK_DELETE, SDLK_LCTRL, SDLK_a}) {
        press(key);
    }
    focusAndClick(0);
    EXPECT_TRUE(requests<GameHandler>());
}

TEST_F(MainMenuChoiceTest, startsABattleAtTheReleaseOfEitherKey) {
    menu->focusedButton = 0;
    press(SDLK_RETURN);
    press(SDLK_SPACE);
    release(SDLK_SPACE);
    EXPECT_TRUE(requests<GameHandler>());
}

// A key released during this frame still counts as pressed, so the click waits for another release.
TEST_F(MainMenuChoiceTest, waitsOnAClickInTheFrameOfARelease) {
    press(SDLK_SPACE);
    release(SDLK_SPACE);
    send(mouseUp(SDL_BUTTON_LEFT));
    EXPECT_TRUE(menu->waitingToReleaseReturn);
    EXPECT_EQ(newProgramMode, nullptr);
}

TEST_F(MainMenuChoiceTest, startsABattleAtOnceOnAClickInTheFrameAfterARelease) {
    press(SDLK_SPACE);
    release(SDLK_SPACE);
    Keyboard::releaseKeys();
    send(mouseUp(SDL_BUTTON_LEFT));
    EXPECT_TRUE(requests<GameHandler>());
}

TEST_F(MainMenuChoiceTest, neverForgetsThatItWaits) {
    menu->focusedButton = 0;
    press(SDLK_RETURN);
    release(SDLK_RETURN);
    EXPECT_TRUE(menu->waitingToReleaseReturn);
    ProgramMode* first = newProgramMode;
    release(SDLK_SPACE);
    EXPECT_TRUE(requests<GameHandler>());
    ASSERT_NE(newProgramMode, first);
    delete first;
}

TEST_F(MainMenuChoiceTest, startsTheBattleEvenIfTheFocusHasMovedMeanwhile) {
    menu->focusedButton = 0;
    press(SDLK_RETURN);
    send(mouseMotion(400, 430));
    release(SDLK_RETURN);
    EXPECT_EQ(menu->focusedButton, 3);
    EXPECT_TRUE(requests<GameHandler>());
    EXPECT_TRUE(running);
}

// What ends the program, and what is ignored.

TEST_F(MainMenuChoiceTest, endsTheProgramOnEscapeOrQ) {
    for (SDLKey key : {SDLK_ESCAPE, SDLK_q}) {
        for (int focus = noFocus; focus < 4; ++focus) {
            SCOPED_TRACE(testing::Message() << key << " with focus " << focus);
            running = true;
            menu->focusedButton = focus;
            press(key);
            EXPECT_FALSE(running);
            EXPECT_EQ(menu->focusedButton, focus);
            EXPECT_EQ(newProgramMode, nullptr);
        }
    }
}

TEST_F(MainMenuChoiceTest, ignoresAllOtherKeysAndTheReleaseOfEveryKey) {
    const int used[] = {SDLK_ESCAPE, SDLK_q, SDLK_UP, SDLK_DOWN, SDLK_RETURN, SDLK_SPACE};
    for (int key = 0; key < SDLK_LAST; ++key) {
        SCOPED_TRACE(key);
        expectIgnored(keyUp(key));
        if (std::count(std::begin(used), std::end(used), key) == 0) {
            expectIgnored(keyDown(key));
        }
    }
}

TEST_F(MainMenuChoiceTest, ignoresOtherMouseButtonsAndEveryPress) {
    for (int button = 1; button <= 7; ++button) {
        SCOPED_TRACE(button);
        expectIgnored(mouseDown(button));
        const bool isUsed = button == SDL_BUTTON_LEFT || button == SDL_BUTTON_WHEELUP ||
                            button == SDL_BUTTON_WHEELDOWN;
        if (!isUsed) {
            expectIgnored(mouseUp(button));
        }
    }
}

TEST_F(MainMenuChoiceTest, leavesAllOtherEventsToTheMainLoop) {
    for (int type : {SDL_ACTIVEEVENT, SDL_JOYBUTTONDOWN, SDL_JOYBUTTONUP, SDL_QUIT, SDL_SYSWMEVENT,
                     SDL_VIDEOEXPOSE, SDL_USEREVENT}) {
        SCOPED_TRACE(type);
        SDL_Event event = {};
        event.type = static_cast<Uint8>(type);
        expectIgnored(event);
    }
}

} // namespace
