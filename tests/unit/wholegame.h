// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <vector>

#include <gtest/gtest.h>

#include "eventsource.h"
#include "gamedata.h"
#include "librarycalls.h"

// Gives the main loop scripted events and a clock that moves only when told to, or by SDL_Delay,
// while it lives; one at a time. The calendar clock stands still meanwhile. Delays are noted among
// the LibraryCalls.
class VirtualFrames : public EventSource {
public:
    VirtualFrames();
    ~VirtualFrames() override;
    VirtualFrames(const VirtualFrames&) = delete;
    VirtualFrames& operator=(const VirtualFrames&) = delete;

    // What each frame polls. The frame after the last of them polls a quit event.
    std::vector<std::vector<SDL_Event>> events;
    std::function<void()> atStart; // runs when the first frame polls for the first time
    Uint32 time = 1000;            // milliseconds
    Uint32 oversleep = 0;          // what every SDL_Delay takes beyond what it was asked for

private:
    int poll(SDL_Event* event) override;
    Uint32 ticks() override;
    void delay(Uint32 milliseconds) override;

    std::size_t frame = 0;
    std::size_t next = 0; // event of the frame
};

// Runs the whole program in this process, on scripted events and a virtual clock, with the tests'
// own data in data/ below the working directory. It can be run once per test.
class WholeGameTest : public ::testing::Test {
protected:
    void SetUp() override;

    // Runs the program and returns its result.
    int run();

    TemporaryDirectory directory;
    VirtualFrames frames;
    LibraryCalls calls;
};
