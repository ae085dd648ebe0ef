// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// frame_benchmark PART [NUMBER]: measures one part and prints a line of JSON for each result.
// Runs on the dummy drivers from a directory that holds data/.

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <string>

#include "battles.h"
#include "floors.h"
#include "frames.h"

namespace {

int usage() {
    std::fputs("usage: frame_benchmark battle|menu|intro|construction|growth|allocations|decoding|"
               "memory|pacing N|run N\n",
               stderr);
    return EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv) {
    const std::string part = argc > 1 ? argv[1] : "";
    const int number = argc > 2 ? std::atoi(argv[2]) : 0;
    const std::map<std::string, std::function<void()>> withGame = {
        {"battle", measureBattleFrames}, {"menu", measureMenuFrames},
        {"intro", measureIntroFrames},   {"construction", measureConstruction},
        {"growth", measureGrowth},       {"run", [number] { runBattleFrames(number); }},
    };
    const std::map<std::string, std::function<void()>> withoutGame = {
        {"decoding", measureDecoding},
        {"memory", measureMemory},
        {"pacing", [number] { measurePacing(number); }},
    };
    if (part == "allocations") {
        prepareGame();
        return countFrameWork();
    }
    if (withGame.count(part) != 0) {
        prepareGame();
        withGame.at(part)();
        return EXIT_SUCCESS;
    }
    if (withoutGame.count(part) != 0) {
        withoutGame.at(part)();
        return EXIT_SUCCESS;
    }
    return usage();
}
