// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "mainmenubutton.h"

#include <memory>
#include <vector>

#include "main.h"
#include "menu.h"
#include "pictures.h"

namespace {

struct ButtonPlace {
    int id;
    int type;
    int y; // on the plain pictures of MenuTest
};

const ButtonPlace buttonPlaces[] = {{0, 2, 284}, {1, 8, 327}, {2, 9, 370}, {3, 11, 413}};

class MainMenuButtonTest : public MenuTest {
protected:
    MainMenuButton& button(int id) {
        return *menu->buttons[static_cast<std::size_t>(id)];
    }

    // The focus levels of a button over the given number of updates.
    std::vector<int> levelsOver(int updates, int id) {
        std::vector<int> levels;
        for (int i = 0; i < updates; ++i) {
            button(id).update();
            levels.push_back(button(id).focusLevel);
        }
        return levels;
    }

    // The middle of a button drawn at a focus level over a plain target.
    Colour drawnAt(int id, int focusLevel, Colour under = black) {
        OwnedSurface target(createSurface(800, 600));
        fillAll(target.get(), under);
        button(id).focusLevel = focusLevel;
        button(id).redraw(target.get());
        return pixel(target.get(), 400, buttonPlaces[id].y + 21);
    }
};

void expectPosition(const MainMenuButton& button, int x, int y) {
    const SDL_Rect pos = button.getPosition();
    EXPECT_EQ(pos.x, x);
    EXPECT_EQ(pos.y, y);
    EXPECT_EQ(pos.w, 200);
    EXPECT_EQ(pos.h, 43);
}

TEST_F(MainMenuButtonTest, startsWithoutHighlight) {
    for (const ButtonPlace& place : buttonPlaces) {
        SCOPED_TRACE(place.id);
        const MainMenuButton made(menu.get(), place.id);
        EXPECT_EQ(made.id, place.id);
        EXPECT_EQ(made.type, place.type);
        EXPECT_EQ(made.focusLevel, 0);
        EXPECT_EQ(made.menu, menu.get());
    }
}

TEST_F(MainMenuButtonTest, hasAScratchPictureOfItsOwnSizeWithoutAlpha) {
    EXPECT_EQ(button(0).buf->w, 200);
    EXPECT_EQ(button(0).buf->h, 43);
    EXPECT_EQ(button(0).buf->format->BitsPerPixel, 32);
    EXPECT_EQ(button(0).buf->format->Amask, 0U);
    EXPECT_NE(button(0).buf, button(1).buf);
}

TEST_F(MainMenuButtonTest, freesItsScratchPicture) {
    auto made = std::make_unique<MainMenuButton>(menu.get(), 0);
    EXPECT_TRUE(isFreedBy(made->buf, [&made] { made.reset(); }));
}

TEST_F(MainMenuButtonTest, roundsTheMiddleOfOddPanelsTowardsZero) {
    // 271 / 2 is 135; of the low panel, on which the block is taller, -71 / 2 is -35.
    const int heights[][5] = {{443, 285, 328, 371, 414}, {101, 115, 157, 200, 243}};
    for (const auto& row : heights) {
        SCOPED_TRACE(row[0]);
        replacePicture("menu.png", 300, row[0], panelColour);
        for (int id = 0; id < 4; ++id) {
            expectPosition(button(id), 300, row[id + 1]);
        }
    }
}

TEST_F(MainMenuButtonTest, movesWithTheHeightOfTheLogo) {
    replacePicture("logo.png", 500, 77, logoColour);
    expectPosition(button(0), 300, 211);
    expectPosition(button(3), 300, 340);
}

TEST_F(MainMenuButtonTest, staysInPlaceWhateverTheWidthsOfThePictures) {
    replacePicture("logo.png", 799, 150, logoColour);
    replacePicture("menu.png", 123, 440, panelColour);
    expectPosition(button(2), 300, 370);
}

TEST_F(MainMenuButtonTest, isFullyHighlightedOnTheFourthFrameOfFocus) {
    menu->focusedButton = 2;
    EXPECT_EQ(levelsOver(6, 2), (std::vector<int>{70, 140, 210, 255, 255, 255}));
}

TEST_F(MainMenuButtonTest, fadesBackInFourFrames) {
    button(2).focusLevel = 255;
    menu->focusedButton = 1;
    EXPECT_EQ(levelsOver(6, 2), (std::vector<int>{185, 115, 45, 0, 0, 0}));
}

TEST_F(MainMenuButtonTest, showsThePictureThirteenRowsBelowAtFullFocus) {
    const int highlightedRows[] = {15, 21, 22, 24};
    for (const ButtonPlace& place : buttonPlaces) {
        SCOPED_TRACE(place.id);
        EXPECT_EQ(drawnAt(place.id, 255), cellColour(highlightedRows[place.id]));
    }
}

// From (36, 226, 40) towards (140, 135, 200).
TEST_F(MainMenuButtonTest, blendsItsTwoPicturesByTheFocusLevel) {
    struct Blend {
        int focusLevel;
        Colour colour;
    };
    const Blend blends[] = {{70, {65, 201, 84}},    {140, {93, 176, 128}}, {210, {122, 151, 172}},
                            {185, {111, 160, 156}}, {115, {83, 185, 112}}, {45, {54, 210, 68}}};
    for (const Blend& blend : blends) {
        SCOPED_TRACE(blend.focusLevel);
        EXPECT_THAT(drawnAt(0, blend.focusLevel), isNear(blend.colour, 2));
    }
}

TEST_F(MainMenuButtonTest, drawsEveryPixelOfItsRectangleAndNoOther) {
    OwnedSurface target(createSurface(800, 600));
    fillAll(target.get(), blue);
    OwnedSurface expected = copyOf(target.get());
    fill(expected.get(), {300, 370, 200, 43}, cellColour(22));
    button(2).focusLevel = 255;
    button(2).redraw(target.get());
    EXPECT_EQ(difference(expected.get(), target.get()), "");
}

TEST_F(MainMenuButtonTest, takesItsWholeCellAtItsPlace) {
    fill(imagePool["tlacitka.png"], {0, 387, 1, 1}, red);
    fill(imagePool["tlacitka.png"], {199, 429, 1, 1}, blue);
    OwnedSurface target(createSurface(800, 600));
    button(2).redraw(target.get());
    EXPECT_EQ(pixel(target.get(), 300, 370), red);
    EXPECT_EQ(pixel(target.get(), 301, 370), cellColour(9));
    EXPECT_EQ(pixel(target.get(), 499, 412), blue);
    EXPECT_EQ(pixel(target.get(), 498, 412), cellColour(9));
}

TEST_F(MainMenuButtonTest, takesTheWholeHighlightedCell) {
    fill(imagePool["tlacitka.png"], {0, 946, 1, 1}, red);
    fill(imagePool["tlacitka.png"], {199, 988, 1, 1}, blue);
    OwnedSurface target(createSurface(800, 600));
    button(2).focusLevel = 255;
    button(2).redraw(target.get());
    EXPECT_EQ(pixel(target.get(), 300, 370), red);
    EXPECT_EQ(pixel(target.get(), 499, 412), blue);
}

TEST_F(MainMenuButtonTest, showsTheTargetThroughAClearNormalPicture) {
    fill(imagePool["tlacitka.png"], {0, 86, 200, 43}, {255, 255, 255, 0});
    EXPECT_EQ(drawnAt(0, 0, blue), blue);
}

// 140 / 255 of the way from (36, 226, 40) to blue.
TEST_F(MainMenuButtonTest, blendsTowardsTheTargetWhereTheHighlightIsClear) {
    fill(imagePool["tlacitka.png"], {0, 645, 200, 43}, {255, 255, 255, 0});
    EXPECT_THAT(drawnAt(0, 140, blue), isNear(Colour{16, 102, 158}, 2));
}

// A red of alpha 102 over blue is (102, 0, 153).
TEST_F(MainMenuButtonTest, mixesAHalfClearHighlightWithTheTarget) {
    fill(imagePool["tlacitka.png"], {0, 645, 200, 43}, {255, 0, 0, 102});
    EXPECT_THAT(drawnAt(0, 255, blue), isNear(Colour{102, 0, 153}, 2));
}

TEST_F(MainMenuButtonTest, forgetsTheTargetOfTheLastTime) {
    fill(imagePool["tlacitka.png"], {0, 645, 200, 43}, {255, 255, 255, 0});
    EXPECT_EQ(drawnAt(0, 255, blue), blue);
    EXPECT_EQ(drawnAt(0, 255, red), red);
}

TEST_F(MainMenuButtonTest, drawsAtTheSameLevelUntilTheNextUpdate) {
    menu->focusedButton = 0;
    EXPECT_EQ(drawnAt(0, 0), cellColour(2));
    EXPECT_EQ(button(0).focusLevel, 0);
}

} // namespace
