// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>

// A mixer without sound. --wrap redirects the game's calls of SDL_mixer to it.
struct FakeMixer {
    int playing = 0; // number of the track, 0 for none
    int loops = 0;   // requested for the last track

    // Counted since the start.
    int starts[4] = {}; // of each track; the first counts tracks that do not exist
    int halts = 0;

    // Sees each call that opens, plays or releases something, as in
    // "Mix_PlayMusic(data/music1.mp3, -1)", and returns true to let it fail; may be empty.
    std::function<bool(const std::string&)> onCall;
};

extern FakeMixer mixer;
