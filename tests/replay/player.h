// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <set>
#include <vector>

#include <SDL.h>

#include "testrandom.h"

class GameHandler;
class PlayerShip;

// Plays both sides, and the screens between the duels. A seed and the state of the game decide
// what it does.
class SeededPlayer {
public:
    enum class Style {
        masher,           // random keys on both sides
        hunterAndDrifter, // one aims and fires, the other drifts
        twoHunters,
        rammer,  // both sail into each other, fire and jump
        wanderer // more in the menus than at sea; may end the program
    };

    // The seed decides the style.
    explicit SeededPlayer(std::uint64_t seed);
    SeededPlayer(std::uint64_t seed, Style style);

    // What a frame polls.
    std::vector<SDL_Event> play(int frame);

    Style style;
    // A player for long runs never ends the program, and changes the style from duel to duel.
    bool staying = false;

private:
    struct Wishes {
        bool left = false;
        bool right = false;
        bool forward = false;
        bool fire = false;
        bool teleport = false;
    };

    void press(int key);
    void release(int key);
    void hold(int key, bool wanted);
    void releaseAll();
    void releaseButton(int button);
    void pointWithin(SDL_Rect area); // moves the pointer to a random place
    void letGo(int frame);

    void skipIntro(int frame);
    void useMenu(int frame);
    void wander();
    void chooseBattle();
    void leaveText();
    void leaveGameOver();
    void duel(const GameHandler& battle);
    void fidget();
    Wishes wishesFor(const PlayerShip& own, const PlayerShip& enemy, Wishes wishes);
    Wishes hunt(const PlayerShip& own, const PlayerShip& enemy, int distance);
    Wishes mash(Wishes wishes);

    TestRandom random;
    std::set<int> held;
    std::vector<SDL_Event> events;
    Wishes current[2];
    int releaseFrame; // when keys tapped outside a duel are let go
    int nextAction;   // frame
    int introPatience;
};
