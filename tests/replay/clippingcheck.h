// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include "counts.h"

// Compares the rectangles that the clipping stand-in writes back with those of the library's own
// blit and fill, on many random rectangles. Returns true when all were equal.
bool clipsLikeTheLibrary(Counts& counts);
