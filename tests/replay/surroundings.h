// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <vector>

#include <SDL.h>

class ProgramMode;

// Decides what happens in a run of the game.
class Conductor {
public:
    virtual ~Conductor();

    // What the frame polls; called when it polls for the first time.
    virtual std::vector<SDL_Event> eventsOf(int frame) = 0;

    // Called once the frame has done all its work and begins to wait.
    virtual void frameEnded(int frame) = 0;
};

// Everything outside the game, as a replay has it: events, clocks, dice, orchestra and canvas.
// The linker's --wrap options lead the game's calls here; what the libraries call among themselves
// is not touched.
struct Surroundings {
    Conductor* conductor = nullptr;
    int frame = 0;             // counted from 0
    Uint32 ticks = 1000;       // milliseconds; only waiting lets time pass
    bool movesPixels = true;   // false: blits and fills only clip their rectangles
    bool showsPixels = true;   // false: a flip is only counted
    bool keepsSurfaces = true; // false: new surfaces share their pixels, for replays without any

    // Counted since the start.
    std::uint64_t draws = 0; // from the random generator
    long lastDraw = 0;
    int flips = 0;
    int starts[4] = {}; // of each music track; the first counts tracks that do not exist
    int halts = 0;
    int playing = 0;   // track, 0 for none
    int loops = 0;     // that the last track was asked for
    int lostModes = 0; // requests for a mode that a later request of the same frame replaced
};

extern Surroundings surroundings;
