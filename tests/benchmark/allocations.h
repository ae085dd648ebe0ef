// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

// Counts the allocations of this thread, by the game and by the libraries.

struct Allocations {
    long byGame = 0;      // operator new
    long byLibraries = 0; // malloc, calloc, realloc and the aligned ones, called by anybody else
};

// Counting is off at the start. Returns whether it was on.
bool countAllocations(bool on);
Allocations countedAllocations();
