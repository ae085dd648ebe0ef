// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

// The calendar clock, from which the game seeds its random generator. It stands still at the number
// of seconds in the environment variable MORVANE_FIXED_TIME and runs on where there is none. The
// same code is linked to programs and preloaded before the real game.

// Stops the clock of this process.
void stopClock(std::int64_t seconds);
