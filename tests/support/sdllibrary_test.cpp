// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include <cstdlib>
#include <string>

#include <SDL.h>
#include <gtest/gtest.h>

namespace {

// Compiled into every test program: checks that the library is the one in the tests' names. The
// versions of the compatibility library begin with 1.2.50.
TEST(SdlLibraryTest, isTheOneThatTheTestsAreNamedAfterOnDummyDrivers) {
    const char* named = std::getenv("MORVANE_TESTED_SDL");
    if (named == nullptr) {
        GTEST_SKIP() << "Run by hand, so on whatever library and drivers there are.";
    }
    const bool compat = SDL_Linked_Version()->patch >= 50;
    EXPECT_EQ(std::string(named), compat ? "compat" : "classic");
    ASSERT_EQ(SDL_Init(SDL_INIT_VIDEO | SDL_INIT_AUDIO), 0) << SDL_GetError();
    char driver[20] = "";
    EXPECT_STREQ(SDL_VideoDriverName(driver, sizeof driver), "dummy");
    EXPECT_STREQ(SDL_AudioDriverName(driver, sizeof driver), "dummy");
    SDL_Quit();
}

} // namespace
