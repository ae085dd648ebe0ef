// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "menu.h"

#include "keys.h"
#include "main.h"

Colour cellColour(int row) {
    return {20 + 8 * row, 240 - 7 * row, row % 2 == 0 ? 40 : 200};
}

void MenuTest::SetUp() {
    BattleTest::SetUp();
    SDL_Surface* strip = imagePool["tlacitka.png"];
    for (int row = 0; row < 26; ++row) {
        fill(strip, {0, static_cast<Sint16>(43 * row), 200, 43}, cellColour(row));
    }
    menu = std::make_unique<MainMenu>();
    running = true;
}

void MenuTest::TearDown() {
    menu.reset();
    running = false;
    haveSound = false;
    releaseAllKeys();
    BattleTest::TearDown();
}

void MenuTest::press(SDLKey key) {
    ::press(key);
    send(keyDown(key));
}

void MenuTest::release(SDLKey key) {
    ::release(key);
    send(keyUp(key));
}

void MenuTest::send(SDL_Event event) {
    menu->event(&event);
}
