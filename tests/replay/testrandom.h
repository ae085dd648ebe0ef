// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

// The random generator of the replays, separate from the game's.
class TestRandom {
public:
    explicit TestRandom(std::uint64_t seed);

    std::uint64_t next();
    int below(int limit); // 0 to limit - 1
    bool chance(int percent);

private:
    std::uint64_t state;
};
