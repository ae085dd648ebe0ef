// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "gameover.h"

#include "main.h"
#include "mainmenu.h"

GameOver::GameOver(int loser) : defeatedPlayer(loser) {}

GameOver::~GameOver() = default;

void GameOver::event(SDL_Event* e) {
    if (e->type == SDL_KEYDOWN && e->key.keysym.sym == SDLK_ESCAPE) {
        newProgramMode = new MainMenu;
    }
}

void GameOver::activate() {
    blackenDisplay();
    simpleText("Game over.", -1);
    simpleText(defeatedPlayer == 2 ? "Player 1 won." : "Player 2 won.", 0);
    simpleText("Press Escape to return to main menu.", 1);
    SDL_Flip(screen);
}
