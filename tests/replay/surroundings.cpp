// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "surroundings.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>

#include <unistd.h>

#include "drawing.h"
#include "eventsource.h"
#include "main.h"
#include "programmode.h"

// The game's own entry point, renamed for the tests.
int morvaneMain(int argc, char** argv);

Surroundings surroundings;

Conductor::~Conductor() = default;

class PlayerShip;

namespace {

std::vector<SDL_Event> pending;
std::size_t nextEvent = 0;
bool polling = false; // the main loop has begun to poll in this frame
bool waiting = false; // it has polled all events
ProgramMode* requested = nullptr;
std::vector<ProgramMode*> lost;

// The game never frees a mode whose request is replaced within the frame. The replay counts such
// modes and frees them, so that they are not reported as leaks.
void noteRequest() {
    if (requested != nullptr && newProgramMode != requested && activeProgramMode != requested) {
        lost.push_back(requested);
    }
    requested = newProgramMode;
}

void freeLostModes() {
    surroundings.lostModes += static_cast<int>(lost.size());
    for (ProgramMode* mode : lost) {
        delete mode;
    }
    lost.clear();
}

class ReplayedEvents : public EventSource {
    int poll(SDL_Event* event) override;
    Uint32 ticks() override;

    void delay(Uint32 milliseconds) override {
        surroundings.ticks += milliseconds;
    }
};

int ReplayedEvents::poll(SDL_Event* event) {
    noteRequest();
    if (!polling) {
        if (surroundings.frame == 0) {
            // The classic library would draw the pointer onto the display.
            SDL_ShowCursor(SDL_DISABLE);
        }
        polling = true;
        nextEvent = 0;
        pending = surroundings.conductor->eventsOf(surroundings.frame);
    }
    if (nextEvent == pending.size()) {
        waiting = true;
        return 0;
    }
    *event = pending[nextEvent];
    ++nextEvent;
    return 1;
}

// The first reading of the clock after polling begins the wait for the end of the frame.
Uint32 ReplayedEvents::ticks() {
    if (waiting) {
        noteRequest();
        freeLostModes();
        waiting = false;
        polling = false;
        surroundings.conductor->frameEnded(surroundings.frame);
        ++surroundings.frame;
    }
    return surroundings.ticks;
}

long noteNumber(long number) {
    ++surroundings.numbers;
    surroundings.lastNumber = number;
    return number;
}

} // namespace

int runGame(const char* pictures) {
    const std::string directory = std::string(MORVANE_REPLAYS "/pictures/") + pictures;
    if (chdir(directory.c_str()) != 0) {
        std::perror(directory.c_str());
        return 1;
    }
    ReplayedEvents events;
    eventSource = &events;
    return morvaneMain(0, nullptr);
}

Outcome runReplay(const std::function<int()>& function) {
    Outcome outcome = runInChild(
        [&] {
            // Nobody looks at the window, and sdl12-compat takes milliseconds to show it.
            drawing.showsPixels = false;
            std::exit(function());
        },
        replayPatience);
    std::cerr << outcome.err;
    return outcome;
}

extern "C" {

int __real_rand();
long __real_random();
void __real__ZN10PlayerShip6wasHitEv(PlayerShip* ship);

int __wrap_rand() {
    return static_cast<int>(noteNumber(__real_rand()));
}

long __wrap_random() {
    return noteNumber(__real_random());
}

// PlayerShip::wasHit(), the one place that may ask for a mode twice within one update.
void __wrap__ZN10PlayerShip6wasHitEv(PlayerShip* ship) {
    noteRequest();
    __real__ZN10PlayerShip6wasHitEv(ship);
}

} // extern "C"
