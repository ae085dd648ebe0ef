// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

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

    TemporaryDirectory directory;
    VirtualFrames frames;
    LibraryCalls calls;
};
