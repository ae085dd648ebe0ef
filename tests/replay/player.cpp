// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "player.h"

#include "events.h"
#include "gamehandler.h"
#include "gameover.h"
#include "introscreen.h"
#include "main.h"
#include "mainmenu.h"

namespace {

using Style = SeededPlayer::Style;

const int quitButton = 3; // of the menu

Style styleFrom(int percent) {
    if (percent < 45) {
        return Style::masher;
    }
    if (percent < 62) {
        return Style::hunterAndDrifter;
    }
    if (percent < 80) {
        return Style::twoHunters;
    }
    return percent < 90 ? Style::rammer : Style::wanderer;
}

} // namespace

SeededPlayer::SeededPlayer(std::uint64_t seed, Style playerStyle)
    : style(playerStyle), random(seed), releaseFrame(0), nextAction(0), introPatience(0) {
    introPatience = random.below(10);
}

SeededPlayer::SeededPlayer(std::uint64_t seed) : SeededPlayer(seed, Style::masher) {
    style = styleFrom(random.below(100));
    if (style == Style::wanderer && random.chance(20)) {
        introPatience = 610; // sees the intro to its end
    }
}

void SeededPlayer::press(int key) {
    events.push_back(keyDown(key));
    held.insert(key);
}

void SeededPlayer::release(int key) {
    events.push_back(keyUp(key));
    held.erase(key);
}

void SeededPlayer::hold(int key, bool wanted) {
    const bool isHeld = held.count(key) != 0;
    if (wanted && !isHeld) {
        press(key);
    } else if (!wanted && isHeld) {
        release(key);
    }
}

void SeededPlayer::releaseAll() {
    while (!held.empty()) {
        release(*held.begin());
    }
}

void SeededPlayer::releaseButton(int button) {
    if (random.chance(70)) {
        events.push_back(mouseDown(button));
    }
    events.push_back(mouseUp(button));
}

// The compiler chooses the order in which arguments are evaluated, so y is picked beforehand.
void SeededPlayer::pointWithin(SDL_Rect area) {
    const int y = area.y + random.below(area.h);
    events.push_back(mouseMotion(area.x + random.below(area.w), y));
}

void SeededPlayer::letGo(int frame) {
    if (frame >= releaseFrame) {
        releaseAll();
    }
}

std::vector<SDL_Event> SeededPlayer::play(int frame) {
    events.clear();
    if (const auto* battle = dynamic_cast<GameHandler*>(activeProgramMode)) {
        duel(*battle);
        return events;
    }
    letGo(frame);
    if (frame < nextAction) {
        return events;
    }
    nextAction = frame + 1 + random.below(6);
    releaseFrame = frame + random.below(4);
    if (dynamic_cast<IntroScreen*>(activeProgramMode) != nullptr) {
        skipIntro(frame);
    } else if (dynamic_cast<MainMenu*>(activeProgramMode) != nullptr) {
        useMenu(frame);
    } else if (dynamic_cast<GameOver*>(activeProgramMode) != nullptr) {
        leaveGameOver();
    } else {
        leaveText();
    }
    return events;
}

void SeededPlayer::skipIntro(int frame) {
    if (frame < introPatience) {
        pointWithin({0, 0, 800, 600});
    } else if (random.chance(50)) {
        press(SDLK_ESCAPE + random.below(60));
    } else {
        releaseButton(1 + random.below(5));
    }
}

void SeededPlayer::useMenu(int frame) {
    if (staying) {
        style = styleFrom(random.below(100));
        if (dynamic_cast<MainMenu*>(activeProgramMode)->focusedButton == quitButton) {
            press(SDLK_UP);
            return;
        }
    } else if (frame % 4 == 0) {
        fidget();
    }
    if (style == Style::wanderer) {
        wander();
    } else {
        chooseBattle();
    }
}

void SeededPlayer::wander() {
    const int keys[] = {SDLK_UP, SDLK_DOWN, SDLK_RETURN, SDLK_SPACE, SDLK_RIGHT, SDLK_w};
    const int choice = random.below(20);
    if (choice < 12) {
        press(keys[choice / 2]);
    } else if (choice < 15) {
        pointWithin({290, 260, 220, 220});
    } else if (choice < 19 || staying) {
        releaseButton(1 + random.below(5));
    } else {
        press(random.chance(50) ? SDLK_ESCAPE : SDLK_q);
    }
}

void SeededPlayer::chooseBattle() {
    const auto* menu = dynamic_cast<MainMenu*>(activeProgramMode);
    const int choice = random.below(4);
    if (menu->focusedButton > 0) {
        press(SDLK_UP);
    } else if (choice == 0) {
        press(random.chance(50) ? SDLK_RETURN : SDLK_SPACE);
    } else if (choice == 1) {
        releaseButton(SDL_BUTTON_LEFT);
    } else if (choice == 2 && menu->focusedButton < 0) {
        press(SDLK_DOWN);
    } else {
        pointWithin({300, 284, 200, 43});
    }
}

void SeededPlayer::leaveText() {
    const int keys[] = {SDLK_ESCAPE, SDLK_RETURN, SDLK_SPACE, SDLK_x, SDLK_UP};
    if (random.chance(70)) {
        press(keys[random.below(5)]);
    } else {
        releaseButton(1 + random.below(5));
    }
}

void SeededPlayer::leaveGameOver() {
    const int keys[] = {SDLK_ESCAPE, SDLK_RETURN, SDLK_SPACE, SDLK_TAB};
    press(keys[random.below(4)]);
    if (random.chance(20)) {
        releaseButton(SDL_BUTTON_LEFT);
    }
}
