// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <string>
#include <vector>

using Clock = std::chrono::steady_clock;

double microsecondsSince(Clock::time_point start);

// The value below which the given part (0 to 1) of the values lies; values must not be empty.
double quantile(std::vector<double> values, double part);

// Prints one line of JSON: the name, the unit, the median and the 99th percentile.
void printSamples(const std::string& name, const char* unit, const std::vector<double>& values);

// The same with a single number.
void printResult(const std::string& name, const char* unit, double value);
