// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <vector>

#include "hash.h"

// The states of a run, as a chain of hashes: each depends on all states before it. The hash is
// noted at intervals, so that two different records show where the runs began to differ.
class Record {
public:
    // The number of frames between two notes.
    explicit Record(int framesBetweenNotes);

    // Adds the current state of the game.
    void addFrame();

    int frames;
    Hash chain;
    std::vector<std::uint64_t> notes;

private:
    int interval;
};
