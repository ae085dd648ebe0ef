// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "battle.h"
#include "mainmenu.h"

const Colour logoColour = {90, 0, 0};
const Colour panelColour = {0, 90, 0};
const Colour backgroundColour = {90, 90, 0};

const int noFocus = -1; // of the menu

// The colour of a row of the button strip that MenuTest paints, 0 to 25; every row has its own.
Colour cellColour(int row);

// Tests with a main menu over plain pictures: a logo of 500 x 150, a panel of 300 x 440, and a
// strip whose 26 cells have colours of their own. The program counts as running.
class MenuTest : public BattleTest {
protected:
    void SetUp() override;
    void TearDown() override;

    // Like the main loop, these update the key table first, then the menu.
    void press(SDLKey key);
    void release(SDLKey key);
    void send(SDL_Event event);

    std::unique_ptr<MainMenu> menu;
};
