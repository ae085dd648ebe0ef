// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include "counts.h"

// Ten thousand scripts that a seeded player makes up, each with the end it must come to. Their
// ends stand in seeds.expected, a line for each: seed, frames, mode at the end, winner (0 for
// none), both ships' last hit points, the hash of all states, and the last three digits of the
// hash as it was after every hundredth frame.

struct SeedChoice {
    int first; // and every step-th seed after it
    int step;
    bool drawn; // moves every pixel, to prove that it makes no difference
};

// Replays the chosen scripts and shows what came out differently. Returns true when nothing did.
bool replaySeeds(const SeedChoice& choice, Counts& counts);

// Replays all and rewrites the expected ends.
void renewSeeds();

// Shows the state after one frame of a seed's script.
void showSeed(int seed, int frame);
