// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include <SDL.h>

#include "programmode.h"

class Barrier;
class Bullet;
class GameObject;
class PlayerShip;

// The duel. It builds the sea with its barriers, ships and cannonballs, advances all of them once
// per frame and shows the world in two viewports, the left one following player 1's ship, the
// right one player 2's. World coordinates are pixels from the top left corner of the sea, x to the
// right and y down.
class GameHandler : public ProgramMode {
public:
    // Picks the music, the places of all objects and the ships' headings at random, in the order in
    // which they are built.
    GameHandler();
    ~GameHandler() override;

    // Escape asks for the main menu. A ship sunk later in the same frame replaces that request, so
    // a duel that has been won always shows its result.
    void event(SDL_Event* e) override;
    // Blackens the display and aims both viewports.
    void activate() override;
    // Plays one frame and flips the display.
    void update() override;
    void cleanUp() override;

    // Centres viewport 1 on ship 1 if the id is 1, otherwise viewport 2 on ship 2. Neither leaves
    // the world. Deliberate: the last column and the last row of the world are never shown, because
    // the rules stop the viewports one pixel early.
    void moveViewport(int viewportId);

    // True when the rectangle overlaps any barrier.
    bool collidesWithBarriers(SDL_Rect rect1);

    // The pixel value of a colour in the world's format. Clears that format's palette pointer.
    int mapWorldRGB(Uint8 r, Uint8 g, Uint8 b);

    SDL_Surface* background; // owned; the empty sea
    SDL_Rect viewportSize;   // w and h of each viewport
    SDL_Rect viewport1;      // the part of the world shown to player 1
    SDL_Rect viewport2;
    std::vector<GameObject*> objects; // owned; in the order of updating and drawing
    std::vector<Barrier*> barriers;   // also in objects
    SDL_Surface* world;               // owned; redrawn every frame
    int shipType1; // the type of a player's ship chooses the speed of that player's cannonball
    int shipType2;
    PlayerShip* ship1; // the ships and cannonballs are also in objects
    PlayerShip* ship2;
    Bullet* bullet1;
    Bullet* bullet2;
    SDL_Rect viewport1Pos; // x and y of each viewport on the display
    SDL_Rect viewport2Pos;
};

// True when two rectangles overlap; touching edges or corners do not.
bool rectanglesCollide(SDL_Rect rect1, SDL_Rect rect2);
