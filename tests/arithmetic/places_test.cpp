// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include <cstdlib>
#include <set>
#include <utility>
#include <vector>

#include "barrier.h"
#include "battle.h"
#include "bullet.h"
#include "drawing.h"
#include "gamehandler.h"
#include "main.h"
#include "playership.h"

namespace {

const int worldSize = 1300;
const int shipSize = 100;
const int worlds = 400;

using PlacesTest = BattleTest;

// The pixels that a side of a rectangle covers, as a set.
std::set<int> covered(int from, int length) {
    std::set<int> pixels;
    for (int i = 0; i < length; ++i) {
        pixels.insert(from + i);
    }
    return pixels;
}

bool shareAPixel(const std::set<int>& a, const std::set<int>& b) {
    for (int pixel : a) {
        if (b.count(pixel) != 0) {
            return true;
        }
    }
    return false;
}

// Where a viewport lies on one axis for each place of the ship, found pixel by pixel: it stays at
// the border until the ship has reached its middle, and stops one pixel before the far border.
std::vector<Sint16> viewportPlaces(int viewportLength) {
    std::vector<Sint16> places;
    int place = 0;
    for (int ship = 0; ship <= worldSize; ++ship) {
        const int middleOfShip = ship + shipSize / 2;
        if (middleOfShip > place + viewportLength / 2 && place + viewportLength < worldSize - 1) {
            ++place;
        }
        places.push_back(static_cast<Sint16>(place));
    }
    return places;
}

SDL_Rect rectangle(int x, int y, int w, int h) {
    return {static_cast<Sint16>(x), static_cast<Sint16>(y), static_cast<Uint16>(w),
            static_cast<Uint16>(h)};
}

} // namespace

TEST_F(PlacesTest, rectanglesCollideWhereTheyShareAPixel) {
    const SDL_Rect fixed = {0, 0, 4, 3};
    long compared = 0;
    for (int x = -6; x <= 6; ++x) {
        for (int y = -6; y <= 6; ++y) {
            for (int w = 1; w <= 6; ++w) {
                for (int h = 1; h <= 6; ++h) {
                    const bool expected = shareAPixel(covered(x, w), covered(0, fixed.w)) &&
                                          shareAPixel(covered(y, h), covered(0, fixed.h));
                    const SDL_Rect other = rectangle(x, y, w, h);
                    ASSERT_EQ(rectanglesCollide(other, fixed), expected) << x << " " << y;
                    ASSERT_EQ(rectanglesCollide(fixed, other), expected) << x << " " << y;
                    ++compared;
                }
            }
        }
    }
    EXPECT_EQ(compared, 13 * 13 * 6 * 6);
}

TEST_F(PlacesTest, rectanglesOfNoWidthCollideStrictlyInside) {
    const SDL_Rect fixed = {0, 0, 4, 4};
    for (int x = -2; x <= 6; ++x) {
        for (int y = -2; y <= 6; ++y) {
            const bool inside = x > 0 && x < 4 && y > 0 && y < 4;
            EXPECT_EQ(rectanglesCollide(rectangle(x, y, 0, 0), fixed), inside) << x << " " << y;
        }
    }
}

TEST_F(PlacesTest, viewportsFollowTheShipAtEveryPlaceOfTheWorld) {
    GameHandler battle;
    const std::vector<Sint16> across = viewportPlaces(390);
    const std::vector<Sint16> down = viewportPlaces(490);
    ASSERT_EQ(across.back(), 909);
    ASSERT_EQ(down.back(), 809);
    long wrong = 0;
    for (int x = 0; x < worldSize; ++x) {
        for (int y = 0; y < worldSize; ++y) {
            battle.ship1->rect = rectangle(x, y, shipSize, shipSize);
            battle.ship2->rect = rectangle(y, x, shipSize, shipSize);
            battle.moveViewport(1);
            battle.moveViewport(2);
            const bool right = battle.viewport1.x == across[static_cast<std::size_t>(x)] &&
                               battle.viewport1.y == down[static_cast<std::size_t>(y)] &&
                               battle.viewport2.x == across[static_cast<std::size_t>(y)] &&
                               battle.viewport2.y == down[static_cast<std::size_t>(x)];
            wrong += right ? 0 : 1;
        }
    }
    EXPECT_EQ(wrong, 0);
}

TEST_F(PlacesTest, barriersNeverOverlapInAnyWorld) {
    const WithoutDrawing quick;
    long pixels = 0;
    for (unsigned seed = 0; seed < worlds; ++seed) {
        srandom(seed);
        const GameHandler battle;
        ASSERT_EQ(battle.barriers.size(), 13U);
        // Every barrier marks its pixels on a chart of the sea. No pixel may be marked twice.
        std::vector<bool> chart(worldSize * worldSize);
        for (const Barrier* barrier : battle.barriers) {
            const SDL_Rect place = barrier->rect;
            ASSERT_GE(place.x, 0);
            ASSERT_GE(place.y, 0);
            ASSERT_LT(place.x + place.w, worldSize);
            ASSERT_LT(place.y + place.h, worldSize);
            for (int y = place.y; y < place.y + place.h; ++y) {
                for (int x = place.x; x < place.x + place.w; ++x) {
                    const std::size_t i = static_cast<std::size_t>(y * worldSize + x);
                    ASSERT_FALSE(chart[i]) << "seed " << seed << ", at " << x << " " << y;
                    chart[i] = true;
                    ++pixels;
                }
            }
        }
        for (const PlayerShip* ship : {battle.ship1, battle.ship2}) {
            ASSERT_EQ(ship->rect.x % 100, 0);
            ASSERT_EQ(ship->rect.y % 100, 0);
            ASSERT_TRUE(ship->rect.x >= 100 && ship->rect.x <= 700);
            ASSERT_TRUE(ship->rect.y >= 100 && ship->rect.y <= 700);
            for (int y = ship->rect.y; y < ship->rect.y + shipSize; ++y) {
                for (int x = ship->rect.x; x < ship->rect.x + shipSize; ++x) {
                    ASSERT_FALSE(chart[static_cast<std::size_t>(y * worldSize + x)])
                        << "a ship inside a barrier, seed " << seed;
                }
            }
        }
    }
    EXPECT_EQ(pixels, worlds * (220L * 180 + 3 * 130 * 100 + 9 * 60 * 60));
}

// The number of rows is that of the columns, so a tall tile has rows that begin below the sea. Only
// a tile without any width or height left is not blitted at all.
TEST_F(PlacesTest, everyTileWithAWidthAndAHeightIsBlitted) {
    const WithoutDrawing quick;
    const auto blitsOf = [](int w, int h) {
        SDL_FreeSurface(imagePool["voda.png"]);
        addPicture("voda.png", w, h, waterColour);
        const long before = drawing.blits;
        const GameHandler battle;
        return drawing.blits - before;
    };
    EXPECT_EQ(blitsOf(325, 325), 16);      // four by four; the fifth of each has no pixel
    EXPECT_EQ(blitsOf(100, 325), 13 * 13); // all but the row that begins at the lower edge
    EXPECT_EQ(blitsOf(300, 400), 25);
    EXPECT_EQ(blitsOf(650, 1), 2 * 3);
}
