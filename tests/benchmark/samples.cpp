// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "samples.h"

#include <algorithm>
#include <cstdio>

double microsecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

double quantile(std::vector<double> values, double part) {
    std::sort(values.begin(), values.end());
    return values[static_cast<std::size_t>(part * static_cast<double>(values.size() - 1))];
}

void printSamples(const std::string& name, const char* unit, const std::vector<double>& values) {
    std::printf(R"({"name": "%s", "unit": "%s", "median": %.3f, "p99": %.3f})"
                "\n",
                name.c_str(), unit, quantile(values, 0.5), quantile(values, 0.99));
}

void printResult(const std::string& name, const char* unit, double value) {
    std::printf(R"({"name": "%s", "unit": "%s", "median": %.3f})"
                "\n",
                name.c_str(), unit, value);
}
