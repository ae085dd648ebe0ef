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

    // The events of a frame; called when the main loop polls for the first time in it.
    virtual std::vector<SDL_Event> eventsOf(int frame) = 0;

    // Called once all work of the frame is done and the main loop begins to wait.
    virtual void frameEnded(int frame) = 0;
};

// The events, the time and the random numbers of a replay. --wrap redirects the game's own calls
// here, but not those that the libraries make.
struct Surroundings {
    Conductor* conductor = nullptr;
    int frame = 0;             // counted from 0
    Uint32 ticks = 1000;       // milliseconds; only waiting lets time pass
    bool keepsSurfaces = true; // false: new surfaces share their pixels, for replays without any

    // Counted since the start.
    std::uint64_t numbers = 0; // taken from the random generator
    long lastNumber = 0;
    int lostModes = 0; // requests for a mode that a later request of the same frame replaced
};

extern Surroundings surroundings;

// Runs the whole game in these surroundings and returns its result. The pictures are the name of
// one of the replays' two sets.
int runGame(const char* pictures);

const unsigned replayPatience = 1800; // seconds; longer than any run that makes progress

// Calls a function in a copy of this process, which exits with the function's result. A flip is
// only counted there.
Outcome runReplay(const std::function<int()>& function);
