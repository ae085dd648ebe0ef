// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <string>

// How a process ended and what it wrote on its two standard streams.
struct Outcome {
    int status; // the exit status, or the number of the signal that ended it, negated
    std::string out;
    std::string err;
};

// Runs a function in a copy of this process, which ends with status 0 when it returns. A copy that
// hangs is ended after a minute.
Outcome runInChild(const std::function<void()>& function);

// Runs a program without arguments in a directory, with some environment variables of its own.
// Reading rights count even for root, so that tests may take them away.
Outcome runProgram(const std::filesystem::path& program, const std::filesystem::path& directory,
                   const std::map<std::string, std::string>& environment);

// The messages without the system's own reason for a file that could not be opened, which newer
// libraries add after a colon.
std::string withoutSystemReasons(const std::string& messages);
