// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include <gtest/gtest.h>

#include "childprocess.h"
#include "gamedata.h"
#include "librarycalls.h"
#include "virtualframes.h"

// Runs the whole program in this process, on scripted events and a virtual clock, with the tests'
// own data in data/ below the working directory. It can be run once per test.
class WholeGameTest : public ::testing::Test {
protected:
    void SetUp() override;

    // Runs the program and returns its result.
    int run();

    // Runs the program in a child process, for failures that end it, and leaves its calls in the
    // log.
    Outcome runToTheBitterEnd();

    TemporaryDirectory directory;
    VirtualFrames frames;
    LibraryCalls calls;
};
