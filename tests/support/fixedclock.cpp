// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "fixedclock.h"

#include <chrono>

std::optional<std::int64_t> fixedSeconds;

namespace {

std::int64_t secondsNow() {
    using Clock = std::chrono::system_clock;
    return fixedSeconds.value_or(Clock::to_time_t(Clock::now()));
}

} // namespace

// The C library has two entries for the clock where a long has 32 bits, and the compiler's options
// decide which of them time() is: time, with the library's older time_t, a long, and __time64.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the linker's names
extern "C" {

long __wrap_time(long* /*result*/) {
    return static_cast<long>(secondsNow());
}

std::int64_t __wrap___time64(std::int64_t* /*result*/) {
    return secondsNow();
}

} // extern "C"
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)
