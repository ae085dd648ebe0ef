// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>

#include "gameobject.h"

class GameHandler;

// One player's ship. Headings are radians: 0 points down the display (+y), pi/2 to the right (+x);
// turning left increases the heading, which is never normalised. All times are frames.
class PlayerShip : public GameObject {
public:
    // A ship at rest with a random heading, placed at random; see relocate.
    PlayerShip(GameHandler* battle, int player);
    ~PlayerShip() override;

    // Plays one frame: applies the keys, moves the ship, advances the timers, draws the ship onto
    // where, and draws its panel with bar and dial directly onto the display.
    void update(SDL_Surface* where) override;

    // Reads this player's keys and applies them: turn, speed, fire, teleport.
    void keyboard();

    // Advances the ship by one frame within the world and along the barriers.
    void move();

    // The hit box for the current heading, centred on the ship; cannonballs hit this, while
    // barriers block the whole rect.
    SDL_Rect myCollisionRect();

    // True when the rectangle overlaps the hit box.
    bool collidesWith(SDL_Rect rect2);

    // Takes one hit; the tenth asks for the game-over screen.
    void wasHit();

    // Fires the player's cannonball when the cannon is loaded. A ball still in flight disappears.
    void shoot();

    // Jumps to a random place when a teleport is ready, keeping speed and heading.
    void teleport();

    // Blocks the cannon for n frames. The full scale of the dial is max, or n if max is -1.
    void setReloading(int n, int max);

    // Picks places at random from the grid 100, 200 ... 700 in each axis until one is clear of the
    // barriers. The other ship does not count.
    void relocate();

    GameHandler* handler; // not owned
    double direction;
    double velocity; // pixels per frame, in steps of 0.5 from 0 to shipSpeed
    int maxhp;
    int hp;
    int shipSpeed;        // pixels per frame
    int reloading;        // frames until the cannon may fire
    int maxReloading;     // frames; the full scale of the dial
    int teleportRecharge; // frames until the next teleport
    int teleportCounter;  // teleports left
    SDL_Rect rect;        // place in the world, always 100 x 100
    int playerId;

private:
    // The heading as one of 36 phases of about 10 degrees, clockwise: 0 left, 9 up, 18 right, 27
    // down. These four end just before their axes, so a ship that heads exactly left has phase 1.
    int getPhase();
};
