// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include <SDL.h>

#include "childprocess.h"

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

// What surrounds the game in a replay: events, time, random numbers and the mixer. --wrap redirects
// the game's calls; what the libraries call among themselves is not touched.
struct Surroundings {
    Conductor* conductor = nullptr;
    int frame = 0;             // counted from 0
    Uint32 ticks = 1000;       // milliseconds; only waiting lets time pass
    bool keepsSurfaces = true; // false: new surfaces share their pixels, for replays without any

    // Counted since the start.
    std::uint64_t draws = 0; // from the random generator
    long lastDraw = 0;
    int starts[4] = {}; // of each music track; the first counts tracks that do not exist
    int halts = 0;
    int playing = 0;   // track, 0 for none
    int loops = 0;     // that the last track was asked for
    int lostModes = 0; // requests for a mode that a later request of the same frame replaced
};

extern Surroundings surroundings;

// Runs the whole game in these surroundings and returns its result. The pictures are the name of
// one of the replays' two sets.
int runGame(const char* pictures);

const unsigned replayPatience = 1800; // seconds; longer than any run that makes progress

// Calls a function in a copy of this process, which exits with the function's result.
Outcome runReplay(const std::function<int()>& function);
