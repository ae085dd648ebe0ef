// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "timing.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

#include <SDL.h>

namespace {

const int eventsPerDisturbedFrame = 100; // SDL 1.2 keeps at most 128
const std::size_t framesBetweenHoldUps = 50;
const std::chrono::milliseconds holdUp(40);

struct Frame {
    double start;
    int eventsWaiting;
    int eventsLeft;
};

const char* const file = std::getenv("MORVANE_TIMES");
double started = 0;
double firstFlip = 0;

// Never destroyed: the game may still flip while it ends.
std::vector<Frame>& frames() {
    static auto& all = *new std::vector<Frame>;
    return all;
}

double now() {
    return std::chrono::duration<double, std::milli>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

int waitingEvents() {
    std::array<SDL_Event, 128> events;
    return SDL_PeepEvents(events.data(), static_cast<int>(events.size()), SDL_PEEKEVENT,
                          SDL_ALLEVENTS);
}

} // namespace

bool isDisturbed() {
    static const bool disturbed = std::getenv("MORVANE_DISTURB") != nullptr;
    return disturbed;
}

void noteStart() {
    if (started == 0) {
        started = now();
    }
}

void noteFrame() {
    if (file == nullptr) {
        return;
    }
    frames().push_back({now(), 0, 0});
    if (isDisturbed()) {
        SDL_Event event = {};
        event.type = SDL_MOUSEMOTION;
        for (int i = 0; i < eventsPerDisturbedFrame; ++i) {
            SDL_PushEvent(&event);
        }
        frames().back().eventsWaiting = waitingEvents();
    }
}

// SDL 1.2 itself flips once while it sets up the display.
void noteFlip() {
    if (file == nullptr || frames().empty()) {
        return;
    }
    frames().back().eventsLeft = waitingEvents();
    if (firstFlip == 0) {
        firstFlip = now();
    }
    if (isDisturbed() && frames().size() % framesBetweenHoldUps == 0) {
        std::this_thread::sleep_for(holdUp);
    }
}

void writeTimes() {
    std::FILE* log = file == nullptr ? nullptr : std::fopen(file, "w");
    if (log == nullptr) {
        return;
    }
    std::fprintf(log, "%.6f %.6f\n", started, firstFlip);
    for (const Frame& frame : frames()) {
        std::fprintf(log, "%.6f %d %d\n", frame.start, frame.eventsWaiting, frame.eventsLeft);
    }
    std::fclose(log);
}
