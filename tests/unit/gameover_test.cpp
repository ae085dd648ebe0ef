// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "gameover.h"

#include "textscreen.h"

namespace {

const std::vector<TextLine> firstPlayerWins = {
    {-1, "Game over."}, {0, "Player 1 won."}, {1, "Press Escape to return to main menu."}};
const std::vector<TextLine> secondPlayerWins = {
    {-1, "Game over."}, {0, "Player 2 won."}, {1, "Press Escape to return to main menu."}};

class GameOverTest : public TextScreenTest {};

TEST_F(GameOverTest, remembersWhoLost) {
    EXPECT_EQ(GameOver(1).defeatedPlayer, 1);
    EXPECT_EQ(GameOver(2).defeatedPlayer, 2);
    EXPECT_EQ(GameOver(0).defeatedPlayer, 0);
}

TEST_F(GameOverTest, namesTheFirstPlayerWhenTheSecondLost) {
    GameOver(2).activate();
    EXPECT_EQ(differenceFrom(firstPlayerWins), "");
}

TEST_F(GameOverTest, namesTheSecondPlayerWhenTheFirstLost) {
    GameOver(1).activate();
    EXPECT_EQ(differenceFrom(secondPlayerWins), "");
}

TEST_F(GameOverTest, namesTheSecondPlayerForAnyOtherLoser) {
    for (int loser : {0, 3, -1, -2}) {
        SCOPED_TRACE(loser);
        GameOver(loser).activate();
        EXPECT_EQ(differenceFrom(secondPlayerWins), "");
    }
}

} // namespace
