// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdio>
#include <functional>
#include <string>

#include <sys/types.h>

// How a process ended and what it wrote on its two standard streams.
struct Outcome {
    int status; // the exit status, or the number of the signal that ended it, negated
    std::string out;
    std::string err;
};

// A fork of this process. Its output is kept until waitFor.
struct Child {
    pid_t process; // 0 in the child itself
    std::FILE* out;
    std::FILE* err;
};

const unsigned childPatience = 60; // seconds

// Forks this process. A child that still runs after so many seconds is killed.
Child makeChild(unsigned patience = childPatience);

Outcome waitFor(const Child& child);

// Runs a function in a fork of this process, which ends with status 0 when the function returns.
Outcome runInChild(const std::function<void()>& function, unsigned patience = childPatience);
