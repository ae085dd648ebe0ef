// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "wholegame.h"

#include <cstdlib>
#include <string>

#include "events.h"
#include "fixedclock.h"

// The game's own entry point, renamed for the tests.
int morvaneMain(int argc, char** argv);

namespace {

const std::size_t patience = 10000; // frames; a loop that goes on after that never ends

} // namespace

VirtualFrames::VirtualFrames() {
    eventSource = this;
    stopClock(1000000);
}

VirtualFrames::~VirtualFrames() {
    eventSource = nullptr;
}

int VirtualFrames::poll(SDL_Event* event) {
    if (frame == 0 && next == 0 && atStart) {
        atStart();
    }
    if (frame > patience) {
        std::abort();
    }
    if (frame == events.size()) {
        events.push_back({otherEvent(SDL_QUIT)});
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

Uint32 VirtualFrames::ticks() {
    return time;
}

void VirtualFrames::delay(Uint32 milliseconds) {
    note("SDL_Delay(" + std::to_string(milliseconds) + ")");
    time += milliseconds + oversleep;
}

void WholeGameTest::SetUp() {
    makeGameData(directory.path / "data");
    std::filesystem::current_path(directory.path);
}

int WholeGameTest::run() {
    return morvaneMain(0, nullptr);
}
