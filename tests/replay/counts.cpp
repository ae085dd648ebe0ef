// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "counts.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>

void writeCounts(const std::string& file, const Counts& counts) {
    std::ofstream stream(file);
    for (const auto& count : counts) {
        stream << count.first << " " << count.second << "\n";
    }
    if (!stream.flush()) {
        std::perror(file.c_str());
        std::exit(1);
    }
}

void printCounts(const Counts& counts) {
    for (const auto& count : counts) {
        std::printf("%-24s %ld\n", count.first.c_str(), count.second);
    }
}
