// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "childprocess.h"
#include "script.h"

// What to report besides the state after a frame; no picture when its file has no name.
struct Look {
    int frame = -1;
    std::string pictureFile;
};

// Runs the whole program, from its start to its end, on a script and returns lines as they stand
// in a file of expected results. With a look it reports only the state after that frame.
Outcome runScript(const Script& script, bool drawn, const Look& look = {});
