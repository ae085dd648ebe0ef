// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include <cstdlib>
#include <ctime>

// Preloaded before the C library, this stops the clock that the game seeds its random generator
// with, so that a test knows the sea it is going to sail.
extern "C" time_t time(time_t* result) noexcept {
    const char* fixed = std::getenv("MORVANE_FIXED_TIME");
    const time_t now = fixed == nullptr ? 0 : static_cast<time_t>(std::atoll(fixed));
    if (result != nullptr) {
        *result = now;
    }
    return now;
}
