// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <vector>

#include <SDL.h>

#include "testrandom.h"

// Adds to a player's events what must not matter: random values in the fields that no rule reads,
// such as modifiers, scancodes and characters, and sometimes a burst of a hundred other events.
class EventNoise {
public:
    explicit EventNoise(std::uint64_t seed);

    // The events of a frame, in their order, with noise.
    std::vector<SDL_Event> addTo(std::vector<SDL_Event> events);

private:
    SDL_Event fill(SDL_Event event);
    SDL_Event anyOther();

    TestRandom random;
};
