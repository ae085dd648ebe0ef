// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "playership.h"

#include <algorithm>
#include <string>
#include <vector>

#include "duel.h"
#include "keyboard.h"
#include "rects.h"

namespace {

// What each player steers with, and how fast the ship gets.
struct Helm {
    int playerId;
    SDLKey left;
    SDLKey right;
    SDLKey forward;
    std::vector<SDLKey> fire;
    SDLKey teleport;
    double topSpeed;
    int framesToTopSpeed;
};

const Helm helms[] = {
    {1, SDLK_a, SDLK_d, SDLK_w, {SDLK_TAB, SDLK_SPACE}, SDLK_z, 6, 12},
    {2, SDLK_LEFT, SDLK_RIGHT, SDLK_UP, {SDLK_RETURN}, SDLK_DELETE, 5, 10},
};

void PrintTo(const Helm& helm, std::ostream* out) {
    *out << "player " << helm.playerId;
}

class PlayerShipControlsTest : public DuelTest, public testing::WithParamInterface<Helm> {
protected:
    void SetUp() override {
        DuelTest::SetUp();
        steered = ship(helm.playerId);
    }

    // Reads the keys in as many frames.
    void steer(int frames) {
        for (int i = 0; i < frames; ++i) {
            steered->keyboard();
            Keyboard::releaseKeys();
        }
    }

    const Helm& helm = GetParam();
    PlayerShip* steered = nullptr;
};

TEST_P(PlayerShipControlsTest, turnsByAStepPerFrame) {
    press(helm.left);
    steer(10);
    EXPECT_NEAR(steered->direction, 0.5, 1e-12);
    release(helm.left);
    Keyboard::releaseKeys();
    press(helm.right);
    steer(1);
    EXPECT_NEAR(steered->direction, 0.45, 1e-12);
}

TEST_P(PlayerShipControlsTest, coastsToRestInHalfPixelSteps) {
    steered->velocity = helm.topSpeed;
    steer(1);
    EXPECT_EQ(steered->velocity, helm.topSpeed - 0.5);
    steer(helm.framesToTopSpeed - 2);
    EXPECT_EQ(steered->velocity, 0.5);
    steer(1);
    EXPECT_EQ(steered->velocity, 0.0);
    steer(50);
    EXPECT_EQ(steered->velocity, 0.0);
}

TEST_P(PlayerShipControlsTest, firesWithEachFireKey) {
    for (const SDLKey key : helm.fire) {
        SCOPED_TRACE(key);
        steered->reloading = 0;
        ball(helm.playerId)->visible = false;
        press(key);
        steer(1);
        release(key);
        Keyboard::releaseKeys();
        EXPECT_TRUE(ball(helm.playerId)->visible);
        EXPECT_FALSE(ball(3 - helm.playerId)->visible);
        EXPECT_EQ(steered->reloading, 120);
    }
}

TEST_P(PlayerShipControlsTest, ignoresEveryOtherKey) {
    std::vector<int> bound = {helm.left, helm.right, helm.forward, helm.teleport};
    bound.insert(bound.end(), helm.fire.begin(), helm.fire.end());
    for (int key = 0; key < SDLK_LAST; ++key) {
        if (std::count(bound.begin(), bound.end(), key) == 0) {
            press(static_cast<SDLKey>(key));
        }
    }
    place(steered, 600, 600, 1.0, 3);
    steer(1);
    EXPECT_EQ(steered->direction, 1.0);
    EXPECT_EQ(steered->velocity, 2.5) << "neither brakes nor sails on";
    EXPECT_EQ(steered->reloading, 0);
    EXPECT_EQ(steered->teleportCounter, 3);
    EXPECT_FALSE(ball(helm.playerId)->visible);
}

std::string helmName(const testing::TestParamInfo<Helm>& info) {
    return "player" + std::to_string(info.param.playerId);
}

INSTANTIATE_TEST_SUITE_P(both, PlayerShipControlsTest, testing::ValuesIn(helms), helmName);

using PlayerShipStrangerTest = DuelTest;

TEST_F(PlayerShipStrangerTest, obeysTheKeysOfPlayer2) {
    PlayerShip stranger(battle.get(), 3);
    place(&stranger, 600, 300);
    press(SDLK_LEFT);
    press(SDLK_UP);
    press(SDLK_RETURN);
    press(SDLK_d);
    stranger.keyboard();
    EXPECT_DOUBLE_EQ(stranger.direction, 0.05);
    EXPECT_EQ(stranger.velocity, 0.5);
    EXPECT_TRUE(ball2->visible);
    EXPECT_THAT(ball2->pos, isAt(640, 340));
}

} // namespace
