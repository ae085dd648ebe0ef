// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "mainmenubutton.h"

#include "main.h"
#include "mainmenu.h"

namespace {

const int focusStep = 70;
const int fullFocus = 255;

} // namespace

MainMenuButton::MainMenuButton(MainMenu* owner, int place)
    : type(MainMenu::buttonTypes[place]), focusLevel(0), menu(owner), id(place),
      buf(createSurface(MainMenu::firstButton.w, MainMenu::firstButton.h)) {}

MainMenuButton::~MainMenuButton() {
    SDL_FreeSurface(buf);
}

SDL_Rect MainMenuButton::getPosition() const {
    SDL_Rect pos = MainMenu::firstButton;
    pos.x = static_cast<Sint16>((screen->w - pos.w) / 2);
    // The buttons touch each other, and together they are centred on the panel.
    pos.y = static_cast<Sint16>(
        MainMenu::getAbsoluteMenuYOffset() +
        (MainMenu::getMenuHeight() + (2 * id - MainMenu::numButtons) * pos.h) / 2);
    return pos;
}

void MainMenuButton::update() {
    if (menu->focusedButton == id) {
        if (focusLevel < fullFocus) {
            focusLevel += focusStep;
        }
        if (focusLevel > fullFocus) {
            focusLevel = fullFocus;
        }
    } else {
        if (focusLevel > 0) {
            focusLevel -= focusStep;
        }
        if (focusLevel < 0) {
            focusLevel = 0;
        }
    }
}

void MainMenuButton::redraw(SDL_Surface* target) {
    SDL_Surface* strip = imagePool["tlacitka.png"];
    SDL_Rect normal = MainMenu::firstButton;
    normal.y = static_cast<Sint16>(normal.y + normal.h * type);
    SDL_Rect highlighted = normal;
    highlighted.x = static_cast<Sint16>(highlighted.x + MainMenu::focusModifier.x);
    highlighted.y = static_cast<Sint16>(highlighted.y + MainMenu::focusModifier.y);

    // The highlighted picture is drawn over a copy of what is under the button, so that its own
    // transparency is kept, and the whole copy is then blended over the normal picture.
    SDL_SetAlpha(buf, SDL_SRCALPHA | SDL_RLEACCEL, static_cast<Uint8>(focusLevel));
    SDL_Rect pos = getPosition();
    SDL_BlitSurface(target, &pos, buf, nullptr);
    SDL_BlitSurface(strip, &normal, target, &pos);
    SDL_BlitSurface(strip, &highlighted, buf, nullptr);
    SDL_BlitSurface(buf, nullptr, target, &pos);
}
