// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "counts.h"

// The written scripts, scripts/NAME.txt, with the expected results in NAME.expected: the hash of
// all states after every fiftieth frame, the hash of the display after chosen frames, and every
// field of the last state.

// Replays all scripts, or only the named one, and prints the differences. Without drawing, no pixel
// is moved and the displays are not compared. Returns true when there was no difference.
bool replayScripts(const std::string& only, bool drawn, Counts& counts);

// Replays all scripts, or only the named one, and rewrites the expected results.
void renewScripts(const std::string& only);

// Prints the state after one frame of a script. Saves the display if a file is named.
void showScript(const std::string& name, int frame, const std::string& pictureFile);
