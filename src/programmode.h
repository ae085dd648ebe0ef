// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>

// One screen of the game: intro, menu, battle or a text screen. Exactly one is active at a time.
// A mode leaves by storing a newly allocated successor in newProgramMode and returning; it never
// deletes itself and never touches activeProgramMode. The main loop owns every mode handed to it.
class ProgramMode {
public:
    virtual ~ProgramMode();

    // Receives every event polled while the mode is active, quit and key events included, after
    // the key table has been brought up to date. The event belongs to the main loop.
    virtual void event(SDL_Event* e) = 0;

    // Called once, right after the mode has become active through newProgramMode. The first mode
    // of the program is never activated.
    virtual void activate();

    // Called once per frame, after that frame's events. The mode draws and flips by itself.
    virtual void update();

    // For a mode's own clean-up; the main loop never calls it.
    virtual void cleanUp();
};
