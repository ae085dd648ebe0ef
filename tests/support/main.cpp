// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// The entry point of the test programs. The game's state is global, so every test has a process of
// its own: ctest starts one for each, and a program that is started by hand does the same.

#include <cstdlib>
#include <iostream>
#include <string>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

bool passes(const char* program, const std::string& name) {
    const pid_t child = fork();
    if (child == 0) {
        const std::string filter = "--gtest_filter=" + name;
        execl(program, program, filter.c_str(), "--gtest_brief=1", nullptr);
        _exit(1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

class OneProcessPerTest : public ::testing::EmptyTestEventListener {
    void OnTestProgramStart(const ::testing::UnitTest& tests) override {
        if (tests.test_to_run_count() <= 1) {
            return;
        }
        int failed = 0;
        for (int i = 0; i < tests.total_test_suite_count(); ++i) {
            const ::testing::TestSuite& suite = *tests.GetTestSuite(i);
            for (int j = 0; j < suite.total_test_count(); ++j) {
                const ::testing::TestInfo& test = *suite.GetTestInfo(j);
                const std::string name = std::string(suite.name()) + "." + test.name();
                if (test.should_run() && !passes("/proc/self/exe", name)) {
                    std::cout << "FAILED: " << name << "\n";
                    ++failed;
                }
            }
        }
        std::cout << tests.test_to_run_count() << " tests, " << failed << " failed" << std::endl;
        std::_Exit(failed == 0 ? 0 : 1);
    }
};

} // namespace

int main(int argc, char** argv) {
    setenv("SDL_VIDEODRIVER", "dummy", 0);
    setenv("SDL_AUDIODRIVER", "dummy", 0);
    ::testing::InitGoogleTest(&argc, argv);
    ::testing::UnitTest::GetInstance()->listeners().Append(new OneProcessPerTest);
    return RUN_ALL_TESTS();
}
