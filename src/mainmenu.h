// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include <SDL.h>

#include "programmode.h"

class MainMenuButton;

// The main menu: four buttons on a panel below the logo. The focus is moved with the arrow keys,
// the wheel or the pointer; Return, Space or a left click chooses.
class MainMenu : public ProgramMode {
public:
    static const int numButtons;
    static const int buttonTypes[8];     // by button id; the last four are spare
    static const SDL_Rect firstButton;   // first cell of the button strip, and the size of a button
    static const SDL_Rect focusModifier; // from a normal cell of the strip to the highlighted one

    MainMenu();
    ~MainMenu() override;

    void event(SDL_Event* e) override;
    void activate() override;
    void update() override;
    // Blackens the display without flipping it.
    void cleanUp() override;

    // Composes the whole menu, copies it to the display and flips.
    void redraw();

    // Move the focus by one button, wrapping round at both ends, and redraw.
    void up();
    void down();

    // Carries out the action of the focused button; without a focus, only focuses the top button.
    void select();

    // The id of the focused button, or -1 for none.
    int getFocusedButton();

    // Layout of the display in pixels.
    static int getLogoHeight();
    static int getMenuHeight();
    static int getLogoYOffset();         // from the display's top to the logo
    static int getMenuYOffset();         // from the logo's lower edge to the panel
    static int getAbsoluteMenuYOffset(); // from the display's top to the panel

    SDL_Surface* menuImage; // owned; the size of the display
    int focusedButton;      // 0 to 3, or -1 for none
    bool waitingToReleaseReturn;
    std::vector<MainMenuButton*> buttons; // owned; index is the id
};
