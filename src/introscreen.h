// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>

#include "programmode.h"

// The first screen: for 600 frames, three pictures fade in one after the other. The main menu
// follows, and shows the last of these pictures behind its panel. Any key press or mouse button
// release skips the intro.
class IntroScreen : public ProgramMode {
public:
    IntroScreen();
    ~IntroScreen() override;

    void event(SDL_Event* e) override;
    // Advances the intro by one frame.
    void update() override;
    void cleanUp() override;

    int frameCounter; // updates so far
    SDL_Surface* buf; // owned; the picture that is fading in, the size of the display
};
