// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// Replays the game from scripts; README.md tells how to use it.

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "clippingcheck.h"
#include "counts.h"
#include "longruns.h"
#include "scripts.h"
#include "seeds.h"

namespace {

using Arguments = std::vector<std::string>;

int numberOf(const std::string& word) {
    return std::atoi(word.c_str());
}

int printUsage() {
    std::fputs(
        "usage: replay [--counts FILE] COMMAND\n"
        "  scripts [NAME]            replay the written scripts\n"
        "  scripts-undrawn [NAME]    the same without moving a pixel\n"
        "  seeds FIRST STEP          replay the scripts of every STEP-th seed\n"
        "  seeds-drawn FIRST STEP    the same, moving every pixel\n"
        "  clipping                  compare the clipping stand-in with the library\n"
        "  monkey SEED FRAMES        random input, everything drawn\n"
        "  night SEED FRAMES         the same with few frames drawn, watching for growth\n"
        "  show SEED FRAME           the state of a seed's script after a frame\n"
        "  show NAME FRAME [BMP]     the same of a written script, or of a FILE.txt, and its\n"
        "                            display\n"
        "  renew-scripts [NAME]      take what is seen for what is expected\n"
        "  renew-seeds\n",
        stderr);
    return 2;
}

bool isNumber(const std::string& word) {
    return word.find_first_not_of("0123456789") == std::string::npos;
}

void show(const Arguments& arguments) {
    if (isNumber(arguments[1])) {
        showSeed(numberOf(arguments[1]), numberOf(arguments[2]));
    } else {
        showScript(arguments[1], numberOf(arguments[2]), arguments.size() > 3 ? arguments[3] : "");
    }
}

// Returns the exit status.
int run(const Arguments& arguments, Counts& counts) {
    const std::string command = arguments.empty() ? "" : arguments[0];
    const std::string name = arguments.size() > 1 ? arguments[1] : "";
    const bool hasTwo = arguments.size() > 2;
    bool good = true;
    if (command == "scripts" || command == "scripts-undrawn") {
        good = replayScripts(name, command == "scripts", counts);
    } else if ((command == "seeds" || command == "seeds-drawn") && hasTwo) {
        const SeedChoice choice = {numberOf(name), numberOf(arguments[2]),
                                   command == "seeds-drawn"};
        good = choice.step > 0 && replaySeeds(choice, counts);
    } else if (command == "clipping") {
        good = clipsLikeTheLibrary(counts);
    } else if ((command == "monkey" || command == "night") && hasTwo) {
        const LongRun longRun = {static_cast<unsigned>(numberOf(name)), numberOf(arguments[2]),
                                 command == "night"};
        good = surviveLongRun(longRun, counts);
    } else if (command == "show" && hasTwo) {
        show(arguments);
    } else if (command == "renew-scripts") {
        renewScripts(name);
    } else if (command == "renew-seeds") {
        renewSeeds();
    } else {
        return printUsage();
    }
    return good ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    // A replay shows and sounds nothing, whatever drivers there are.
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_AUDIODRIVER", "dummy", 1);
    Arguments arguments(argv + 1, argv + argc);
    std::string countsFile;
    if (arguments.size() > 1 && arguments[0] == "--counts") {
        countsFile = arguments[1];
        arguments.erase(arguments.begin(), arguments.begin() + 2);
    }
    Counts counts;
    const int status = run(arguments, counts);
    printCounts(counts);
    if (status == 0 && !countsFile.empty()) {
        writeCounts(countsFile, counts);
    }
    return status;
}
