// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>

// Events as the library would send them.

inline SDL_Event otherEvent(int type) {
    SDL_Event event = {};
    event.type = static_cast<Uint8>(type);
    return event;
}

inline SDL_Event keyEvent(int type, int key) {
    SDL_Event event = otherEvent(type);
    event.key.state = type == SDL_KEYDOWN ? SDL_PRESSED : SDL_RELEASED;
    event.key.keysym.sym = static_cast<SDLKey>(key);
    event.key.keysym.scancode = static_cast<Uint8>(key % 256);
    return event;
}

inline SDL_Event keyDown(int key) {
    return keyEvent(SDL_KEYDOWN, key);
}

inline SDL_Event keyUp(int key) {
    return keyEvent(SDL_KEYUP, key);
}

inline SDL_Event mouseEvent(int type, int button) {
    SDL_Event event = otherEvent(type);
    event.button.button = static_cast<Uint8>(button);
    event.button.state = type == SDL_MOUSEBUTTONDOWN ? SDL_PRESSED : SDL_RELEASED;
    return event;
}

inline SDL_Event mouseDown(int button) {
    return mouseEvent(SDL_MOUSEBUTTONDOWN, button);
}

inline SDL_Event mouseUp(int button) {
    return mouseEvent(SDL_MOUSEBUTTONUP, button);
}

inline SDL_Event mouseMotion(int x, int y) {
    SDL_Event event = otherEvent(SDL_MOUSEMOTION);
    event.motion.x = static_cast<Uint16>(x);
    event.motion.y = static_cast<Uint16>(y);
    return event;
}
