// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "credits.h"

#include "main.h"
#include "mainmenu.h"

Credits::~Credits() = default;

void Credits::event(SDL_Event* e) {
    if (leavesTextScreen(*e)) {
        newProgramMode = new MainMenu;
    }
}

void Credits::activate() {
    blackenDisplay();
    simpleText("This program was made by:", -2);
    simpleText("Brannoc workshop: code", 0);
    simpleText("Brannoc workshop: pictures", 1);
    simpleText("Brannoc workshop: music", 2);
    SDL_Flip(screen);
}
