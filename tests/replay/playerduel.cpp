// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "player.h"

#include <cmath>

#include "events.h"
#include "gamehandler.h"
#include "playership.h"

// How a seeded player fights.

namespace {

using Style = SeededPlayer::Style;

struct Keys {
    int left, right, forward, fire, otherFire, teleport;
};

const Keys keysOf[2] = {
    {SDLK_a, SDLK_d, SDLK_w, SDLK_TAB, SDLK_SPACE, SDLK_z},
    {SDLK_LEFT, SDLK_RIGHT, SDLK_UP, SDLK_RETURN, SDLK_RETURN, SDLK_DELETE},
};

const int huntingDistance = 300; // pixels

// The value rounded to a double. Some processors compute with more digits, or multiply and add
// without rounding in between, and a comparison with a limit would then end differently there.
double asDouble(double value) {
    const volatile double rounded = value;
    return rounded;
}

} // namespace

void SeededPlayer::duel(const GameHandler& battle) {
    const PlayerShip* ships[2] = {battle.ship1, battle.ship2};
    for (int i = 0; i < 2; ++i) {
        const Wishes wishes = wishesFor(*ships[i], *ships[1 - i], current[i]);
        const Keys& keys = keysOf[i];
        hold(keys.left, wishes.left);
        hold(keys.right, wishes.right);
        hold(keys.forward, wishes.forward);
        hold(random.chance(50) ? keys.fire : keys.otherFire, wishes.fire);
        if (!wishes.fire) {
            hold(keys.fire, false);
            hold(keys.otherFire, false);
        }
        hold(keys.teleport, wishes.teleport);
        current[i] = wishes;
    }
    if (random.below(40) == 0) {
        fidget();
    }
    const int frames = staying ? 2000 : 20000; // between giving up, on average
    if (random.below(style == Style::wanderer ? 60 : frames) == 0) {
        press(SDLK_ESCAPE);
        release(SDLK_ESCAPE);
    }
}

// Keys that must not matter, or only by their entry in the key table.
void SeededPlayer::fidget() {
    const int keys[] = {SDLK_s, SDLK_DOWN, SDLK_LSHIFT, SDLK_UNKNOWN, SDLK_F1, SDLK_LAST - 1};
    const int key = keys[random.below(6)];
    switch (random.below(6)) {
    case 0:
        press(key);
        release(key);
        break;
    case 1:
        events.push_back(keyUp(key)); // of a key that was never down
        break;
    case 2:
        for (int heldKey : std::set<int>(held)) {
            events.push_back(keyDown(heldKey)); // once more
        }
        break;
    case 3:
        for (int heldKey : std::set<int>(held)) {
            release(heldKey); // reads as up from the next frame, though it is down
            press(heldKey);
        }
        break;
    case 4:
        pointWithin({0, 0, 800, 600});
        break;
    default:
        events.push_back(otherEvent(SDL_ACTIVEEVENT));
        break;
    }
}

SeededPlayer::Wishes SeededPlayer::wishesFor(const PlayerShip& own, const PlayerShip& enemy,
                                             Wishes wishes) {
    switch (style) {
    case Style::hunterAndDrifter:
        if (own.playerId == 1) {
            return hunt(own, enemy, huntingDistance);
        }
        wishes.forward = random.chance(5);
        wishes.left = random.chance(3);
        return wishes;
    case Style::twoHunters:
        return hunt(own, enemy, huntingDistance);
    case Style::rammer:
        wishes = hunt(own, enemy, 0);
        wishes.teleport = random.below(300) == 0;
        return wishes;
    default:
        return mash(wishes);
    }
}

SeededPlayer::Wishes SeededPlayer::hunt(const PlayerShip& own, const PlayerShip& enemy,
                                        int distance) {
    const double dx = enemy.rect.x - own.rect.x;
    const double dy = enemy.rect.y - own.rect.y;
    // The enemy's position along and across the ship's own heading.
    const double sine = asDouble(std::sin(own.direction));
    const double cosine = asDouble(std::cos(own.direction));
    const double ahead = asDouble(asDouble(dx * sine) + asDouble(dy * cosine));
    const double aside = asDouble(asDouble(dx * cosine) - asDouble(dy * sine));
    Wishes wishes;
    wishes.left = aside > 10 || (ahead < 0 && aside >= 0);
    wishes.right = !wishes.left && (aside < -10 || ahead < 0);
    wishes.forward = ahead > distance;
    wishes.fire = ahead > 0 && std::abs(aside) < 40 && !random.chance(2);
    wishes.teleport = own.hp <= 15 && random.below(200) == 0;
    return wishes;
}

SeededPlayer::Wishes SeededPlayer::mash(Wishes wishes) {
    bool* const all[] = {&wishes.left, &wishes.right, &wishes.forward, &wishes.fire};
    const int key = random.below(40);
    if (key < 4) {
        *all[key] = !*all[key];
    }
    wishes.teleport = random.below(150) == 0;
    return wishes;
}
