// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "introscreen.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <memory>
#include <vector>

#include "drawing.h"
#include "main.h"
#include "mainmenu.h"
#include "menu.h"
#include "pictures.h"

namespace {

const Colour makersColour = {240, 180, 20};
const Colour presentsColour = {30, 200, 250};

class IntroScreenTest : public MenuTest {
protected:
    void SetUp() override {
        MenuTest::SetUp();
        addPicture("brannoc4f.png", 301, 201, makersColour);
        addPicture("presentsscreen1.png", 401, 151, presentsColour);
        intro = std::make_unique<IntroScreen>();
    }

    void TearDown() override {
        intro.reset();
        MenuTest::TearDown();
    }

    void updateTimes(int times) {
        for (int i = 0; i < times; ++i) {
            intro->update();
        }
    }

    // Lets the intro run fast where only its counting matters.
    static void drawNowhere() {
        const SDL_Rect nowhere = {0, 0, 0, 0};
        SDL_SetClipRect(screen, &nowhere);
    }

    // One update as if it were frame f.
    void updateAt(int f) {
        intro->frameCounter = f;
        intro->update();
    }

    void sendToIntro(SDL_Event event) {
        intro->event(&event);
    }

    bool requestsMenu() {
        return dynamic_cast<MainMenu*>(newProgramMode) != nullptr;
    }

    std::unique_ptr<IntroScreen> intro;
};

void expectPicture(SDL_Surface* buf, SDL_Rect place, Colour inside, Colour outside) {
    OwnedSurface expected(createSurface(800, 600));
    fillAll(expected.get(), outside);
    fill(expected.get(), place, inside);
    EXPECT_EQ(difference(expected.get(), buf), "");
}

TEST_F(IntroScreenTest, startsAtFrameZeroWithAPictureOfTheSizeOfTheDisplay) {
    EXPECT_EQ(intro->frameCounter, 0);
    ASSERT_NE(intro->buf, nullptr);
    EXPECT_EQ(intro->buf->w, 800);
    EXPECT_EQ(intro->buf->h, 600);
    EXPECT_EQ(intro->buf->format->Amask, 0U);
}

TEST_F(IntroScreenTest, freesItsPicture) {
    EXPECT_TRUE(isFreedBy(intro->buf, [this] { intro.reset(); }));
}

TEST_F(IntroScreenTest, drawsNothingBeforeItsFirstFrame) {
    fillAll(screen, blue);
    OwnedSurface before = copyOf(screen);
    const FlipWatch watch;
    IntroScreen another;
    another.activate();
    another.cleanUp();
    EXPECT_EQ(another.frameCounter, 0);
    EXPECT_EQ(watch.count, 0);
    EXPECT_EQ(difference(before.get(), screen), "");
}

TEST_F(IntroScreenTest, cleansNothingUp) {
    updateAt(540);
    OwnedSurface before = copyOf(screen);
    intro->cleanUp();
    EXPECT_EQ(difference(before.get(), screen), "");
    EXPECT_NE(intro->buf, nullptr);
    EXPECT_EQ(newProgramMode, nullptr);
}

// The pictures.

TEST_F(IntroScreenTest, putsTheMakersLogoInTheMiddleOfBlack) {
    fillAll(intro->buf, red);
    updateAt(0);
    expectPicture(intro->buf, {249, 199, 301, 201}, makersColour, black);
}

TEST_F(IntroScreenTest, putsThePresentsPictureInTheMiddleOfBlack) {
    updateAt(0);
    updateAt(180);
    expectPicture(intro->buf, {199, 224, 401, 151}, presentsColour, black);
}

TEST_F(IntroScreenTest, composesTheTitleFromBackgroundAndLogo) {
    replacePicture("logo.png", 501, 77, logoColour);
    updateAt(360);
    expectPicture(intro->buf, {149, 0, 501, 77}, logoColour, backgroundColour);
}

TEST_F(IntroScreenTest, cutsALogoWiderThanTheDisplayOnBothSides) {
    SDL_Surface* logo = replacePicture("logo.png", 901, 600, logoColour);
    fill(logo, {50, 0, 1, 600}, red); // -101 / 2 is -50
    updateAt(360);
    expectPicture(intro->buf, {0, 0, 1, 600}, red, logoColour);
}

TEST_F(IntroScreenTest, composesOnlyAtTheStartOfAPhase) {
    updateAt(0);
    fillAll(intro->buf, red);
    for (int f : {1, 179, 181, 359, 361, 539, 541, 599, 600}) {
        SCOPED_TRACE(f);
        updateAt(f);
        expectPicture(intro->buf, {0, 0, 1, 1}, red, red);
    }
}

// The fades.

TEST_F(IntroScreenTest, flipsEachFrameOnceItIsBlended) {
    updateAt(0);
    fillAll(screen, white);
    OwnedSurface flipped;
    const FlipWatch watch([&flipped] { flipped = copyOf(screen); });
    updateAt(90);
    ASSERT_EQ(watch.count, 1);
    EXPECT_THAT(pixel(flipped.get(), 0, 0), isNear(Colour{128, 128, 128}, 2));
    EXPECT_EQ(difference(flipped.get(), screen), "");
}

// A place on the display, and what the three pictures of the intro have there.
struct Sample {
    int x;
    int y;
    Colour pictures[3];
};

const Sample samples[] = {
    {400, 300, {makersColour, presentsColour, backgroundColour}},
    {220, 300, {black, presentsColour, backgroundColour}},
    {400, 390, {makersColour, black, backgroundColour}},
    {400, 100, {black, black, logoColour}},
    {10, 590, {black, black, backgroundColour}},
};

int phaseOf(int f) {
    return std::min(f / 180, 2);
}

int opacityOf(int f) {
    const double divisors[] = {180, 180, 1140};
    const int phase = phaseOf(f);
    return f == 540 ? 255 : static_cast<int>((f - 180.0 * phase) / divisors[phase] * 255);
}

// Both libraries add opacity / 256 of the distance, rounded down; an opacity of 255 copies.
int blended(int under, int over, int opacity) {
    if (opacity == 255) {
        return over;
    }
    return under + static_cast<int>(std::floor((over - under) * opacity / 256.0));
}

Colour blended(Colour under, Colour over, int opacity) {
    return {blended(under.r, over.r, opacity), blended(under.g, over.g, opacity),
            blended(under.b, over.b, opacity)};
}

// Every frame blends over what the frame before left. Rounding down stalls a slow fade, so only
// the libraries' own rounding gives the picture. Measured on both libraries the result is exact
// here; 2 is allowed for processors without their vector code, where a blend can take 1 off red.
TEST_F(IntroScreenTest, addsUpTheBlendsOfAllFrames) {
    const FlipWatch watch;
    const Colour start = {200, 40, 120};
    fillAll(screen, start);
    std::vector<Colour> expected(std::size(samples), start);
    for (int f = 0; f < 600; ++f) {
        intro->update();
        for (std::size_t i = 0; i < std::size(samples); ++i) {
            const Sample& sample = samples[i];
            if (f <= 540) {
                const Colour over = sample.pictures[phaseOf(f)];
                expected[i] = blended(expected[i], over, opacityOf(f));
            }
            ASSERT_THAT(pixel(screen, sample.x, sample.y), isNear(expected[i], 2))
                << "in frame " << f << " at " << sample.x << ", " << sample.y << ", not "
                << expected[i];
        }
    }
}

TEST_F(IntroScreenTest, showsTheTitleFullyAtItsEnd) {
    updateAt(360);
    fillAll(screen, red);
    OwnedSurface first;
    const FlipWatch watch([&first] {
        if (first == nullptr) {
            first = copyOf(screen);
        }
    });
    updateAt(540);
    ASSERT_EQ(watch.count, 2);
    expectPicture(screen, {150, 0, 500, 150}, logoColour, backgroundColour);
    EXPECT_EQ(difference(screen, first.get()), "");
}

TEST_F(IntroScreenTest, composesTheTitleAgainAtItsEnd) {
    updateAt(360);
    std::vector<Colour> shown;
    const FlipWatch watch([this, &shown] {
        shown.push_back(pixel(screen, 400, 100));
        fillAll(intro->buf, red);
        fillAll(screen, red);
    });
    fillAll(intro->buf, blue);
    updateAt(540);
    EXPECT_EQ(shown, (std::vector<Colour>{blue, logoColour}));
}

// The end.

TEST_F(IntroScreenTest, asksForTheMenuInItsUpdate601) {
    const FlipWatch watch;
    drawNowhere();
    updateTimes(600);
    EXPECT_EQ(newProgramMode, nullptr);
    intro->update();
    EXPECT_TRUE(requestsMenu());
}

TEST_F(IntroScreenTest, asksForTheMenuOnlyOnce) {
    updateAt(600);
    delete newProgramMode;
    newProgramMode = nullptr;
    updateTimes(60);
    EXPECT_EQ(newProgramMode, nullptr);
}

TEST_F(IntroScreenTest, isSkippedByTheReleaseOfEveryMouseButton) {
    for (int button = 1; button <= 7; ++button) {
        sendToIntro(mouseUp(button));
        EXPECT_TRUE(requestsMenu()) << button;
        delete newProgramMode;
        newProgramMode = nullptr;
    }
    EXPECT_TRUE(running);
}

TEST_F(IntroScreenTest, isSkippedInAnyFrame) {
    for (int f : {0, 1, 180, 360, 540, 599}) {
        SCOPED_TRACE(f);
        intro->frameCounter = f;
        sendToIntro(keyDown(SDLK_SPACE));
        ProgramMode* request = newProgramMode;
        EXPECT_TRUE(requestsMenu());
        intro->update();
        EXPECT_EQ(newProgramMode, request);
        delete newProgramMode;
        newProgramMode = nullptr;
    }
}

TEST_F(IntroScreenTest, stillDrawsTheFrameInWhichItIsSkipped) {
    updateTimes(90);
    fillAll(screen, white);
    fillAll(intro->buf, black);
    const FlipWatch watch;
    sendToIntro(mouseUp(SDL_BUTTON_LEFT));
    EXPECT_EQ(watch.count, 0);
    EXPECT_EQ(intro->frameCounter, 90);
    intro->update();
    EXPECT_EQ(watch.count, 1);
    EXPECT_EQ(intro->frameCounter, 91);
    EXPECT_EQ(pixel(screen, 400, 300).g, 128);
}

TEST_F(IntroScreenTest, replacesASkipInItsLastFrameByItsOwnRequest) {
    intro->frameCounter = 600;
    sendToIntro(keyDown(SDLK_SPACE));
    ProgramMode* first = newProgramMode;
    intro->update();
    EXPECT_TRUE(requestsMenu());
    ASSERT_NE(newProgramMode, first);
    delete first;
}

TEST_F(IntroScreenTest, endsTheProgramOnQuit) {
    SDL_Event quit = {};
    quit.type = SDL_QUIT;
    sendToIntro(quit);
    EXPECT_FALSE(running);
    EXPECT_EQ(newProgramMode, nullptr);
}

TEST_F(IntroScreenTest, ignoresKeyReleasesButtonPressesAndThePointer) {
    for (int code = 0; code < SDLK_LAST; ++code) {
        sendToIntro(keyUp(static_cast<SDLKey>(code)));
        EXPECT_EQ(newProgramMode, nullptr) << code;
    }
    for (int button = 1; button <= 7; ++button) {
        sendToIntro(mouseDown(button));
        EXPECT_EQ(newProgramMode, nullptr) << button;
    }
    sendToIntro(mouseMotion(400, 300));
    EXPECT_EQ(newProgramMode, nullptr);
    EXPECT_TRUE(running);
    EXPECT_EQ(intro->frameCounter, 0);
}

TEST_F(IntroScreenTest, ignoresAllOtherEvents) {
    for (int type : {SDL_ACTIVEEVENT, SDL_JOYBUTTONDOWN, SDL_JOYBUTTONUP, SDL_SYSWMEVENT,
                     SDL_VIDEORESIZE, SDL_VIDEOEXPOSE, SDL_USEREVENT}) {
        SDL_Event event = {};
        event.type = static_cast<Uint8>(type);
        sendToIntro(event);
        EXPECT_EQ(newProgramMode, nullptr) << type;
    }
    EXPECT_TRUE(running);
}

} // namespace
