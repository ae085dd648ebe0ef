// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "menu.h"

#include "keyboard.h"
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
    for (int key = 0; key < SDLK_LAST; ++key) {
        SDL_Event up = keyUp(static_cast<SDLKey>(key));
        Keyboard::keyRelease(&up);
    }
    Keyboard::releaseKeys();
    BattleTest::TearDown();
}

void MenuTest::press(SDLKey key) {
    SDL_Event event = keyDown(key);
    Keyboard::keyPress(&event);
    menu->event(&event);
}

void MenuTest::release(SDLKey key) {
    SDL_Event event = keyUp(key);
    Keyboard::keyRelease(&event);
    menu->event(&event);
}

void MenuTest::send(SDL_Event event) {
    menu->event(&event);
}
