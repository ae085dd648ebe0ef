// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "gamehandler.h"

#include <vector>

#include "duel.h"
#include "main.h"
#include "mainmenu.h"
#include "pictures.h"
#include "rects.h"

namespace {

struct Overlap {
    const char* what;
    SDL_Rect rect1;
    SDL_Rect rect2;
    bool collide;
};

const Overlap overlaps[] = {
    {"widest", {-32768, 0, 65535, 1}, {32766, 0, 1, 1}, true},
    {"widest, touching", {-32768, 0, 65535, 1}, {32767, 0, 1, 1}, false},
    {"beyond 16 bits", {32767, 32767, 65535, 65535}, {0, 0, 10, 10}, false},
    {"beyond 16 bits, both", {32767, 32767, 65535, 65535}, {32000, 32000, 1000, 1000}, true},
    {"ends beyond 16 bits", {32700, 32700, 100, 100}, {32750, 32750, 10, 10}, true},
    {"other ends beyond 16 bits", {32750, 32750, 10, 10}, {32700, 32700, 100, 100}, true},
    {"no width, inside", {5, 0, 0, 10}, {0, 0, 10, 10}, true},
    {"no width, at the left edge", {0, 0, 0, 10}, {0, 0, 10, 10}, false},
    {"no width, at the right edge", {10, 0, 0, 10}, {0, 0, 10, 10}, false},
    {"around no width", {0, 0, 10, 10}, {5, 0, 0, 10}, true},
    {"no height, inside", {0, 5, 10, 0}, {0, 0, 10, 10}, true},
    {"no height, at the upper edge", {0, 0, 10, 0}, {0, 0, 10, 10}, false},
    {"a point on a point", {5, 5, 0, 0}, {5, 5, 0, 0}, false},
};

TEST(RectanglesCollideTest, overlapsStrictly) {
    for (const Overlap& overlap : overlaps) {
        EXPECT_EQ(rectanglesCollide(overlap.rect1, overlap.rect2), overlap.collide) << overlap.what;
    }
}

class GameHandlerTest : public DuelTest {};

TEST_F(GameHandlerTest, collidesWithListedBarriersOnly) {
    addBarrier({100, 100, 50, 50});
    battle->barriers.clear();
    EXPECT_FALSE(battle->collidesWithBarriers({100, 100, 50, 50}));
}

TEST_F(GameHandlerTest, movesOneViewportAtATime) {
    place(ship1, 600, 600);
    place(ship2, 700, 700);
    battle->viewport1 = {1, 2, 3, 4};
    battle->viewport2 = {5, 6, 7, 8};
    battle->moveViewport(1);
    EXPECT_THAT(battle->viewport1, isRect(455, 405, 3, 4));
    EXPECT_THAT(battle->viewport2, isRect(5, 6, 7, 8));
    battle->viewport1 = {1, 2, 3, 4};
    battle->moveViewport(2);
    EXPECT_THAT(battle->viewport1, isRect(1, 2, 3, 4));
    EXPECT_THAT(battle->viewport2, isRect(555, 505, 7, 8));
}

TEST_F(GameHandlerTest, takesEveryOtherIdForTheRightViewport) {
    place(ship1, 600, 600);
    place(ship2, 700, 700);
    for (const int id : {0, 3, -1, 100}) {
        battle->viewport1 = {1, 2, 390, 490};
        battle->viewport2 = {1, 2, 390, 490};
        battle->moveViewport(id);
        EXPECT_THAT(battle->viewport1, isAt(1, 2)) << id;
        EXPECT_THAT(battle->viewport2, isAt(555, 505)) << id;
    }
}

TEST_F(GameHandlerTest, halvesEachSizeByItself) {
    place(ship1, 600, 600);
    ship1->rect.w = 99;
    ship1->rect.h = 97;
    battle->moveViewport(1);
    EXPECT_THAT(battle->viewport1, isAt(454, 403));
    battle->viewportSize = {0, 0, 389, 491};
    battle->moveViewport(1);
    EXPECT_THAT(battle->viewport1, isAt(455, 403));
}

// 30000 + 32767 - 195 is -2964 in 16 bits.
TEST_F(GameHandlerTest, takesTheMiddleOfAShipAsASigned16BitNumberBeforeItClamps) {
    ship1->rect = {30000, 600, 65535, 100};
    battle->moveViewport(1);
    EXPECT_THAT(battle->viewport1, isAt(0, 405));
    ship2->rect = {600, 30000, 100, 65535};
    battle->moveViewport(2);
    EXPECT_THAT(battle->viewport2, isAt(455, 0));
}

TEST_F(GameHandlerTest, clampsViewportsToTheSizeOfTheWorldSurface) {
    SDL_FreeSurface(battle->world);
    battle->world = createSurface(700, 800);
    place(ship1, 600, 700);
    battle->moveViewport(1);
    EXPECT_THAT(battle->viewport1, isAt(309, 309));
}

TEST_F(GameHandlerTest, ignoresEveryOtherKey) {
    for (int key = 0; key < SDLK_LAST; ++key) {
        if (key != SDLK_ESCAPE) {
            SDL_Event event = keyDown(static_cast<SDLKey>(key));
            battle->event(&event);
            EXPECT_EQ(newProgramMode, nullptr) << key;
        }
    }
}

TEST_F(GameHandlerTest, ignoresEveryOtherEvent) {
    running = true;
    SDL_Event quit = {};
    quit.type = SDL_QUIT;
    // The key of these is Escape where a handler reads on without looking at the type.
    std::vector<SDL_Event> events = {keyUp(SDLK_ESCAPE), mouseDown(1), mouseUp(1),
                                     mouseMotion(27, 27), quit};
    for (SDL_Event& event : events) {
        event.key.keysym.sym = SDLK_ESCAPE;
        battle->event(&event);
        EXPECT_EQ(newProgramMode, nullptr) << int{event.type};
    }
    EXPECT_TRUE(running);
    running = false;
}

TEST_F(GameHandlerTest, blackensTheClipRectangleOnly) {
    fillAll(screen, white);
    SDL_Rect clip = {100, 200, 300, 50};
    SDL_SetClipRect(screen, &clip);
    battle->activate();
    EXPECT_EQ(firstOther(screen, clip, black), "");
    EXPECT_EQ(countOf(screen, black), 300 * 50);
    EXPECT_EQ(countOf(screen, white), 800 * 600 - 300 * 50);
}

TEST_F(GameHandlerTest, cleansNothingUp) {
    fillAll(screen, white);
    battle->cleanUp();
    EXPECT_EQ(battle->objects.size(), 4U);
    EXPECT_NE(battle->world, nullptr);
    EXPECT_EQ(firstOther(screen, {0, 0, 800, 600}, white), "");
    EXPECT_EQ(newProgramMode, nullptr);
}

TEST_F(GameHandlerTest, mapsColoursForTheWorld) {
    const int value = battle->mapWorldRGB(12, 34, 56);
    Uint8 r = 0;
    Uint8 g = 0;
    Uint8 b = 0;
    SDL_GetRGB(static_cast<Uint32>(value), battle->world->format, &r, &g, &b);
    EXPECT_EQ((Colour{r, g, b}), (Colour{12, 34, 56}));
}

TEST_F(GameHandlerTest, dropsThePaletteOfTheWorldWhenItMapsColours) {
    SDL_Palette palette = {};
    battle->world->format->palette = &palette;
    battle->mapWorldRGB(1, 2, 3);
    EXPECT_EQ(battle->world->format->palette, nullptr);
}

TEST_F(GameHandlerTest, deletesItsObjectsInOrder) {
    std::vector<int> deletions;
    battle->objects.insert(battle->objects.begin(),
                           new Probe(nullptr, [&] { deletions.push_back(1); }));
    battle->objects.push_back(new Probe(nullptr, [&] { deletions.push_back(2); }));
    battle->objects.push_back(new Probe(nullptr, [&] { deletions.push_back(3); }));
    battle.reset();
    EXPECT_THAT(deletions, testing::ElementsAre(1, 2, 3));
}

TEST_F(GameHandlerTest, deletesTheRestBehindAMissingObject) {
    int deletions = 0;
    battle->objects.insert(battle->objects.begin(), nullptr);
    battle->objects.push_back(new Probe(nullptr, [&] { ++deletions; }));
    battle.reset();
    EXPECT_EQ(deletions, 1);
}

TEST_F(GameHandlerTest, freesTheWorldAndTheBackground) {
    SDL_Surface* background = battle->background;
    ++background->refcount;
    EXPECT_TRUE(isFreedBy(battle->world, [this] { battle.reset(); }));
    EXPECT_EQ(background->refcount, 1);
    SDL_FreeSurface(background);
}

TEST_F(GameHandlerTest, leavesThePicturesToThePool) {
    addBarrier({500, 500, 60, 60});
    play(1);
    battle.reset();
    for (const auto& picture : imagePool) {
        EXPECT_EQ(picture.second->refcount, 1) << picture.first;
    }
}

TEST_F(GameHandlerTest, leavesARequestedModeAloneWhenDeleted) {
    SDL_Event event = keyDown(SDLK_ESCAPE);
    battle->event(&event);
    battle.reset();
    EXPECT_NE(dynamic_cast<MainMenu*>(newProgramMode), nullptr);
}

} // namespace
