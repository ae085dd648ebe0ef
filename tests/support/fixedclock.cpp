// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "fixedclock.h"

#include <chrono>
#include <cstdlib>
#include <string>

namespace {

const char* const variable = "MORVANE_FIXED_TIME";

template <typename Time> Time answer(Time* result) {
    using Clock = std::chrono::system_clock;
    const char* fixed = std::getenv(variable);
    const std::int64_t seconds =
        fixed == nullptr ? Clock::to_time_t(Clock::now()) : std::atoll(fixed);
    const auto now = static_cast<Time>(seconds);
    if (result != nullptr) {
        *result = now;
    }
    return now;
}

} // namespace

void stopClock(std::int64_t seconds) {
    setenv(variable, std::to_string(seconds).c_str(), 1);
}

// The C library has two entries for the clock where a long has 32 bits, and the header's own
// declaration stands for one of them, whichever the compiler's options choose. So both are defined
// under other names.
extern "C" long fixedTime(long* result) __asm__("time");
extern "C" std::int64_t fixedTime64(std::int64_t* result) __asm__("__time64");

long fixedTime(long* result) {
    return answer(result);
}

std::int64_t fixedTime64(std::int64_t* result) {
    return answer(result);
}
