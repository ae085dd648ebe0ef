// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "virtualframes.h"

#include <cstdlib>
#include <string>

#include "fixedclock.h"
#include "librarycalls.h"

namespace {

VirtualFrames* frames = nullptr;
const std::size_t patience = 10000; // frames; a loop that goes on after that never ends

} // namespace

VirtualFrames::VirtualFrames() : ticks(1000), oversleep(0), frame(0), next(0) {
    frames = this;
    fixedSeconds = 1000000;
}

VirtualFrames::~VirtualFrames() {
    frames = nullptr;
    fixedSeconds.reset();
}

int VirtualFrames::poll(SDL_Event* event) {
    if (frame == 0 && next == 0 && atStart) {
        atStart();
    }
    if (frame > patience) {
        std::abort();
    }
    if (frame == events.size()) {
        SDL_Event quit = {};
        quit.type = SDL_QUIT;
        events.push_back({quit});
    }
    if (next == events[frame].size()) {
        ++frame;
        next = 0;
        return 0;
    }
    *event = events[frame][next];
    ++next;
    return 1;
}

// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the linker's names
extern "C" {

int __real_SDL_PollEvent(SDL_Event* event);
Uint32 __real_SDL_GetTicks();
void __real_SDL_Delay(Uint32 ms);

int __wrap_SDL_PollEvent(SDL_Event* event) {
    return frames == nullptr ? __real_SDL_PollEvent(event) : frames->poll(event);
}

Uint32 __wrap_SDL_GetTicks() {
    return frames == nullptr ? __real_SDL_GetTicks() : frames->ticks;
}

void __wrap_SDL_Delay(Uint32 ms) {
    if (frames == nullptr) {
        __real_SDL_Delay(ms);
        return;
    }
    note("SDL_Delay(" + std::to_string(ms) + ")");
    frames->ticks += ms + frames->oversleep;
}

} // extern "C"
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)
