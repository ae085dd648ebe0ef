// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "record.h"

#include <cstdio>
#include <string>

#include <unistd.h>

#include "state.h"

// The game's own entry point, renamed for the tests.
int morvaneMain(int argc, char** argv);

Record::Record(int framesBetweenNotes) : frames(0), interval(framesBetweenNotes) {}

void Record::addFrame() {
    chain.add(hashOfState());
    ++frames;
    if (frames % interval == 0) {
        notes.push_back(chain.value);
    }
}

int runGame(const char* pictures) {
    const std::string directory = std::string(MORVANE_REPLAYS "/pictures/") + pictures;
    if (chdir(directory.c_str()) != 0) {
        std::perror(directory.c_str());
        return 1;
    }
    return morvaneMain(0, nullptr);
}
