// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

// The number of frames between two noted hashes.
const int framesBetweenSeedNotes = 100;

// Replays the scripts of some seeds with one set of pictures, each in a process of its own. Returns
// a line for each: the result as in seeds.expected, or what went wrong.
std::vector<std::string> runSeeds(const std::vector<int>& seeds, const char* pictures, bool drawn);

// The state after one frame of a seed's script, line by line.
std::vector<std::string> stateInSeed(int seed, const char* pictures, int frame);
