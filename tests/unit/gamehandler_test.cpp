// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "gamehandler.h"

#include "battle.h"
#include "playership.h"

namespace {

class GameHandlerTest : public BattleTest {};

TEST_F(GameHandlerTest, holdsSeventeenObjects) {
    GameHandler battle;
    EXPECT_EQ(battle.objects.size(), 17U);
    EXPECT_EQ(battle.barriers.size(), 13U);
    EXPECT_EQ(battle.objects[15], battle.ship1);
}

} // namespace
