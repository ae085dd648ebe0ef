// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>

// The calendar clock of programs that link morvane_fixed_clock: what time() tells the game, in
// seconds, with which it seeds its random generator. Without a value the clock runs as it does
// elsewhere.
extern std::optional<std::int64_t> fixedSeconds;
