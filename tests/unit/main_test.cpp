// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "main.h"

#include <iostream>
#include <vector>

#include <gmock/gmock.h>
#include <sys/socket.h>
#include <unistd.h>

#include "childprocess.h"
#include "librarycalls.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(MainTest, everythingSharedIsEmptyAtFirst) {
    EXPECT_EQ(screen, nullptr);
    EXPECT_EQ(activeProgramMode, nullptr);
    EXPECT_EQ(newProgramMode, nullptr);
    EXPECT_FALSE(running);
    EXPECT_FALSE(haveSound);
    EXPECT_EQ(initializationProgress, 0);
    EXPECT_EQ(papyrusFont, nullptr);
    EXPECT_EQ(programDataPath, "");
    EXPECT_THAT(imagePool, IsEmpty());
}

TEST(MainTest, stoppingOnlyClearsRunning) {
    LibraryCalls calls;
    running = true;
    stopProgram();
    EXPECT_FALSE(running);
    EXPECT_THAT(calls.log, IsEmpty());
}

TEST(MainTest, textsAreNotTranslated) {
    EXPECT_EQ(tr("Player 1 won."), "Player 1 won.");
    EXPECT_EQ(tr("$Enjoy!"), "$Enjoy!");
    EXPECT_EQ(tr(""), "");
}

// What a piece of the game writes on the real standard error stream, one string for each write.
std::vector<std::string> writesOf(const std::function<void()>& function) {
    int ends[2];
    EXPECT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends), 0);
    const int stderrCopy = dup(STDERR_FILENO);
    dup2(ends[0], STDERR_FILENO);
    close(ends[0]);
    function();
    dup2(stderrCopy, STDERR_FILENO);
    close(stderrCopy);
    std::vector<std::string> writes;
    char buffer[4096];
    for (ssize_t n = read(ends[1], buffer, sizeof buffer); n > 0;
         n = read(ends[1], buffer, sizeof buffer)) {
        writes.emplace_back(buffer, static_cast<std::size_t>(n));
    }
    close(ends[1]);
    return writes;
}

struct Message {
    const char* text;
    int level;
    const char* written;
};

const Message messages[] = {
    {"The sea is calm.", 1, "The sea is calm.\n"},
    {"The sea is calm.", 2, "WARNING: The sea is calm.\n"},
    {"The sea is calm.", 3, "ERROR: The sea is calm.\n"},
    {"$The sea is calm", 1, "The sea is calm\nthe library's reason\n"},
    {"$The sea is calm", 2, "WARNING: The sea is calm\nthe library's reason\n"},
    {"$The sea is calm", 3, "ERROR: The sea is calm\nthe library's reason\n"},
    {"$", 3, "ERROR: \nthe library's reason\n"},
    {"$$", 3, "ERROR: $\nthe library's reason\n"},
    {"5 $ a day", 3, "ERROR: 5 $ a day\n"},
    {"", 3, "ERROR: \n"},
    {"one\ntwo", 2, "WARNING: one\ntwo\n"},
};

TEST(MessageTest, isWrittenInOnePieceWithThePrefixOfItsLevel) {
    for (const Message& message : messages) {
        SCOPED_TRACE(message.text);
        SDL_SetError("the library's reason");
        int result = -1;
        EXPECT_THAT(writesOf([&] { result = error(message.text, message.level); }),
                    ElementsAre(message.written));
        EXPECT_EQ(result, 0);
    }
}

TEST(MessageTest, ofAnotherLevelIsNotWritten) {
    for (const int level : {0, 5, 7, -1, 1000}) {
        SCOPED_TRACE(level);
        int result = -1;
        EXPECT_THAT(writesOf([&] { result = error("$The sea is calm", level); }), IsEmpty());
        EXPECT_EQ(result, 0);
    }
}

TEST(MessageTest, neverGoesToTheStandardOutput) {
    const Outcome outcome = runInChild([] {
        for (int level = 0; level <= 5; ++level) {
            if (level != 4) {
                error("The sea is calm.", level);
            }
        }
    });
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err,
              "The sea is calm.\nWARNING: The sea is calm.\nERROR: The sea is calm.\n");
}

TEST(MessageTest, mayComeBeforeAnyLibraryIsStarted) {
    EXPECT_THAT(writesOf([] { error("$Too early", 3); }), ElementsAre("ERROR: Too early\n\n"));
}

TEST(FatalMessageTest, endsTheProgramWithStatusOneAndTheReason) {
    const Outcome outcome = runInChild([] {
        SDL_SetError("the library's reason");
        error("$The sea is calm", 4);
        std::cout << "still there";
    });
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "FATAL ERROR: The sea is calm\nthe library's reason\n");
}

} // namespace
