// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include <chrono>
#include <cstdint>
#include <cstdlib>

// Preloaded before the C library, this stops the clock that the game seeds its random generator
// with at MORVANE_FIXED_TIME, so that a test knows the sea it is going to sail. Without that
// variable the clock runs on.

namespace {

std::int64_t secondsNow() {
    using Clock = std::chrono::system_clock;
    const char* fixed = std::getenv("MORVANE_FIXED_TIME");
    return fixed == nullptr ? Clock::to_time_t(Clock::now()) : std::atoll(fixed);
}

template <typename Time> Time answer(Time* result) {
    const auto now = static_cast<Time>(secondsNow());
    if (result != nullptr) {
        *result = now;
    }
    return now;
}

} // namespace

// The header's own declaration of time() stands for one of these two only, whichever the compiler's
// options choose, so both are defined under other names.
extern "C" long preloadedTime(long* result) __asm__("time");
extern "C" std::int64_t preloadedTime64(std::int64_t* result) __asm__("__time64");

long preloadedTime(long* result) {
    return answer(result);
}

std::int64_t preloadedTime64(std::int64_t* result) {
    return answer(result);
}
