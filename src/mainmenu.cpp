// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "mainmenu.h"

#include <string>

#include "credits.h"
#include "gamehandler.h"
#include "helpscreen.h"
#include "keyboard.h"
#include "main.h"
#include "mainmenubutton.h"
#include "music.h"

const int MainMenu::numButtons = 4;
const int MainMenu::buttonTypes[8] = {2, 8, 9, 11, 0, 0, 0, 0};
const SDL_Rect MainMenu::firstButton = {0, 0, 200, 43};
const SDL_Rect MainMenu::focusModifier = {0, 559, 0, 0};

namespace {

const int noButton = -1;
const int battleButton = 0;
const int helpButton = 1;
const int creditsButton = 2;
const int quitButton = 3;

// Constructed once: the name is too long for the string's own buffer, so constructing it in every
// frame would allocate memory every time.
const std::string painting = "pozadie-lode3.png";

bool isSelectKey(SDLKey key) {
    return key == SDLK_RETURN || key == SDLK_SPACE;
}

bool contains(SDL_Rect rect, int x, int y) {
    return x >= rect.x && y >= rect.y && x < rect.x + rect.w && y < rect.y + rect.h;
}

} // namespace

MainMenu::MainMenu() : focusedButton(noButton), waitingToReleaseReturn(false) {
    for (int id = 0; id < numButtons; ++id) {
        buttons.push_back(new MainMenuButton(this, id));
    }
    menuImage = createSurface(screen->w, screen->h);
}

MainMenu::~MainMenu() {
    for (MainMenuButton* button : buttons) {
        delete button;
    }
    SDL_FreeSurface(menuImage);
}

void MainMenu::event(SDL_Event* e) {
    if (e->type == SDL_KEYDOWN) {
        const SDLKey key = e->key.keysym.sym;
        if (key == SDLK_ESCAPE || key == SDLK_q) {
            stopProgram();
        }
        if (key == SDLK_UP) {
            up();
        }
        if (key == SDLK_DOWN) {
            down();
        }
        if (isSelectKey(key)) {
            select();
        }
    }
    if (e->type == SDL_KEYUP && isSelectKey(e->key.keysym.sym) && waitingToReleaseReturn) {
        newProgramMode = new GameHandler;
    }
    if (e->type == SDL_MOUSEBUTTONUP) {
        const int button = e->button.button;
        if (button == SDL_BUTTON_WHEELUP) {
            up();
        }
        if (button == SDL_BUTTON_WHEELDOWN) {
            down();
        }
        if (button == SDL_BUTTON_LEFT) {
            select();
        }
    }
    if (e->type == SDL_MOUSEMOTION) {
        focusedButton = noButton;
        for (const MainMenuButton* button : buttons) {
            if (contains(button->getPosition(), e->motion.x, e->motion.y)) {
                focusedButton = button->id;
            }
        }
    }
}

void MainMenu::activate() {
    // The button pictures are drawn onto two surfaces in turn. With SDL_RLEACCEL, SDL 1.2 would
    // encode the whole strip again whenever the surface changes, and a frame of the menu would take
    // longer than 16 ms.
    SDL_Surface* strip = imagePool["tlacitka.png"];
    SDL_SetAlpha(strip, SDL_SRCALPHA, strip->format->alpha);
    redraw();
    Music::play(1);
}

void MainMenu::update() {
    for (MainMenuButton* button : buttons) {
        button->update();
    }
    redraw();
}

void MainMenu::cleanUp() {
    blackenDisplay();
}

void MainMenu::redraw() {
    SDL_Surface* logo = imagePool["logo.png"];
    SDL_Surface* panel = imagePool["menu.png"];
    drawPicture(imagePool[painting], menuImage, 0, 0);
    drawPicture(logo, menuImage, (screen->w - logo->w) / 2, 0);
    drawPicture(panel, menuImage, (screen->w - panel->w) / 2, getAbsoluteMenuYOffset());
    for (MainMenuButton* button : buttons) {
        button->redraw(menuImage);
    }
    drawPicture(menuImage, screen, 0, 0);
    SDL_Flip(screen);
}

void MainMenu::up() {
    --focusedButton;
    if (focusedButton < 0) {
        focusedButton = numButtons - 1;
    }
    redraw();
}

void MainMenu::down() {
    ++focusedButton;
    if (focusedButton >= numButtons) {
        focusedButton = 0;
    }
    redraw();
}

void MainMenu::select() {
    switch (focusedButton) {
    case noButton:
        focusedButton = battleButton;
        redraw();
        break;
    case battleButton:
        // Deliberate: a duel chosen with a key begins when that key is released. Return and Space
        // also fire, and the key press in the menu must not become a player's first shot.
        if (Keyboard::isPressed(SDLK_RETURN) || Keyboard::isPressed(SDLK_SPACE)) {
            waitingToReleaseReturn = true;
        } else {
            newProgramMode = new GameHandler;
        }
        break;
    case helpButton:
        newProgramMode = new HelpScreen;
        break;
    case creditsButton:
        newProgramMode = new Credits;
        break;
    case quitButton:
        stopProgram();
        break;
    default:
        break;
    }
}

int MainMenu::getFocusedButton() {
    return focusedButton;
}

int MainMenu::getLogoHeight() {
    return imagePool["logo.png"]->h;
}

int MainMenu::getMenuHeight() {
    return imagePool["menu.png"]->h;
}

int MainMenu::getLogoYOffset() {
    return 0;
}

int MainMenu::getMenuYOffset() {
    return 0;
}

int MainMenu::getAbsoluteMenuYOffset() {
    return getLogoHeight();
}
