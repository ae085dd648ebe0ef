// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <vector>

#include "hash.h"

// The states a run went through, as a chain of hashes: each depends on all states before it. Now
// and then it is noted down, so that two records that differ tell where they part.
class Record {
public:
    // The chain is noted after every so many frames.
    explicit Record(int framesBetweenNotes);

    // Adds the state the game is in now.
    void addFrame();

    int frames;
    Hash chain;
    std::vector<std::uint64_t> notes;

private:
    int interval;
};
