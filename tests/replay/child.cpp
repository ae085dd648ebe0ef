// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "child.h"

#include <cstdio>
#include <cstdlib>

#include <sys/wait.h>
#include <unistd.h>

namespace {

const unsigned patience = 1800; // seconds; longer than any run that makes progress
int reportPipe = -1;

std::string readAll(int pipe) {
    std::string text;
    char part[4096];
    for (ssize_t size = read(pipe, part, sizeof part); size > 0;
         size = read(pipe, part, sizeof part)) {
        text.append(part, static_cast<std::size_t>(size));
    }
    return text;
}

} // namespace

Copy makeCopy() {
    int ends[2];
    std::fflush(nullptr);
    if (pipe(ends) != 0) {
        std::perror("pipe");
        std::exit(1);
    }
    const pid_t process = fork();
    if (process < 0) {
        std::perror("fork");
        std::exit(1);
    }
    if (process != 0) {
        close(ends[1]);
        return {false, process, ends[0]};
    }
    close(ends[0]);
    if (reportPipe != -1) {
        close(reportPipe);
    }
    reportPipe = ends[1];
    alarm(patience);
    return {true, 0, -1};
}

Report waitFor(const Copy& copy) {
    const std::string text = readAll(copy.pipe);
    close(copy.pipe);
    int status = 0;
    waitpid(copy.process, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), text};
}

Report runInCopy(const std::function<int()>& function) {
    const Copy copy = makeCopy();
    if (copy.isThis) {
        std::exit(function());
    }
    return waitFor(copy);
}

void report(const std::string& text) {
    for (std::size_t done = 0; done < text.size();) {
        const ssize_t size = write(reportPipe, text.data() + done, text.size() - done);
        if (size <= 0) {
            _exit(1);
        }
        done += static_cast<std::size_t>(size);
    }
}
