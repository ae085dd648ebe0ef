// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>

#include "programmode.h"

// Shows the controls of both players.
class HelpScreen : public ProgramMode {
public:
    ~HelpScreen() override;

    void event(SDL_Event* e) override;
    // Draws and shows the whole screen.
    void activate() override;
};
