// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include "display.h"

// The colour of frame k of the ship sheet and of the dial that BattleTest paints; every frame has
// one of its own.
Colour shipFrameColour(int k);
Colour dialFrameColour(int k);

const Colour waterColour = {10, 20, 200};
const Colour ballColour = {250, 240, 0};
const Colour barColour = {200, 0, 0};
const Colour barrierColours[] = {{0, 100, 0}, {100, 100, 0}, {100, 100, 100}};

// Tests with a display and small plain pictures for everything that a battle or a menu draws, so
// that new art changes no result. Pictures have the sizes of the real ones.
class BattleTest : public DisplayTest {
protected:
    void SetUp() override;
};
