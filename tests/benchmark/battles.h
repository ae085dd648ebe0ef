// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include "gamehandler.h"

// Opens the display and loads every picture; ends the program where that fails. Runs from a
// directory that holds data/.
void prepareGame();

// Both ships circle at full speed and fire as often as they can.
void holdBattleKeys();

// Gives the battle this many times its barriers. The new ones lie anywhere, also over each other.
void multiplyBarriers(GameHandler& battle, int times);

// Gives the battle a square world of this size in pixels, with the sea repeated over it.
void enlargeWorld(GameHandler& battle, int size);

// The copies that every frame of a duel needs: the sea onto the world, and two viewports onto the
// display. All are plain surfaces, so this baseline does not depend on the flags the game sets.
class BareCopies {
public:
    explicit BareCopies(GameHandler& copiedBattle);
    ~BareCopies();
    BareCopies(const BareCopies&) = delete;
    BareCopies& operator=(const BareCopies&) = delete;

    void run();

private:
    GameHandler& battle;
    SDL_Surface* sea;   // owned
    SDL_Surface* world; // owned
};
