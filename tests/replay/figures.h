// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <map>
#include <string>

// What the replays counted, by name; a file of figures has a line for each: name, space, number.
using Figures = std::map<std::string, long>;

// Writes the figures of one run into a file of their own, for the sum over all runs.
void writeFigures(const std::string& file, const Figures& figures);

// Shows them on the standard output.
void printFigures(const Figures& figures);
