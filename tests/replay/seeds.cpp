// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "seeds.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "lines.h"
#include "seedrun.h"

namespace {

const int seedCount = 10000;
const int noteDigits = 3;
const std::size_t shownSeeds = 10;
const char* const expectedFile = MORVANE_REPLAYS "/seeds.expected";

// Every tenth seed plays with the awkward pictures.
const char* picturesOf(int seed) {
    return seed % 10 == 9 ? "awkward" : "standard";
}

const char* const columns[] = {"seed",        "frames",      "mode at the end", "winner",
                               "ship 1's hp", "ship 2's hp", "hash of states",  "notes"};
using Row = std::array<std::string, 8>;

Row rowOf(const std::string& line) {
    Row row;
    std::istringstream stream(line);
    for (std::string& cell : row) {
        stream >> cell;
    }
    return row;
}

int numberIn(const std::string& line) {
    return std::atoi(line.c_str());
}

// The first range of frames in which the notes differ.
std::string partingOf(const Row& expected, const Row& seen) {
    const std::string& a = expected[7];
    const std::string& b = seen[7];
    std::size_t i = 0;
    while (i < a.size() && i < b.size() && a[i] == b[i]) {
        ++i;
    }
    const int note = static_cast<int>(i) / noteDigits;
    return std::to_string(note * framesBetweenSeedNotes) + " to " +
           std::to_string((note + 1) * framesBetweenSeedNotes - 1);
}

void showDifference(const std::string& expectedLine, const std::string& seenLine) {
    const Row expected = rowOf(expectedLine);
    const Row seen = rowOf(seenLine);
    std::printf("seed %s: the states part in frames %s\n", expected[0].c_str(),
                partingOf(expected, seen).c_str());
    for (std::size_t i = 0; i + 1 < expected.size(); ++i) {
        if (expected[i] != seen[i]) {
            std::printf("    %-16s expected %s, seen %s\n", columns[i], expected[i].c_str(),
                        seen[i].c_str());
        }
    }
}

// In the order of the seeds.
std::vector<std::string> endsOf(const SeedChoice& choice) {
    std::vector<std::string> ends(seedCount);
    for (const char* pictures : {"standard", "awkward"}) {
        std::vector<int> seeds;
        for (int seed = choice.first; seed < seedCount; seed += choice.step) {
            if (std::string(picturesOf(seed)) == pictures) {
                seeds.push_back(seed);
            }
        }
        if (seeds.empty()) {
            continue;
        }
        for (const std::string& line : runSeeds(seeds, pictures, choice.drawn)) {
            const int seed = numberIn(line);
            if (seed >= 0 && seed < seedCount && line[0] >= '0' && line[0] <= '9') {
                ends[static_cast<std::size_t>(seed)] = line;
            } else {
                std::printf("%s\n", line.c_str());
            }
        }
    }
    return ends;
}

} // namespace

bool replaySeeds(const SeedChoice& choice, Counts& counts) {
    const std::vector<std::string> expected = readLines(expectedFile);
    if (expected.size() != seedCount) {
        std::printf("%s has %zu lines instead of %d.\n", expectedFile, expected.size(), seedCount);
        return false;
    }
    const std::vector<std::string> seen = endsOf(choice);
    std::size_t differences = 0;
    int chosen = 0;
    for (int seed = choice.first; seed < seedCount; seed += choice.step) {
        const auto i = static_cast<std::size_t>(seed);
        const Row row = rowOf(seen[i]);
        ++counts[choice.drawn ? "seeds_drawn" : "seeds"];
        ++chosen;
        counts["duels_won"] += row[3] == "1" || row[3] == "2" ? 1 : 0;
        counts["frames"] += numberIn(row[1]);
        if (seen[i] != expected[i]) {
            ++differences;
            if (differences <= shownSeeds) {
                showDifference(expected[i], seen[i]);
            }
        }
    }
    std::printf("%zu of %d scripts ended differently.\n", differences, chosen);
    return differences == 0 && chosen > 0;
}

void renewSeeds() {
    writeLines(expectedFile, endsOf({0, 1, false}));
}

void showSeed(int seed, int frame) {
    for (const std::string& line : stateInSeed(seed, picturesOf(seed), frame)) {
        std::printf("%s\n", line.c_str());
    }
}
