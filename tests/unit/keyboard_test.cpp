// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "keyboard.h"

#include "display.h"
#include "keys.h"

namespace {

TEST(KeyboardTest, everyKeyIsUpAtFirst) {
    for (int key = 0; key < 323; ++key) {
        EXPECT_FALSE(Keyboard::isPressed(key)) << "key " << key;
    }
}

TEST(KeyboardTest, knowsEveryKeyOfTheLibrary) {
    EXPECT_EQ(SDLK_LAST, 323);
}

TEST(KeyboardTest, everyKeyCanBePressedWithoutTouchingAnother) {
    for (int key = 0; key < 323; ++key) {
        SCOPED_TRACE(key);
        press(static_cast<SDLKey>(key));
        for (int other = 0; other < 323; ++other) {
            ASSERT_EQ(Keyboard::isPressed(other), other == key) << "key " << other;
        }
        release(static_cast<SDLKey>(key));
        Keyboard::releaseKeys();
    }
}

TEST(KeyboardTest, aHeldKeyStaysPressedThroughTheFrames) {
    press(SDLK_a);
    for (int frame = 0; frame < 1000; ++frame) {
        Keyboard::releaseKeys();
        ASSERT_TRUE(Keyboard::isPressed(SDLK_a)) << "frame " << frame;
    }
}

TEST(KeyboardTest, aReleasedKeyIsPressedUntilItsFrameEnds) {
    press(SDLK_a);
    Keyboard::releaseKeys();
    release(SDLK_a);
    EXPECT_TRUE(Keyboard::isPressed(SDLK_a));
    Keyboard::releaseKeys();
    EXPECT_FALSE(Keyboard::isPressed(SDLK_a));
}

TEST(KeyboardTest, aKeyPressedAgainInTheFrameOfItsReleaseReadsAsUpFromTheNextFrame) {
    press(SDLK_a);
    Keyboard::releaseKeys();
    release(SDLK_a);
    press(SDLK_a);
    EXPECT_TRUE(Keyboard::isPressed(SDLK_a));
    Keyboard::releaseKeys();
    EXPECT_FALSE(Keyboard::isPressed(SDLK_a));
}

TEST(KeyboardTest, aKeyReadingAsUpWhileHeldWorksAgainAfterItsNextPress) {
    press(SDLK_a);
    release(SDLK_a);
    press(SDLK_a);
    Keyboard::releaseKeys();
    release(SDLK_a);
    EXPECT_TRUE(Keyboard::isPressed(SDLK_a));
    Keyboard::releaseKeys();
    press(SDLK_a);
    Keyboard::releaseKeys();
    EXPECT_TRUE(Keyboard::isPressed(SDLK_a));
}

TEST(KeyboardTest, aReleaseWithoutAPressCountsForItsFrame) {
    release(SDLK_a);
    EXPECT_TRUE(Keyboard::isPressed(SDLK_a));
    Keyboard::releaseKeys();
    EXPECT_FALSE(Keyboard::isPressed(SDLK_a));
}

TEST(KeyboardTest, aSecondPressOfAHeldKeyChangesNothing) {
    press(SDLK_a);
    press(SDLK_a);
    Keyboard::releaseKeys();
    EXPECT_TRUE(Keyboard::isPressed(SDLK_a));
    release(SDLK_a);
    Keyboard::releaseKeys();
    EXPECT_FALSE(Keyboard::isPressed(SDLK_a));
}

TEST(KeyboardTest, releasingOneOfTwoKeysLeavesTheOther) {
    press(SDLK_a);
    press(SDLK_b);
    release(SDLK_a);
    Keyboard::releaseKeys();
    EXPECT_FALSE(Keyboard::isPressed(SDLK_a));
    EXPECT_TRUE(Keyboard::isPressed(SDLK_b));
}

SDL_Event describedKeyDown() {
    SDL_Event event = keyDown(SDLK_q);
    event.key.keysym.scancode = 24;
    event.key.keysym.mod = KMOD_LSHIFT;
    event.key.keysym.unicode = 0x51;
    return event;
}

void expectDescribedKey(SDL_keysym key) {
    EXPECT_EQ(key.scancode, 24);
    EXPECT_EQ(key.sym, SDLK_q);
    EXPECT_EQ(key.mod, KMOD_LSHIFT);
    EXPECT_EQ(key.unicode, 0x51);
}

TEST(KeyboardTest, theLatestKeyIsAllZeroAtFirst) {
    const SDL_keysym key = Keyboard::readkey();
    EXPECT_EQ(key.scancode, 0);
    EXPECT_EQ(key.sym, SDLK_UNKNOWN);
    EXPECT_EQ(key.mod, KMOD_NONE);
    EXPECT_EQ(key.unicode, 0);
}

TEST(KeyboardTest, theLatestKeyIsTheWholeDescriptionOfTheLatestPress) {
    press(SDLK_a);
    SDL_Event event = describedKeyDown();
    Keyboard::keyPress(&event);
    expectDescribedKey(Keyboard::readkey());
}

TEST(KeyboardTest, aReleaseTheEndOfTheFrameAndReadingLeaveTheLatestKey) {
    SDL_Event event = describedKeyDown();
    Keyboard::keyPress(&event);
    release(SDLK_q);
    release(SDLK_b);
    Keyboard::releaseKeys();
    Keyboard::readkey();
    expectDescribedKey(Keyboard::readkey());
}

TEST(KeyboardTest, theLatestKeyIsRenewedEvenByAPressThatChangesNoState) {
    SDL_Event event = describedKeyDown();
    Keyboard::keyPress(&event);
    press(SDLK_b);
    release(SDLK_q);
    Keyboard::keyPress(&event);
    expectDescribedKey(Keyboard::readkey());
}

} // namespace
