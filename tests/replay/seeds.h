// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include "counts.h"

// Ten thousand scripts that a seeded player makes up. Each has a line with its expected result in
// seeds.expected: seed, frames, mode at the end, winner (0 for none), both ships' last hit points,
// the hash of all states, and the last three digits of that hash after every hundredth frame.

struct SeedChoice {
    int first; // and every step-th seed after it
    int step;
    bool drawn; // moves every pixel, to prove that it makes no difference
};

// Replays the chosen scripts and prints the differences. Returns true when there was none.
bool replaySeeds(const SeedChoice& choice, Counts& counts);

// Replays all scripts and rewrites the expected results.
void renewSeeds();

// Shows the state after one frame of a seed's script.
void showSeed(int seed, int frame);
