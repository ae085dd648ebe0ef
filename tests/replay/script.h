// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include <SDL.h>

// A field of the battle that a script sets before a frame.
struct Setting {
    std::string field; // as in a state's description, such as ship1.x
    double value;
};

// A written replay; README.md describes the format.
struct Script {
    unsigned seed = 1;
    std::string pictures = "standard";
    int frames = 0; // then the window is closed
    std::map<int, std::vector<SDL_Event>> events;
    std::map<int, std::vector<Setting>> settings;
    std::set<int> shown; // frames after which the display is looked at
    // A seeded player of the named style takes part from frame playerFrom on.
    int playerFrom = -1;
    std::uint64_t playerSeed = 0;
    std::string playerStyle;
};

// Reads a script. A line that cannot be read ends the program with a message.
Script readScript(const std::string& file);
