// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "scripts.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <map>
#include <sstream>
#include <vector>

#include "lines.h"
#include "scriptrun.h"

namespace fs = std::filesystem;

namespace {

// All written scripts, the one with this name, or any other script by its path.
std::vector<fs::path> chosenScripts(const std::string& only) {
    if (fs::path(only).extension() == ".txt") {
        return {only};
    }
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(MORVANE_REPLAYS "/scripts")) {
        if (entry.path().extension() == ".txt" && (only.empty() || entry.path().stem() == only)) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::string expectedFileOf(fs::path script) {
    return script.replace_extension(".expected");
}

bool isDisplay(const std::string& line) {
    return line.find(" display ") != std::string::npos; // "display.flips" is none
}

bool isStates(const std::string& line) {
    return line.find(" states ") != std::string::npos;
}

std::vector<std::string> resultOf(const fs::path& file, bool drawn) {
    const Outcome result = runScript(readScript(file), drawn);
    std::vector<std::string> lines = splitLines(result.out);
    lines.push_back("end exit " + std::to_string(result.status));
    return lines;
}

// The last word of a line is a value, the words before it are its name.
std::map<std::string, std::string> valuesOf(const std::vector<std::string>& lines) {
    std::map<std::string, std::string> values;
    for (const std::string& line : lines) {
        const std::size_t space = line.rfind(' ');
        values[line.substr(0, space)] += line.substr(space);
    }
    return values;
}

// Prints the range of frames in which two results begin to differ.
void showParting(const std::vector<std::string>& expected, const std::vector<std::string>& seen) {
    int agreed = -1;
    for (const std::string& line : expected) {
        int frame = 0;
        if (!isStates(line) || std::sscanf(line.c_str(), "frame %d", &frame) != 1) {
            continue;
        }
        if (std::find(seen.begin(), seen.end(), line) == seen.end()) {
            std::printf("    the states part in frames %d to %d\n", agreed + 1, frame);
            return;
        }
        agreed = frame;
    }
}

void showDifference(const std::vector<std::string>& expected,
                    const std::vector<std::string>& seen) {
    showParting(expected, seen);
    const std::map<std::string, std::string> wanted = valuesOf(expected);
    std::map<std::string, std::string> found = valuesOf(seen);
    int displays = 0;
    for (const std::string& line : expected) {
        const std::string name = line.substr(0, line.rfind(' '));
        const std::string& value = wanted.at(name);
        if (found[name] == value || isStates(line)) {
            continue;
        }
        if (!isDisplay(line)) {
            std::printf("    %s: expected%s, seen%s\n", name.substr(4).c_str(), value.c_str(),
                        found[name].empty() ? " nothing" : found[name].c_str());
        } else if (++displays <= 3) {
            std::printf("    the display differs after %s\n",
                        name.substr(0, name.rfind(' ')).c_str());
        }
    }
    if (displays > 3) {
        std::printf("    and after %d other frames\n", displays - 3);
    }
}

void count(const std::vector<std::string>& lines, bool drawn, Counts& counts) {
    ++counts[drawn ? "scripts" : "scripts_undrawn"];
    for (const std::string& line : lines) {
        int frames = 0;
        counts["displays"] += isDisplay(line) ? 1 : 0;
        if (std::sscanf(line.c_str(), "end frames %d", &frames) == 1) {
            counts["frames"] += frames;
            counts["frames_drawn"] += drawn ? frames : 0;
        }
    }
}

} // namespace

bool replayScripts(const std::string& only, bool drawn, Counts& counts) {
    bool same = true;
    for (const fs::path& file : chosenScripts(only)) {
        std::vector<std::string> expected = readLines(expectedFileOf(file));
        if (!drawn) {
            expected.erase(std::remove_if(expected.begin(), expected.end(), isDisplay),
                           expected.end());
        }
        const std::vector<std::string> seen = resultOf(file, drawn);
        count(seen, drawn, counts);
        if (expected != seen) {
            std::printf("%s came out differently:\n", file.stem().c_str());
            showDifference(expected, seen);
            same = false;
        }
    }
    return same && counts["frames"] > 0;
}

void renewScripts(const std::string& only) {
    for (const fs::path& file : chosenScripts(only)) {
        writeLines(expectedFileOf(file), resultOf(file, true));
    }
}

void showScript(const std::string& name, int frame, const std::string& pictureFile) {
    for (const fs::path& file : chosenScripts(name)) {
        const Outcome result = runScript(readScript(file), true, {frame, pictureFile});
        std::printf("%s", result.out.c_str());
    }
}
