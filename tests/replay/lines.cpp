// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "lines.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

std::vector<std::string> splitLines(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> readLines(const std::string& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return splitLines(text.str());
}

void report(const std::string& text) {
    std::fputs(text.c_str(), stdout);
    std::fflush(stdout);
}

void writeLines(const std::string& file, const std::vector<std::string>& lines) {
    std::ofstream stream(file);
    for (const std::string& line : lines) {
        stream << line << "\n";
    }
    if (!stream.flush()) {
        std::perror(file.c_str());
        std::exit(1);
    }
}
