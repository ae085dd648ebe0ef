// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>

class MainMenu;

// One button of the main menu. It fades between its normal and its highlighted picture.
class MainMenuButton {
public:
    // The button's place is its id, 0 to 3 from top to bottom. The menu must outlive it.
    MainMenuButton(MainMenu* owner, int place);
    ~MainMenuButton();
    MainMenuButton(const MainMenuButton&) = delete;
    MainMenuButton& operator=(const MainMenuButton&) = delete;

    // The button's rectangle on the display.
    SDL_Rect getPosition() const;

    // Fades by one step: towards the highlighted picture while this button is focused, else towards
    // the normal one.
    void update();

    // Draws the button onto target, a picture of the whole menu.
    void redraw(SDL_Surface* target);

    int type;       // row of its pictures in the button strip
    int focusLevel; // strength of the highlighted picture, 0 to 255
    MainMenu* menu; // not owned
    int id;
    SDL_Surface* buf; // owned; scratch picture of one button
};
