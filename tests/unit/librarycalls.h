// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <set>
#include <string>
#include <vector>

// Records the game's calls of its libraries, arguments included, while it lives; one at a time.
// The calls go on to the libraries unless told otherwise, but those of the mixer, which is never
// real. What the libraries call among themselves is not seen. The linker's --wrap options name the
// functions that are recorded.
class LibraryCalls {
public:
    LibraryCalls();
    ~LibraryCalls();
    LibraryCalls(const LibraryCalls&) = delete;
    LibraryCalls& operator=(const LibraryCalls&) = delete;

    // The recorded calls of some functions only, given by their names.
    std::vector<std::string> of(const std::set<std::string>& functions) const;

    std::vector<std::string> log;
    // Calls that fail, with "out of luck" as SDL's reason: all of a function, given by its name,
    // or a single one as it stands in the log.
    std::set<std::string> failing;
    // Whether fonts are opened as names only, and calls that release things do nothing.
    bool pretending = false;
};

// Adds a line of the test's own to the log; does nothing while nothing is recorded.
void note(const std::string& line);
