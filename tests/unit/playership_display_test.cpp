// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "playership.h"

#include <string>

#include "duel.h"
#include "keyboard.h"
#include "main.h"
#include "pictures.h"
#include "rects.h"

namespace {

class PlayerShipDisplayTest : public DuelTest {
protected:
    void SetUp() override {
        DuelTest::SetUp();
        fillAll(battle->world, waterColour);
        fillAll(screen, white);
    }

    void update(int playerId) {
        ship(playerId)->update(battle->world);
        Keyboard::releaseKeys();
    }
};

TEST_F(PlayerShipDisplayTest, neverDrawsThePanelIntoTheWorld) {
    update(1);
    EXPECT_EQ(countOf(battle->world, barColour), 0);
    EXPECT_EQ(countOf(battle->world, waterColour), 1300 * 1300 - 100 * 100);
}

// A player's half of the strip below the viewports.
struct Panel {
    int playerId;
    const char* picture;
    SDL_Rect dial;
};

const Panel panels[] = {
    {1, "bar1.png", {308, 508, 69, 69}},
    {2, "bar2.png", {712, 508, 69, 69}},
};

void PrintTo(const Panel& panel, std::ostream* out) {
    *out << "player " << panel.playerId;
}

class PlayerShipPanelTest : public PlayerShipDisplayTest,
                            public testing::WithParamInterface<Panel> {
protected:
    void SetUp() override {
        PlayerShipDisplayTest::SetUp();
        shown = ship(panel.playerId);
    }

    void update() {
        PlayerShipDisplayTest::update(panel.playerId);
    }

    // The frame of the dial that is shown, with every pixel, or -1.
    int shownDialFrame() {
        for (int k = 0; k <= 40; ++k) {
            if (firstOther(screen, panel.dial, dialFrameColour(k)).empty()) {
                return k;
            }
        }
        return -1;
    }

    // After a tap of the player's key.
    int framesUntilItLooksLoaded(SDLKey ofPlayer1, SDLKey ofPlayer2) {
        const SDLKey key = panel.playerId == 1 ? ofPlayer1 : ofPlayer2;
        press(key);
        release(key);
        int frames = 0;
        do {
            update();
            ++frames;
        } while (shownDialFrame() != 40 && frames < 1000);
        return frames;
    }

    const Panel& panel = GetParam();
    PlayerShip* shown = nullptr;
};

TEST_P(PlayerShipPanelTest, scalesTheBarByTheFullHitPoints) {
    shown->maxhp = 300;
    shown->hp = 100;
    update();
    EXPECT_EQ(countOf(screen, black), (396 - 132) * 22);
    shown->maxhp = 7;
    shown->hp = 3;
    update();
    EXPECT_EQ(countOf(screen, black), (396 - 169) * 22) << "169.7 pixels are cut to 169";
}

TEST_P(PlayerShipPanelTest, looksLoadedTwoFramesEarly) {
    EXPECT_EQ(framesUntilItLooksLoaded(SDLK_TAB, SDLK_RETURN), 118);
    EXPECT_EQ(shown->reloading, 2);
}

TEST_P(PlayerShipPanelTest, looksLoadedSevenFramesEarlyAfterATeleport) {
    EXPECT_EQ(framesUntilItLooksLoaded(SDLK_z, SDLK_DELETE), 293);
    EXPECT_EQ(shown->reloading, 7);
}

TEST_P(PlayerShipPanelTest, showsNothingOfTheTeleports) {
    update();
    const OwnedSurface before = copyOf(screen);
    shown->teleportCounter = 0;
    shown->teleportRecharge = 450;
    update();
    EXPECT_EQ(difference(before.get(), screen), "");
}

TEST_P(PlayerShipPanelTest, leavesOutAPictureThatIsMissing) {
    for (const char* picture : {"lod1.png", "kruh.png", panel.picture}) {
        SDL_FreeSurface(imagePool[picture]);
        imagePool.erase(picture);
    }
    shown->hp = 25;
    update();
    EXPECT_EQ(firstOther(battle->world, {0, 0, 1300, 1300}, waterColour), "");
    EXPECT_EQ(countOf(screen, black), 198 * 22);
    EXPECT_EQ(countOf(screen, white), 800 * 600 - 198 * 22);
}

std::string panelName(const testing::TestParamInfo<Panel>& info) {
    return "player" + std::to_string(info.param.playerId);
}

INSTANTIATE_TEST_SUITE_P(both, PlayerShipPanelTest, testing::ValuesIn(panels), panelName);

TEST_F(PlayerShipDisplayTest, givesEveryOtherIdThePanelOfPlayer2) {
    PlayerShip stranger(battle.get(), 3);
    stranger.hp = 45;
    stranger.update(battle->world);
    EXPECT_EQ(firstOther(screen, {0, 0, 400, 600}, white), "");
    EXPECT_EQ(firstOther(screen, {760, 578, 40, 22}, black), "");
    EXPECT_EQ(pixel(screen, 712, 508), dialFrameColour(40));
}

} // namespace
