// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <set>
#include <string>
#include <vector>

// Records the game's library calls with their arguments while it lives; one at a time. The calls
// are passed on to the libraries, except those of the mixer, which is always a fake. Calls between
// the libraries are not recorded. The linker's --wrap options name the recorded functions.
class LibraryCalls {
public:
    LibraryCalls();
    ~LibraryCalls();
    LibraryCalls(const LibraryCalls&) = delete;
    LibraryCalls& operator=(const LibraryCalls&) = delete;

    // The recorded calls of some functions only, given by their names.
    std::vector<std::string> of(const std::set<std::string>& functions) const;

    std::vector<std::string> log;
    // Calls that fail, with "out of luck" as SDL's error: every call of a function, given by its
    // name, or one call as it appears in the log.
    std::set<std::string> failing;
    // Whether fonts are only pretended, and calls that release objects do nothing.
    bool pretending = false;
};

// Adds a line of the test's own to the log; does nothing while nothing is recorded.
void note(const std::string& line);
