// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "testrandom.h"

TestRandom::TestRandom(std::uint64_t seed) : state(seed * 0x9e3779b97f4a7c15 + 1) {}

std::uint64_t TestRandom::next() {
    state += 0x9e3779b97f4a7c15;
    std::uint64_t z = state;
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9;
    z = (z ^ (z >> 27)) * 0x94d049bb133111eb;
    return z ^ (z >> 31);
}

int TestRandom::below(int limit) {
    return static_cast<int>(next() % static_cast<std::uint64_t>(limit));
}

bool TestRandom::chance(int percent) {
    return below(100) < percent;
}
