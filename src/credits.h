// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>

#include "programmode.h"

// Shows who made the game. leavesTextScreen says which events close it.
class Credits : public ProgramMode {
public:
    ~Credits() override;

    void event(SDL_Event* e) override;
    // Draws and shows the whole screen.
    void activate() override;
};
