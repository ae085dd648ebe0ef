// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include "display.h"

struct TextLine {
    int line; // 0 is centred vertically, 1 is one text height below
    const char* text;
};

// Tests with the game's font, on a display that is red all over, with the program running.
class TextScreenTest : public DisplayTest {
protected:
    void SetUp() override;
    void TearDown() override;

    // As difference(), between the display and these lines in white on black.
    std::string differenceFrom(const std::vector<TextLine>& lines);

    // True when the main menu is requested; forgets the request.
    bool takeMenuRequest();
};
