// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "wholegame.h"

// The game's own entry point, renamed for the tests.
int morvaneMain(int argc, char** argv);

void WholeGameTest::SetUp() {
    makeGameData(directory.path / "data");
    std::filesystem::current_path(directory.path);
}

int WholeGameTest::run() {
    return morvaneMain(0, nullptr);
}
