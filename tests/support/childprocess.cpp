// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "childprocess.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <regex>

#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const unsigned patience = 60; // seconds
const int cannotRun = 127;    // what a shell says

std::string contents(std::FILE* file) {
    std::string text;
    std::rewind(file);
    for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file)) {
        text += static_cast<char>(c);
    }
    std::fclose(file);
    return text;
}

int waitFor(pid_t child) {
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

} // namespace

Outcome runInChild(const std::function<void()>& function) {
    std::FILE* out = std::tmpfile();
    std::FILE* err = std::tmpfile();
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        dup2(fileno(out), STDOUT_FILENO);
        dup2(fileno(err), STDERR_FILENO);
        alarm(patience);
        function();
        std::cout.flush();
        std::fflush(nullptr);
        _exit(0);
    }
    const int status = waitFor(child);
    return {status, contents(out), contents(err)};
}

Outcome runProgram(const std::filesystem::path& program, const std::filesystem::path& directory,
                   const std::map<std::string, std::string>& environment) {
    return runInChild([&] {
        std::filesystem::current_path(directory);
        for (const auto& variable : environment) {
            setenv(variable.first.c_str(), variable.second.c_str(), 1);
        }
        prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
        prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH);
        execl(program.c_str(), program.c_str(), nullptr);
        _exit(cannotRun);
    });
}

std::string withoutSystemReasons(const std::string& messages) {
    static const std::regex openFailure("(Couldn't open [^:\n]*): [^\n]*");
    return std::regex_replace(messages, openFailure, "$1");
}
