// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "keys.h"

#include "events.h"
#include "keyboard.h"

void press(SDLKey key) {
    SDL_Event event = keyDown(key);
    Keyboard::keyPress(&event);
}

void release(SDLKey key) {
    SDL_Event event = keyUp(key);
    Keyboard::keyRelease(&event);
}

void releaseAllKeys() {
    for (int key = 0; key < SDLK_LAST; ++key) {
        release(static_cast<SDLKey>(key));
    }
    Keyboard::releaseKeys();
}
