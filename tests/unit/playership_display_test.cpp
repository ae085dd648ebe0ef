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

TEST_F(PlayerShipDisplayTest, readsTheKeysThenMovesThenDraws) {
    place(ship1, 300, 400, headingRight - 0.05, 5.5);
    press(SDLK_a);
    press(SDLK_w);
    update(1);
    EXPECT_THAT(ship1->rect, isAt(306, 400));
    EXPECT_EQ(pixel(battle->world, 306, 450), shipFrameColour(19));
    EXPECT_EQ(pixel(battle->world, 305, 450), waterColour);
}

TEST_F(PlayerShipDisplayTest, countsBothTimersDownToNought) {
    ship1->setReloading(2, 120);
    ship1->teleportRecharge = 3;
    update(1);
    EXPECT_EQ(ship1->reloading, 1);
    EXPECT_EQ(ship1->teleportRecharge, 2);
    update(1);
    EXPECT_EQ(ship1->reloading, 0);
    EXPECT_EQ(ship1->teleportRecharge, 1);
    update(1);
    update(1);
    EXPECT_EQ(ship1->reloading, 0);
    EXPECT_EQ(ship1->teleportRecharge, 0);
    EXPECT_EQ(ship1->maxReloading, 120);
}

TEST_F(PlayerShipDisplayTest, neverDrawsThePanelIntoTheWorld) {
    update(1);
    EXPECT_EQ(countOf(battle->world, barColour), 0);
    EXPECT_EQ(countOf(battle->world, waterColour), 1300 * 1300 - 100 * 100);
}

// A player's half of the strip below the viewports.
struct Panel {
    int playerId;
    const char* picture;
    SDL_Rect rect;
    SDL_Rect dial;
    SDL_Rect otherHalf;
};

const Panel panels[] = {
    {1, "bar1.png", {0, 500, 400, 100}, {308, 508, 69, 69}, {400, 0, 400, 600}},
    {2, "bar2.png", {400, 500, 400, 100}, {712, 508, 69, 69}, {0, 0, 400, 600}},
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

    // The number of a dial's frame, of which every pixel must be shown, or -1.
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

TEST_P(PlayerShipPanelTest, fillsItsHalfOfTheStripAndNothingElse) {
    update();
    EXPECT_EQ(countOf(screen, barColour), 400 * 100 - 69 * 69);
    EXPECT_EQ(countOf(screen, white), 800 * 600 - 400 * 100);
    EXPECT_EQ(pixel(screen, panel.rect.x, 500), barColour);
    EXPECT_EQ(pixel(screen, panel.rect.x + 399, 599), barColour);
    EXPECT_EQ(firstOther(screen, panel.otherHalf, white), "");
}

TEST_P(PlayerShipPanelTest, drawsTheWholePicture) {
    SDL_Surface* picture = imagePool[panel.picture];
    fill(picture, {0, 0, 1, 1}, green);
    fill(picture, {399, 99, 1, 1}, blue);
    update();
    EXPECT_EQ(pixel(screen, panel.rect.x, 500), green);
    EXPECT_EQ(pixel(screen, panel.rect.x + 399, 599), blue);
}

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

TEST_P(PlayerShipPanelTest, showsTheDialFramesDownEachColumn) {
    // Frame 20 at 276, 0; frame 1 at 0, 69; frame 39 at 483, 276.
    const int corners[][3] = {{60, 276, 0}, {119, 0, 69}, {3, 483, 276}};
    for (const auto& corner : corners) {
        SCOPED_TRACE(corner[0]);
        SDL_Surface* dial = imagePool["kruh.png"];
        fill(dial, {static_cast<Sint16>(corner[1]), static_cast<Sint16>(corner[2]), 1, 1}, green);
        shown->setReloading(corner[0] + 1, 120);
        update();
        EXPECT_EQ(pixel(screen, panel.dial.x, panel.dial.y), green);
    }
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
