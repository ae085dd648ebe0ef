// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "helpscreen.h"

#include "main.h"
#include "mainmenu.h"

HelpScreen::~HelpScreen() = default;

void HelpScreen::event(SDL_Event* e) {
    if (leavesTextScreen(*e)) {
        newProgramMode = new MainMenu;
    }
}

void HelpScreen::activate() {
    blackenDisplay();
    simpleText("Morvane:", -4);
    simpleText("Player 1 (left): slower projectile, faster ship", -2);
    simpleText("WASD = move, Tab/Space = shoot, Z = teleport", -1);
    simpleText("Player 2 (right): faster projectile, slower ship", 0);
    simpleText("Arrows = move, Enter = shoot, Delete = teleport", 1);
    simpleText("Enjoy!", 3);
    SDL_Flip(screen);
}
