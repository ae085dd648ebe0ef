// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include "counts.h"

// A seeded player that plays one duel after another.
struct LongRun {
    unsigned seed;
    int frames;
    bool watched; // draws few frames and watches the process for growth instead
};

// Returns true when the game survived and, if memory was watched, did not grow.
bool surviveLongRun(const LongRun& longRun, Counts& counts);
