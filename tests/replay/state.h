// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <vector>

// The state of the whole game between two frames: the main loop's globals, the keys, the active and
// the pending mode with all their fields, the music and the use of random numbers. Fields that no
// rule uses are left out.

// A hash of the state; equal states have equal hashes in every process.
std::uint64_t hashOfState();

// The same in words, a line for each field: its name, a space and its value.
std::vector<std::string> describeState();

// The class of the active mode, or "none".
const char* activeModeName();
