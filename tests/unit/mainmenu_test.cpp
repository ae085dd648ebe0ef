// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "mainmenu.h"

#include <memory>

#include "drawing.h"
#include "main.h"
#include "mainmenubutton.h"
#include "menu.h"
#include "music.h"
#include "pictures.h"

namespace {

class MainMenuTest : public MenuTest {};

TEST_F(MainMenuTest, hasAPictureOfTheSizeOfTheDisplay) {
    EXPECT_EQ(menu->menuImage->w, 800);
    EXPECT_EQ(menu->menuImage->h, 600);
    EXPECT_EQ(menu->menuImage->format->Amask, 0U);
}

TEST_F(MainMenuTest, showsNothingUntilItIsActivated) {
    fillAll(screen, blue);
    OwnedSurface before = copyOf(screen);
    const FlipWatch watch;
    const MainMenu another;
    EXPECT_EQ(watch.count, 0);
    EXPECT_EQ(difference(before.get(), screen), "");
}

TEST_F(MainMenuTest, freesItsPicture) {
    EXPECT_TRUE(isFreedBy(menu->menuImage, [this] { menu.reset(); }));
}

TEST_F(MainMenuTest, deletesItsButtons) {
    EXPECT_TRUE(isFreedBy(menu->buttons[0]->buf, [this] { menu.reset(); }));
    menu = std::make_unique<MainMenu>();
    EXPECT_TRUE(isFreedBy(menu->buttons[3]->buf, [this] { menu.reset(); }));
}

TEST_F(MainMenuTest, keepsThePicturesOfThePool) {
    menu.reset();
    EXPECT_EQ(imagePool["logo.png"]->refcount, 1);
    EXPECT_EQ(imagePool["menu.png"]->refcount, 1);
    EXPECT_EQ(imagePool["tlacitka.png"]->refcount, 1);
    EXPECT_EQ(imagePool["pozadie-lode3.png"]->refcount, 1);
}

TEST_F(MainMenuTest, tellsTheHeightsOfItsLayout) {
    EXPECT_EQ(MainMenu::getLogoHeight(), 150);
    EXPECT_EQ(MainMenu::getMenuHeight(), 440);
    EXPECT_EQ(MainMenu::getAbsoluteMenuYOffset(), 150);
    EXPECT_EQ(MainMenu::getLogoYOffset(), 0);
    EXPECT_EQ(MainMenu::getMenuYOffset(), 0);
}

TEST_F(MainMenuTest, drawsLogoPanelAndButtonsOverTheBackground) {
    OwnedSurface expected(createSurface(800, 600));
    fillAll(expected.get(), backgroundColour);
    fill(expected.get(), {150, 0, 500, 150}, logoColour);
    fill(expected.get(), {250, 150, 300, 440}, panelColour);
    fill(expected.get(), {300, 284, 200, 43}, cellColour(2));
    fill(expected.get(), {300, 327, 200, 43}, cellColour(8));
    fill(expected.get(), {300, 370, 200, 43}, cellColour(9));
    fill(expected.get(), {300, 413, 200, 43}, cellColour(11));
    menu->redraw();
    EXPECT_EQ(difference(expected.get(), screen), "");
    EXPECT_EQ(difference(expected.get(), menu->menuImage), "");
}

// With run lengths, the classic library would encode the strip again eight times a frame.
TEST_F(MainMenuTest, drawsItsPlatesWithoutRunLengths) {
    SDL_Surface* strip = imagePool["tlacitka.png"];
    SDL_SetAlpha(strip, SDL_SRCALPHA | SDL_RLEACCEL, strip->format->alpha);

    menu->activate();
    menu->update();

    EXPECT_EQ(strip->flags & (SDL_RLEACCEL | SDL_RLEACCELOK), 0U);
    EXPECT_NE(strip->flags & SDL_SRCALPHA, 0U);
}

TEST_F(MainMenuTest, paintsOverWhateverWasThere) {
    menu->redraw();
    OwnedSurface expected = copyOf(screen);
    fillAll(menu->menuImage, red);
    fillAll(screen, blue);
    menu->redraw();
    EXPECT_EQ(difference(expected.get(), screen), "");
}

TEST_F(MainMenuTest, cutsPicturesWiderThanTheDisplayOnBothSides) {
    SDL_Surface* logo = replacePicture("logo.png", 901, 150, logoColour);
    fill(logo, {50, 0, 1, 150}, red); // -101 / 2 is -50
    SDL_Surface* panel = replacePicture("menu.png", 803, 440, panelColour);
    fill(panel, {1, 0, 1, 440}, blue); // -3 / 2 is -1
    menu->redraw();
    EXPECT_EQ(pixel(screen, 0, 10), red);
    EXPECT_EQ(pixel(screen, 1, 10), logoColour);
    EXPECT_EQ(pixel(screen, 0, 160), blue);
    EXPECT_EQ(pixel(screen, 1, 160), panelColour);
    EXPECT_EQ(pixel(screen, 799, 160), panelColour);
}

TEST_F(MainMenuTest, drawsLowerButtonsOverUpperOnes) {
    replacePicture("menu.png", 300, 101, panelColour);
    menu->redraw();
    EXPECT_EQ(pixel(screen, 400, 156), cellColour(2));
    EXPECT_EQ(pixel(screen, 400, 157), cellColour(8)); // where both have a row
}

TEST_F(MainMenuTest, flipsTheFinishedPictureOnce) {
    OwnedSurface flipped;
    const FlipWatch watch([&flipped] { flipped = copyOf(screen); });
    menu->redraw();
    ASSERT_EQ(watch.count, 1);
    EXPECT_EQ(pixel(flipped.get(), 400, 430), cellColour(11));
    EXPECT_EQ(difference(flipped.get(), screen), "");
}

// No music is loaded here, but Music still keeps the number of the track.
TEST_F(MainMenuTest, playsTheFirstTrackOnceItsPictureIsShown) {
    haveSound = true;
    Music::play(2);
    int trackAtFlip = 0;
    const FlipWatch watch([&trackAtFlip] { trackAtFlip = Music::current(); });
    menu->activate();
    EXPECT_EQ(trackAtFlip, 2);
    EXPECT_EQ(Music::current(), 1);
}

TEST_F(MainMenuTest, blackensTheDisplayWithoutAFlip) {
    fillAll(screen, blue);
    OwnedSurface expected(createSurface(800, 600));
    const FlipWatch watch;
    menu->cleanUp();
    EXPECT_EQ(watch.count, 0);
    EXPECT_EQ(difference(expected.get(), screen), "");
}

} // namespace
