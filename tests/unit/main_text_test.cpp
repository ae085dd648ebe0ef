// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "main.h"

#include <algorithm>
#include <string>

#include <malloc.h>

#include "display.h"
#include "gamedata.h"
#include "pictures.h"
#include "rects.h"

namespace {

// The smallest rectangle with everything on the display that is not black.
SDL_Rect inked() {
    int left = 800;
    int right = -1;
    int top = 600;
    int bottom = -1;
    for (int y = 0; y < 600; ++y) {
        for (int x = 0; x < 800; ++x) {
            if (!(pixel(screen, x, y) == black)) {
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
                bottom = std::max(bottom, y);
            }
        }
    }
    return {static_cast<Sint16>(left), static_cast<Sint16>(top),
            static_cast<Uint16>(right - left + 1), static_cast<Uint16>(bottom - top + 1)};
}

// Text in the tests' own typeface: at 29 points a line is 30 pixels high with the baseline at 22;
// "A" is a block of 10 x 20 pixels on the baseline, "i" of 3 x 20, e with an acute of 7 x 10, and
// "h" a block of 10 x 10 with half a row on top.
class TextTest : public DisplayTest {
protected:
    void SetUp() override {
        DisplayTest::SetUp();
        ASSERT_EQ(TTF_Init(), 0);
        openFont(29);
    }

    void TearDown() override {
        TTF_CloseFont(papyrusFont);
        TTF_Quit();
        DisplayTest::TearDown();
    }

    void openFont(int size) {
        papyrusFont = TTF_OpenFont(testFile("blocks.ttf").c_str(), size);
        ASSERT_NE(papyrusFont, nullptr) << TTF_GetError();
    }
};

struct Line {
    int line;
    Sint16 top;
};

TEST_F(TextTest, isCentredAndItsLinesLieWholeTextHeightsApart) {
    for (const Line& line :
         {Line{-4, 167}, Line{-2, 227}, Line{-1, 257}, Line{0, 287}, Line{1, 317}, Line{3, 377}}) {
        SCOPED_TRACE(line.line);
        fillAll(screen, black);
        simpleText("A", line.line);
        EXPECT_THAT(inked(), isRect(395, line.top, 10, 20));
    }
}

struct Text {
    const char* text;
    Sint16 left;
    Uint16 width;
};

TEST_F(TextTest, everyLineIsCentredOnItsOwnWidth) {
    for (const Text& text : {Text{"AA", 390, 20}, Text{"AAAAAAAAAA", 350, 100}, Text{"i", 398, 3},
                             Text{"Ai", 393, 13}, Text{"ii", 397, 6}}) {
        SCOPED_TRACE(text.text);
        fillAll(screen, black);
        simpleText(text.text, 0);
        EXPECT_THAT(inked(), isRect(text.left, 287, text.width, 20));
    }
}

// At 58 points a line is 59 pixels high.
TEST_F(TextTest, anOddHeightIsCentredDownwards) {
    TTF_CloseFont(papyrusFont);
    openFont(58);
    simpleText("A", 0);
    EXPECT_THAT(inked(), isRect(390, 274, 20, 40));
    fillAll(screen, black);
    simpleText("A", 1);
    EXPECT_THAT(inked(), isRect(390, 333, 20, 40));
}

TEST_F(TextTest, isSmoothedOverWhatIsAlreadyThere) {
    fillAll(screen, red);
    simpleText("h", 0);
    EXPECT_EQ(pixel(screen, 399, 295), red);
    EXPECT_THAT(pixel(screen, 399, 296), isNear(Colour{255, 128, 128}, 2));
    EXPECT_EQ(pixel(screen, 399, 297), white);
    EXPECT_EQ(pixel(screen, 399, 306), white);
    EXPECT_EQ(pixel(screen, 399, 307), red);
}

TEST_F(TextTest, leavesEverythingAroundItsLettersAlone) {
    fillAll(screen, blue);
    simpleText("AhA", 0);
    EXPECT_EQ(pixel(screen, 384, 297), blue);
    EXPECT_EQ(pixel(screen, 395, 287), blue);
    EXPECT_EQ(pixel(screen, 415, 297), blue);
    EXPECT_EQ(pixel(screen, 385, 286), blue);
    EXPECT_EQ(pixel(screen, 385, 307), blue);
}

TEST_F(TextTest, isReadAsLatin1) {
    simpleText("\xe9", 0);
    EXPECT_THAT(inked(), isRect(396, 297, 7, 10));
}

// The same letter in UTF-8 is two letters of 5 and 3 pixels, both 15 high.
TEST_F(TextTest, isNotReadAsUtf8) {
    simpleText("\xc3\xa9", 0);
    EXPECT_THAT(inked(), isRect(396, 292, 8, 15));
}

// 807 pixels, so the text begins 3.5 pixels left of the display: truncated, 3.
TEST_F(TextTest, widerThanTheDisplayIsCutOffOnBothSides) {
    simpleText((std::string(80, 'A') + "\xe9").c_str(), 0);
    EXPECT_THAT(inked(), isRect(0, 287, 800, 20));
    EXPECT_EQ(pixel(screen, 796, 287), white);
    EXPECT_EQ(pixel(screen, 797, 287), black);
    EXPECT_EQ(pixel(screen, 797, 297), white);
}

TEST_F(TextTest, farAboveTheMiddleIsCutOffAtTheEdge) {
    simpleText("A", -10);
    EXPECT_THAT(inked(), isRect(395, 0, 10, 7));
}

// Compares the allocated memory before and after many calls.
TEST_F(TextTest, isNotKeptInMemoryWhateverItsShapeAndLine) {
    const auto allocated = [] { return mallinfo2().uordblks + mallinfo2().hblkhd; };
    // Higher than wide, square, wider than high, and wider than the display; 360 bytes and more.
    for (const std::size_t letters : {1U, 3U, 10U, 90U}) {
        const std::string text(letters, letters == 1 ? 'i' : 'A');
        for (const int line : {-4, 0, 3}) {
            simpleText(text.c_str(), line);
            const std::size_t before = allocated();
            for (int i = 0; i < 200; ++i) {
                simpleText(text.c_str(), line);
            }
            EXPECT_LT(allocated(), before + 12000) << letters << " letters in line " << line;
        }
    }
}

TEST_F(TextTest, thatCannotBeRenderedIsLeftOut) {
    simpleText("", 0);
    EXPECT_EQ(countOf(screen, black), 800 * 600);
}

} // namespace
