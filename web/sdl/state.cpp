// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// Answers the page's questions about the game; the game itself does not know the page.
#include <emscripten.h>

#include "gamehandler.h"
#include "main.h"

// True during a battle. The page then asks before the player leaves, and gamepads steer the ships.
extern "C" EMSCRIPTEN_KEEPALIVE bool isBattle() {
    return dynamic_cast<GameHandler*>(activeProgramMode) != nullptr;
}
