// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "figures.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>

void writeFigures(const std::string& file, const Figures& figures) {
    std::ofstream stream(file);
    for (const auto& figure : figures) {
        stream << figure.first << " " << figure.second << "\n";
    }
    if (!stream.flush()) {
        std::perror(file.c_str());
        std::exit(1);
    }
}

void printFigures(const Figures& figures) {
    for (const auto& figure : figures) {
        std::printf("%-24s %ld\n", figure.first.c_str(), figure.second);
    }
}
