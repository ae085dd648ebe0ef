// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <ostream>
#include <string>

#include <SDL.h>
#include <gtest/gtest.h>

#include "events.h"

// A colour of a pixel.
struct Colour {
    int r;
    int g;
    int b;
    int a = 255;
};

const Colour black = {0, 0, 0};
const Colour white = {255, 255, 255};
const Colour red = {255, 0, 0};
const Colour green = {0, 255, 0};
const Colour blue = {0, 0, 255};

// Alpha is not compared: the display has none.
bool operator==(const Colour& left, const Colour& right);
std::ostream& operator<<(std::ostream& out, const Colour& colour);

// The colour of one pixel of a 32-bit surface, which must contain it.
Colour pixel(SDL_Surface* surface, int x, int y);

// Fills a rectangle of a surface with a colour, alpha included.
void fill(SDL_Surface* surface, SDL_Rect rect, Colour colour);

// Makes a picture of one colour with an alpha channel, as loaded pictures have, and puts it into
// imagePool, which owns it.
SDL_Surface* addPicture(const std::string& filename, int w, int h, Colour colour);

// Tests with a display of the game's size, without any data loaded.
class DisplayTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;
};
