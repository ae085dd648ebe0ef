// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "helpscreen.h"

#include "main.h"
#include "textscreen.h"

namespace {

class HelpScreenTest : public TextScreenTest {};

TEST_F(HelpScreenTest, showsTheControlsOfBothPlayers) {
    HelpScreen().activate();
    EXPECT_EQ(differenceFrom({
                  {-4, "Morvane:"},
                  {-2, "Player 1 (left): slower projectile, faster ship"},
                  {-1, "WASD = move, Tab/Space = shoot, Z = teleport"},
                  {0, "Player 2 (right): faster projectile, slower ship"},
                  {1, "Arrows = move, Enter = shoot, Delete = teleport"},
                  {3, "Enjoy!"},
              }),
              "");
}

// Shared with the credits.
TEST_F(HelpScreenTest, tellsWhichEventsLeaveATextScreen) {
    EXPECT_TRUE(leavesTextScreen(keyDown(SDLK_SPACE)));
    EXPECT_TRUE(leavesTextScreen(mouseUp(SDL_BUTTON_WHEELDOWN)));
    EXPECT_FALSE(leavesTextScreen(keyUp(SDLK_SPACE)));
    EXPECT_FALSE(leavesTextScreen(keyDown(SDLK_KP_ENTER)));
    EXPECT_EQ(newProgramMode, nullptr);
}

} // namespace
