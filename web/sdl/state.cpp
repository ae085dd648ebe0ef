// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// What the page may ask about the game, which knows nothing of the page.
#include <emscripten.h>

#include "gamehandler.h"
#include "main.h"

// True during a battle: the page then asks before it is left, and gamepads steer ships.
extern "C" EMSCRIPTEN_KEEPALIVE bool isBattle() {
    return dynamic_cast<GameHandler*>(activeProgramMode) != nullptr;
}
