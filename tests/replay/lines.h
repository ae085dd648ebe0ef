// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

// Text files of the replays, line by line.

std::vector<std::string> splitLines(const std::string& text);

// The lines of a file; none when there is no such file.
std::vector<std::string> readLines(const std::string& file);

// Prints text at once, so that it is not lost when the process ends.
void report(const std::string& text);

// Replaces the file.
void writeLines(const std::string& file, const std::vector<std::string>& lines);
