// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "counts.h"

// The written scripts in scripts/, NAME.txt, each with what it must come to in NAME.expected: the
// hash of all states after every fiftieth frame, the display after chosen frames, and the last
// state in words.

// Replays all scripts, or only the one named, and shows what came out differently. Without drawing
// no pixel moves and the displays are not compared. Returns true when nothing was different.
bool replayScripts(const std::string& only, bool drawn, Counts& counts);

// Replays all, or only the one named, and rewrites what is expected.
void renewScripts(const std::string& only);

// Shows the state after one frame of a script and, when a file is named, writes the display there.
void showScript(const std::string& name, int frame, const std::string& pictureFile);
