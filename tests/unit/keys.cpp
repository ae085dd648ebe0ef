// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "keys.h"

#include "display.h"
#include "keyboard.h"

void press(SDLKey key) {
    SDL_Event event = keyDown(key);
    Keyboard::keyPress(&event);
}

void letGo(SDLKey key) {
    SDL_Event event = keyUp(key);
    Keyboard::keyRelease(&event);
}
