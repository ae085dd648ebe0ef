// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "keyboard.h"

namespace {

enum KeyState { keyUp = 0, keyHeld = 1, keyReleasedThisFrame = 2 };

int pressed[SDLK_LAST];
SDL_keysym pressedKey;

} // namespace

void Keyboard::keyPress(SDL_Event* event) {
    int& state = pressed[event->key.keysym.sym];
    if (state == keyUp) {
        state = keyHeld;
    }
    pressedKey = event->key.keysym;
}

void Keyboard::keyRelease(SDL_Event* event) {
    pressed[event->key.keysym.sym] = keyReleasedThisFrame;
}

void Keyboard::releaseKeys() {
    for (int& state : pressed) {
        if (state == keyReleasedThisFrame) {
            state = keyUp;
        }
    }
}

bool Keyboard::isPressed(int sdlk) {
    return pressed[sdlk] != keyUp;
}

SDL_keysym Keyboard::readkey() {
    return pressedKey;
}
