// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "battle.h"

#include <cstdlib>

namespace {

void addShipSheet() {
    SDL_Surface* sheet = addPicture("lod1.png", 600, 600, black);
    for (int k = 0; k < 36; ++k) {
        fill(sheet, {static_cast<Sint16>(k % 6 * 100), static_cast<Sint16>(k / 6 * 100), 100, 100},
             shipFrameColour(k));
    }
}

void addDial() {
    SDL_Surface* dial = addPicture("kruh.png", 621, 345, black);
    for (int k = 0; k <= 40; ++k) {
        fill(dial, {static_cast<Sint16>(k / 5 * 69), static_cast<Sint16>(k % 5 * 69), 69, 69},
             dialFrameColour(k));
    }
}

} // namespace

Colour shipFrameColour(int k) {
    return {240, 100 + k, 60};
}

Colour dialFrameColour(int k) {
    return {60, 100 + k, 240};
}

void BattleTest::SetUp() {
    DisplayTest::SetUp();
    addPicture("voda.png", 325, 325, waterColour);
    addShipSheet();
    addDial();
    addPicture("bar1.png", 400, 100, barColour);
    addPicture("bar2.png", 400, 100, barColour);
    addPicture("cball.png", 20, 20, ballColour);
    addPicture("prekazka1.png", 220, 180, barrierColours[0]);
    addPicture("prekazka2.png", 130, 100, barrierColours[1]);
    addPicture("prekazka3.png", 60, 60, barrierColours[2]);
    addPicture("logo.png", 500, 150, {90, 0, 0});
    addPicture("menu.png", 300, 440, {0, 90, 0});
    addPicture("tlacitka.png", 200, 1118, {0, 0, 90});
    addPicture("pozadie-lode3.png", 800, 600, {90, 90, 0});
    srandom(1);
}
