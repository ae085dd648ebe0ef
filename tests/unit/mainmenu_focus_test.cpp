// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "mainmenu.h"

#include "drawing.h"
#include "main.h"
#include "mainmenubutton.h"
#include "menu.h"
#include "pictures.h"

namespace {

class MainMenuFocusTest : public MenuTest {
protected:
    int focusAfter(int x, int y) {
        send(mouseMotion(x, y));
        return menu->focusedButton;
    }
};

TEST_F(MainMenuFocusTest, movesTheFocusDownRoundTheEnd) {
    for (int focus : {0, 1, 2, 3, 0, 1}) {
        press(SDLK_DOWN);
        EXPECT_EQ(menu->getFocusedButton(), focus);
    }
}

TEST_F(MainMenuFocusTest, movesTheFocusUpRoundTheEnd) {
    for (int focus : {3, 2, 1, 0, 3, 2}) {
        press(SDLK_UP);
        EXPECT_EQ(menu->getFocusedButton(), focus);
    }
}

TEST_F(MainMenuFocusTest, movesTheFocusWithTheWheel) {
    send(mouseUp(SDL_BUTTON_WHEELDOWN));
    EXPECT_EQ(menu->focusedButton, 0);
    send(mouseUp(SDL_BUTTON_WHEELDOWN));
    EXPECT_EQ(menu->focusedButton, 1);
    send(mouseUp(SDL_BUTTON_WHEELUP));
    EXPECT_EQ(menu->focusedButton, 0);
    send(mouseUp(SDL_BUTTON_WHEELUP));
    EXPECT_EQ(menu->focusedButton, 3);
    send(mouseUp(SDL_BUTTON_WHEELDOWN));
    EXPECT_EQ(menu->focusedButton, 0);
}

TEST_F(MainMenuFocusTest, redrawsAtOnceWhenTheFocusMoves) {
    fillAll(screen, blue);
    const FlipWatch watch;
    menu->up();
    EXPECT_EQ(watch.count, 1);
    EXPECT_EQ(pixel(screen, 0, 0), backgroundColour);
    fillAll(screen, blue);
    menu->down();
    EXPECT_EQ(watch.count, 2);
    EXPECT_EQ(pixel(screen, 0, 0), backgroundColour);
}

TEST_F(MainMenuFocusTest, waitsForTheFrameWithTheFade) {
    press(SDLK_DOWN);
    EXPECT_EQ(menu->buttons[0]->focusLevel, 0);
    EXPECT_EQ(pixel(screen, 400, 300), cellColour(2));
}

// The pointer.

TEST_F(MainMenuFocusTest, countsTheLeftEdgeOfAButtonButNotTheRightOne) {
    EXPECT_EQ(focusAfter(299, 300), noFocus);
    EXPECT_EQ(focusAfter(300, 300), 0);
    EXPECT_EQ(focusAfter(499, 300), 0);
    EXPECT_EQ(focusAfter(500, 300), noFocus);
}

TEST_F(MainMenuFocusTest, countsTheTopEdgeOfTheBlockButNotTheBottomOne) {
    EXPECT_EQ(focusAfter(400, 283), noFocus);
    EXPECT_EQ(focusAfter(400, 284), 0);
    EXPECT_EQ(focusAfter(400, 455), 3);
    EXPECT_EQ(focusAfter(400, 456), noFocus);
}

TEST_F(MainMenuFocusTest, givesTheRowWhereButtonsTouchToTheLowerOne) {
    EXPECT_EQ(focusAfter(400, 326), 0);
    EXPECT_EQ(focusAfter(400, 327), 1);
    EXPECT_EQ(focusAfter(400, 369), 1);
    EXPECT_EQ(focusAfter(400, 370), 2);
    EXPECT_EQ(focusAfter(400, 412), 2);
    EXPECT_EQ(focusAfter(400, 413), 3);
}

TEST_F(MainMenuFocusTest, givesAnOverlapToTheLastButtonHit) {
    replacePicture("menu.png", 300, 101, panelColour);
    EXPECT_EQ(focusAfter(400, 156), 0);
    EXPECT_EQ(focusAfter(400, 157), 1); // the last row of button 0 too
}

TEST_F(MainMenuFocusTest, losesTheFocusWhenThePointerLeavesTheButtons) {
    const int outside[][2] = {{0, 0}, {799, 599}, {260, 300}, {540, 430}, {400, 200}, {400, 580}};
    for (const auto& place : outside) {
        SCOPED_TRACE(testing::Message() << place[0] << ", " << place[1]);
        menu->focusedButton = 2;
        EXPECT_EQ(focusAfter(place[0], place[1]), noFocus);
    }
}

} // namespace
