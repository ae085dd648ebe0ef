// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>

#include "programmode.h"

// The first screen: 600 frames in which three pictures fade in one after the other, then the main
// menu, whose first picture continues the last one. Any key press or mouse button release skips it.
class IntroScreen : public ProgramMode {
public:
    IntroScreen();
    ~IntroScreen() override;

    void event(SDL_Event* e) override;
    // One step of the timeline.
    void update() override;
    void cleanUp() override;

    int frameCounter; // updates so far
    SDL_Surface* buf; // owned; the picture that is fading in, the size of the display
};
