// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "helpscreen.h"

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

} // namespace
