// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>

#include "programmode.h"

// Names the winner of a duel. Only Escape leaves this screen, so that keys still held from the
// battle cannot close it before the players have read the result.
class GameOver : public ProgramMode {
public:
    // The id of the player who lost, 1 or 2.
    explicit GameOver(int loser);
    ~GameOver() override;

    void event(SDL_Event* e) override;
    // Draws and shows the whole screen.
    void activate() override;

    int defeatedPlayer;
};
