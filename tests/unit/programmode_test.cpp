// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "programmode.h"

#include <cstddef>
#include <cstring>
#include <type_traits>

#include <gtest/gtest.h>

#include "drawing.h"
#include "librarycalls.h"
#include "main.h"
#include "recordingmode.h"

namespace {

class BareMode : public ProgramMode {
public:
    void event(SDL_Event* /*e*/) override {}
};

// The place of an operation in the table of virtual operations. The C++ ABI of all of Debian's
// machines keeps its offset in the first word of the pointer, odd or even.
template <typename Operation> std::size_t slotOf(Operation operation) {
    std::size_t offset = 0;
    std::memcpy(&offset, &operation, sizeof offset);
    return offset / sizeof(void*);
}

TEST(ProgramModeTest, cannotBeMadeWithoutAnEventHandler) {
    EXPECT_TRUE(std::is_abstract<ProgramMode>::value);
    EXPECT_FALSE(std::is_abstract<BareMode>::value);
}

TEST(ProgramModeTest, holdsNothingButItsTableOfOperations) {
    EXPECT_EQ(sizeof(ProgramMode), sizeof(void*));
}

// The destructor comes first and takes two slots.
TEST(ProgramModeTest, keepsTheOrderOfItsOperations) {
    EXPECT_EQ(slotOf(&ProgramMode::event), 2U);
    EXPECT_EQ(slotOf(&ProgramMode::activate), 3U);
    EXPECT_EQ(slotOf(&ProgramMode::update), 4U);
    EXPECT_EQ(slotOf(&ProgramMode::cleanUp), 5U);
}

TEST(ProgramModeTest, isDeletedThroughItsBase) {
    EXPECT_TRUE(std::has_virtual_destructor<ProgramMode>::value);
    LibraryCalls calls;
    const ProgramMode* mode = new RecordingMode("a");
    delete mode;
    EXPECT_EQ(calls.log, std::vector<std::string>{"a: deleted"});
}

TEST(ProgramModeTest, doesNothingByDefault) {
    running = true;
    FlipWatch flips;
    LibraryCalls calls;
    BareMode mode;
    ProgramMode& base = mode;
    base.activate();
    base.update();
    base.cleanUp();
    EXPECT_EQ(calls.log, std::vector<std::string>{"ProgramMode::activate()"});
    EXPECT_EQ(flips.count, 0);
    EXPECT_TRUE(running);
    EXPECT_EQ(newProgramMode, nullptr);
    EXPECT_EQ(activeProgramMode, nullptr);
}

} // namespace
