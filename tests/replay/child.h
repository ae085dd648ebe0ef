// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>

#include <sys/types.h>

// How a run in a copy of this process ended and what it reported.
struct Report {
    int status; // the exit status, or the number of the signal that ended it, negated
    std::string text;
};

// A copy of this process, seen from either side.
struct Copy {
    bool isThis; // true in the copy itself
    pid_t process;
    int pipe;
};

// Copies this process. The copy reports through report; one that hangs is ended after minutes.
Copy makeCopy();

// Waits for the end of a copy.
Report waitFor(const Copy& copy);

// Runs a function in a copy of this process, which exits with the function's result.
Report runInCopy(const std::function<int()>& function);

// Adds text to what the parent process will read; only in a copy.
void report(const std::string& text);
