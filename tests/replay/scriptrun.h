// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "childprocess.h"
#include "script.h"

// A frame whose state is reported; its display is saved if pictureFile is not empty.
struct Look {
    int frame = -1;
    std::string pictureFile;
};

// Runs the whole program on a script and returns the lines of a file of expected results. With a
// look, it reports only the state after that frame.
Outcome runScript(const Script& script, bool drawn, const Look& look = {});
