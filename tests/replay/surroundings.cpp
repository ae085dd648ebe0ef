// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "surroundings.h"

#include <cstdlib>

#include "main.h"
#include "programmode.h"

Surroundings surroundings;

Conductor::~Conductor() = default;

class PlayerShip;

namespace {

std::vector<SDL_Event> events;
std::size_t nextEvent = 0;
bool polling = false; // the frame has begun to poll
bool waiting = false; // the frame has polled all its events
ProgramMode* requested = nullptr;
std::vector<ProgramMode*> lost;

// The game never frees a mode whose request is replaced within the frame. Nobody can reach it any
// more, so the replay counts and frees it, lest long replays and leak checkers stumble over it.
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

int pollEvent(SDL_Event* event) {
    noteRequest();
    if (!polling) {
        if (surroundings.frame == 0) {
            // The classic library draws the pointer onto the display; no picture of the game's.
            SDL_ShowCursor(SDL_DISABLE);
        }
        polling = true;
        nextEvent = 0;
        events = surroundings.conductor->eventsOf(surroundings.frame);
    }
    if (nextEvent == events.size()) {
        waiting = true;
        return 0;
    }
    *event = events[nextEvent];
    ++nextEvent;
    return 1;
}

// The first look at the clock after polling is the one that begins the wait for the frame's end.
Uint32 getTicks() {
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

long noteDraw(long drawn) {
    ++surroundings.draws;
    surroundings.lastDraw = drawn;
    return drawn;
}

} // namespace

// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the linker's names
extern "C" {

int __real_rand();
long __real_random();
void __real__ZN10PlayerShip6wasHitEv(PlayerShip* ship);

int __wrap_SDL_PollEvent(SDL_Event* event) {
    return pollEvent(event);
}

Uint32 __wrap_SDL_GetTicks() {
    return getTicks();
}

void __wrap_SDL_Delay(Uint32 ms) {
    surroundings.ticks += ms;
}

int __wrap_rand() {
    return static_cast<int>(noteDraw(__real_rand()));
}

long __wrap_random() {
    return noteDraw(__real_random());
}

// PlayerShip::wasHit(), the one place that may ask for a mode twice within one update.
void __wrap__ZN10PlayerShip6wasHitEv(PlayerShip* ship) {
    noteRequest();
    __real__ZN10PlayerShip6wasHitEv(ship);
}

} // extern "C"
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)
