// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "childprocess.h"

#include <cstdlib>
#include <iostream>

#include <sys/wait.h>
#include <unistd.h>

namespace {

std::string contents(std::FILE* file) {
    std::string text;
    char part[4096];
    std::rewind(file);
    for (std::size_t n = std::fread(part, 1, sizeof part, file); n > 0;
         n = std::fread(part, 1, sizeof part, file)) {
        text.append(part, n);
    }
    std::fclose(file);
    return text;
}

} // namespace

Child makeChild(unsigned patience) {
    Child child = {-1, std::tmpfile(), std::tmpfile()};
    std::fflush(nullptr);
    if (child.out != nullptr && child.err != nullptr) {
        child.process = fork();
    }
    if (child.process == -1) {
        std::perror("Cannot copy this process");
        std::exit(1);
    }
    if (child.process == 0) {
        dup2(fileno(child.out), STDOUT_FILENO);
        dup2(fileno(child.err), STDERR_FILENO);
        alarm(patience);
    }
    return child;
}

Outcome waitFor(const Child& child) {
    int status = 0;
    waitpid(child.process, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), contents(child.out),
            contents(child.err)};
}

Outcome runInChild(const std::function<void()>& function, unsigned patience) {
    const Child child = makeChild(patience);
    if (child.process == 0) {
        function();
        std::cout.flush();
        std::fflush(nullptr);
        _exit(0);
    }
    return waitFor(child);
}
