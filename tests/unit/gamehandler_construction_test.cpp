// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "gamehandler.h"

#include <cstdlib>

#include "barrier.h"
#include "bullet.h"
#include "duel.h"
#include "main.h"
#include "music.h"
#include "pictures.h"
#include "playership.h"
#include "rects.h"

namespace {

class GameHandlerConstructionTest : public BattleTest {
protected:
    void TearDown() override {
        Music::play(0);
        haveSound = false;
        BattleTest::TearDown();
    }
};

TEST_F(GameHandlerConstructionTest, buildsBarriersThenCannonballsThenShips) {
    GameHandler battle;
    ASSERT_EQ(battle.objects.size(), 17U);
    ASSERT_EQ(battle.barriers.size(), 13U);
    const int types[] = {0, 1, 1, 1, 2, 2, 2, 2, 2, 2, 2, 2, 2};
    for (size_t i = 0; i < 13; ++i) {
        SCOPED_TRACE(i);
        const auto* barrier = dynamic_cast<Barrier*>(battle.objects[i]);
        ASSERT_NE(barrier, nullptr);
        EXPECT_EQ(barrier->type, types[i]);
        EXPECT_EQ(barrier->handler, &battle);
        EXPECT_EQ(battle.barriers[i], barrier);
    }
    EXPECT_EQ(battle.objects[13], battle.bullet1);
    EXPECT_EQ(battle.objects[14], battle.bullet2);
    EXPECT_EQ(battle.objects[15], battle.ship1);
    EXPECT_EQ(battle.objects[16], battle.ship2);
}

TEST_F(GameHandlerConstructionTest, makesAWorldOf1300PixelsInTheFormatOfTheDisplay) {
    GameHandler battle;
    for (const SDL_Surface* surface : {battle.world, battle.background}) {
        EXPECT_EQ(surface->w, 1300);
        EXPECT_EQ(surface->h, 1300);
        EXPECT_EQ(surface->format->BitsPerPixel, 32);
        EXPECT_EQ(surface->format->Rmask, screen->format->Rmask);
        EXPECT_EQ(surface->format->Gmask, screen->format->Gmask);
        EXPECT_EQ(surface->format->Bmask, screen->format->Bmask);
        EXPECT_EQ(surface->format->Amask, 0U);
    }
    EXPECT_NE(battle.world, battle.background);
}

TEST_F(GameHandlerConstructionTest, leavesTheDisplayAlone) {
    fillAll(screen, red);
    GameHandler battle;
    EXPECT_EQ(firstOther(screen, {0, 0, 800, 600}, red), "");
}

TEST_F(GameHandlerConstructionTest, picksATrackWithoutSoundToo) {
    srandom(3);
    const GameHandler silentBattle;
    haveSound = true;
    srandom(3);
    const GameHandler battle;
    EXPECT_EQ(randomNumbersSince(3), 33);
    EXPECT_THAT(battle.barriers[0]->rect, isAt(265, 728));
    EXPECT_THAT(silentBattle.barriers[0]->rect, isAt(265, 728));
}

// One tile size and what it covers of the sea.
struct Tiling {
    int tileWidth;
    int tileHeight;
    int waterRows; // the rest stays blue
};

void PrintTo(const Tiling& tiling, std::ostream* out) {
    *out << tiling.tileWidth << " x " << tiling.tileHeight;
}

class GameHandlerTilingTest : public BattleTest, public testing::WithParamInterface<Tiling> {};

TEST_P(GameHandlerTilingTest, laysAsManyRowsAsColumns) {
    const Tiling& tiling = GetParam();
    SDL_Surface* tile =
        replacePicture("voda.png", tiling.tileWidth, tiling.tileHeight, waterColour);
    fill(tile, {0, 0, 1, 1}, white);
    const GameHandler battle;
    int corners = 0;
    for (int x = 0; x < 1300; x += tiling.tileWidth) {
        for (int y = 0; y < tiling.waterRows; y += tiling.tileHeight) {
            EXPECT_EQ(pixel(battle.background, x, y), white) << x << ", " << y;
            ++corners;
        }
    }
    EXPECT_EQ(countOf(battle.background, white), corners);
    EXPECT_EQ(countOf(battle.background, waterColour), 1300 * tiling.waterRows - corners);
    EXPECT_EQ(countOf(battle.background, blue), 1300 * (1300 - tiling.waterRows));
    const int blueRows = 1300 - tiling.waterRows;
    EXPECT_EQ(
        firstOther(battle.background,
                   {0, static_cast<Sint16>(tiling.waterRows), 1300, static_cast<Uint16>(blueRows)},
                   blue),
        "");
}

const Tiling tilings[] = {
    {325, 325, 1300},   // four fit exactly
    {325, 100, 500},    // flat: five rows
    {100, 325, 1300},   // tall
    {64, 64, 1300},     // cut at the right and at the bottom
    {299, 211, 1055},   // odd, flat: five rows
    {37, 53, 1300},     // odd, tall
    {325, 259, 1295},   // just too flat
    {325, 260, 1300},   // just tall enough
    {1300, 1300, 1300}, // one fits exactly
    {1300, 400, 800},   // one column, two rows
    {1299, 1299, 1300}, // one pixel is left over
    {1301, 1301, 1300}, // a little larger than the world
    {1301, 200, 200},   // wider than the world: one row
    {2000, 1700, 1300}, // much larger than the world
    {650, 1, 3},        // three rows of a pixel
};

std::string tilingName(const testing::TestParamInfo<Tiling>& info) {
    return std::to_string(info.param.tileWidth) + "x" + std::to_string(info.param.tileHeight);
}

INSTANTIATE_TEST_SUITE_P(tiles, GameHandlerTilingTest, testing::ValuesIn(tilings), tilingName);

TEST_F(GameHandlerConstructionTest, cutsTilesAtTheirRightAndLowerEdge) {
    SDL_Surface* tile = replacePicture("voda.png", 1000, 1000, waterColour);
    fill(tile, {299, 0, 1, 1000}, white);
    fill(tile, {0, 299, 1000, 1}, white);
    fill(tile, {300, 0, 1, 299}, red);
    const GameHandler battle;
    EXPECT_EQ(pixel(battle.background, 1298, 1298), waterColour);
    EXPECT_EQ(firstOther(battle.background, {1299, 0, 1, 299}, white), "");
    EXPECT_EQ(firstOther(battle.background, {1000, 1299, 300, 1}, white), "");
    EXPECT_EQ(countOf(battle.background, red), 2 * 299);
}

TEST_F(GameHandlerConstructionTest, showsBlueThroughAHoleInTheWater) {
    SDL_Surface* tile = imagePool["voda.png"];
    fill(tile, {10, 20, 5, 4}, {255, 0, 255, 0});
    const GameHandler battle;
    EXPECT_EQ(countOf(battle.background, blue), 16 * 20);
    EXPECT_EQ(firstOther(battle.background, {985, 995, 5, 4}, blue), "");
}

TEST_F(GameHandlerConstructionTest, copiesTheSeaInRunsOnTheClassicLibraryOnly) {
    const GameHandler battle;
    const bool classic = SDL_Linked_Version()->patch < 50;
    const Uint32 runs = SDL_RLEACCEL | SDL_RLEACCELOK; // the second until they are encoded
    EXPECT_EQ((battle.background->flags & runs) != 0, classic);
    EXPECT_EQ((battle.background->flags & SDL_SRCCOLORKEY) != 0, classic);
    EXPECT_EQ(battle.world->flags & (runs | SDL_SRCCOLORKEY), 0U);
}

// Magenta stands for transparent, so a picture's magenta is never laid over the blue in full.
TEST_F(GameHandlerConstructionTest, leavesNoPixelOfTheSeaWithItsColourKey) {
    SDL_Surface* tile = replacePicture("voda.png", 255, 255, waterColour);
    for (int alpha = 0; alpha < 255; ++alpha) {
        fill(tile, {static_cast<Sint16>(alpha), 0, 1, 255}, {255, 0, 255, alpha});
    }
    GameHandler battle;
    // Before the first copy encodes the sea; reading a pixel decodes all of it.
    EXPECT_EQ(countOf(battle.background, {255, 0, 255}), 0);
    const OwnedSurface sea = copyOf(battle.background);
    fillAll(battle.world, green);
    SDL_BlitSurface(battle.background, nullptr, battle.world, nullptr);
    EXPECT_EQ(difference(sea.get(), battle.world), "");
}

} // namespace
