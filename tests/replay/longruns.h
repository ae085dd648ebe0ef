// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include "counts.h"

// A seeded player that plays on and on, from duel to duel.
struct LongRun {
    unsigned seed;
    int frames;
    bool watched; // draws few frames and watches the process for growth instead
};

// Returns true when the game went through it and, where watched, did not grow.
bool surviveLongRun(const LongRun& longRun, Counts& counts);
