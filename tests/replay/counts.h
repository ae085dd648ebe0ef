// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <map>
#include <string>

// What the replays counted, by name; a file of counts has a line for each: name, space, number.
using Counts = std::map<std::string, long>;

// Writes the counts of one run into a file of their own, for the sum over all runs.
void writeCounts(const std::string& file, const Counts& counts);

// Shows them on the standard output.
void printCounts(const Counts& counts);
