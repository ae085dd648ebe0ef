// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "playership.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "bullet.h"
#include "gamehandler.h"
#include "gameover.h"
#include "keyboard.h"
#include "main.h"

namespace {

const int shipSize = 100;
const int fullHitPoints = 50;
const int hitDamage = 5;
const int reloadFrames = 120;
const int teleportReloadFrames = 300;
const int teleportRechargeFrames = 900;
const int teleportsPerBattle = 3;
const double turnStep = 0.05;
const double speedStep = 0.5;

const int phases = 36;
// Deliberate: not 2 pi. The sprite of a ship that keeps circling one way drifts against its course,
// by one phase in about 147 turns.
const double fullTurn = 6.282;
const double headingOfPhase0 = 4.911;

const int phasesPerQuarter = 9;
const Uint16 hitBoxWidth[phasesPerQuarter] = {100, 95, 95, 90, 85, 75, 65, 60, 50};
const Uint16 hitBoxHeight[phasesPerQuarter] = {40, 50, 60, 65, 75, 85, 90, 95, 95};

// Starting places form a square grid.
const int gridPlaces = 7;
const int gridStep = 100; // pixels, also the first place

// Starting headings are multiples of 0.2 radians, 0 to 3.8.
const int startHeadings = 20;
const double startHeadingsPerRadian = 5.0;

const double shotInheritance = 0.5; // share of the ship's speed that is added to a shot's

const int sheetColumns = 6;
const int barWidth = 396;
const int barY = 578;
const Uint16 barHeight = 22;
const int dialSize = 69;
const int dialSteps = 40;
const int dialRows = 5;

struct PlayerKeys {
    int turnLeft;
    int turnRight;
    int forward;
    int fire;
    int otherFire;
    int teleport;
};

// What differs between the players. There is no key to brake or to sail backwards: a ship coasts
// to rest.
struct PlayerTraits {
    PlayerKeys keys;
    int topSpeed; // pixels per frame
    const char* panel;
    SDL_Rect panelPos; // places on the display
    SDL_Rect dialPos;
    int barEnd; // one past the right end of the full bar
};

const PlayerTraits traitsOfPlayer[] = {
    {{SDLK_a, SDLK_d, SDLK_w, SDLK_TAB, SDLK_SPACE, SDLK_z},
     6,
     "bar1.png",
     {0, 500, 0, 0},
     {308, 508, 0, 0},
     396},
    {{SDLK_LEFT, SDLK_RIGHT, SDLK_UP, SDLK_RETURN, SDLK_RETURN, SDLK_DELETE},
     5,
     "bar2.png",
     {400, 500, 0, 0},
     {712, 508, 0, 0},
     800},
};

const PlayerTraits& traitsOf(int playerId) {
    return traitsOfPlayer[playerId == 1 ? 0 : 1];
}

// The whole pixels of a distance. The fraction is dropped in every frame, towards zero.
Sint16 wholePixels(double distance) {
    return static_cast<Sint16>(distance);
}

// A rectangle of the given size centred on the ship.
SDL_Rect centredOn(SDL_Rect ship, Uint16 w, Uint16 h) {
    return {static_cast<Sint16>(ship.x + ship.w / 2 - w / 2),
            static_cast<Sint16>(ship.y + ship.h / 2 - h / 2), w, h};
}

void drawBar(const PlayerShip& ship, const PlayerTraits& traits) {
    // The panel's picture contains the full bar; black hides the lost part at its right end.
    const int left = static_cast<int>(static_cast<double>(ship.hp) * barWidth / ship.maxhp);
    const int lost = barWidth - left;
    SDL_Rect black = {static_cast<Sint16>(traits.barEnd - lost), barY, static_cast<Uint16>(lost),
                      barHeight};
    SDL_FillRect(screen, &black, SDL_MapRGB(screen->format, 0, 0, 0));
}

void drawDial(const PlayerShip& ship, const PlayerTraits& traits) {
    // Deliberate: because of the truncation, the dial looks full before the cannon can fire: up to
    // two frames early after a shot, and up to seven frames early after a teleport. A player's
    // reaction takes longer than that.
    const double reloading = ship.reloading;
    const int k = dialSteps - static_cast<int>(reloading * dialSteps / ship.maxReloading);
    SDL_Rect frame = {static_cast<Sint16>(dialSize * (k / dialRows)),
                      static_cast<Sint16>(dialSize * (k % dialRows)), dialSize, dialSize};
    SDL_Rect place = traits.dialPos;
    SDL_BlitSurface(imagePool["kruh.png"], &frame, screen, &place);
}

} // namespace

PlayerShip::PlayerShip(GameHandler* battle, int player)
    : handler(battle), maxhp(fullHitPoints), playerId(player) {
    maxReloading = 1;
    reloading = 0;
    hp = maxhp;
    velocity = 0;
    teleportRecharge = 0;
    teleportCounter = teleportsPerBattle;
    // Deliberate: never between 3.8 and 2 pi, so no ship starts mainly towards the nearby left
    // border.
    direction = (rand() % startHeadings) / startHeadingsPerRadian;
    shipSpeed = traitsOf(playerId).topSpeed;
    relocate();
}

PlayerShip::~PlayerShip() = default;

void PlayerShip::update(SDL_Surface* where) {
    keyboard();
    move();
    if (reloading > 0) {
        --reloading;
    }
    if (teleportRecharge > 0) {
        --teleportRecharge;
    }
    const int phase = getPhase();
    SDL_Rect frame = {static_cast<Sint16>(phase % sheetColumns * shipSize),
                      static_cast<Sint16>(phase / sheetColumns * shipSize), shipSize, shipSize};
    SDL_BlitSurface(imagePool["lod1.png"], &frame, where, &rect);

    const PlayerTraits& traits = traitsOf(playerId);
    drawPicture(imagePool[traits.panel], screen, traits.panelPos.x, traits.panelPos.y);
    drawBar(*this, traits);
    drawDial(*this, traits);
}

void PlayerShip::keyboard() {
    const PlayerKeys& keys = traitsOf(playerId).keys;
    if (Keyboard::isPressed(keys.turnLeft)) {
        direction += turnStep;
    } else if (Keyboard::isPressed(keys.turnRight)) {
        direction -= turnStep;
    }
    if (Keyboard::isPressed(keys.forward)) {
        if (shipSpeed > velocity) {
            velocity += speedStep;
        }
    } else if (velocity > 0) {
        velocity -= speedStep;
    }
    if (Keyboard::isPressed(keys.fire) || Keyboard::isPressed(keys.otherFire)) {
        shoot();
    }
    // Teleporting comes after firing, so that its longer reload replaces that of a shot in the same
    // frame.
    if (Keyboard::isPressed(keys.teleport)) {
        teleport();
    }
}

void PlayerShip::move() {
    const SDL_Rect oldrect = rect;
    rect.x = static_cast<Sint16>(rect.x + wholePixels(std::sin(direction) * velocity));
    rect.y = static_cast<Sint16>(rect.y + wholePixels(std::cos(direction) * velocity));
    const SDL_Surface* world = handler->world;
    rect.x = std::max<Sint16>(rect.x, 0);
    rect.y = std::max<Sint16>(rect.y, 0);
    if (rect.x + oldrect.w >= world->w) {
        rect.x = static_cast<Sint16>(world->w - oldrect.w);
    }
    if (rect.y + oldrect.h >= world->h) {
        rect.y = static_cast<Sint16>(world->h - oldrect.h);
    }
    // Deliberate: the viewport moves before the ship slides. It follows the place that the ship
    // tried to reach, so a player feels the ship strain against the shore.
    if (velocity != 0) {
        handler->moveViewport(playerId);
    }
    if (!handler->collidesWithBarriers(rect)) {
        return;
    }
    SDL_Rect test = {oldrect.x, rect.y, oldrect.w, oldrect.h};
    if (handler->collidesWithBarriers(test)) {
        test = {rect.x, oldrect.y, oldrect.w, oldrect.h};
        if (handler->collidesWithBarriers(test)) {
            test = oldrect;
        }
    }
    rect = test;
}

SDL_Rect PlayerShip::myCollisionRect() {
    const int phase = getPhase();
    const int i = phase % phasesPerQuarter;
    Uint16 w = hitBoxWidth[i];
    Uint16 h = hitBoxHeight[i];
    if (phase / phasesPerQuarter % 2 == 1) {
        std::swap(w, h);
    }
    return centredOn(rect, w, h);
}

bool PlayerShip::collidesWith(SDL_Rect rect2) {
    return rectanglesCollide(myCollisionRect(), rect2);
}

void PlayerShip::wasHit() {
    hp -= hitDamage;
    if (hp <= 0) {
        hp = 0;
        newProgramMode = new GameOver(playerId);
    }
}

void PlayerShip::shoot() {
    if (reloading != 0) {
        return;
    }
    setReloading(reloadFrames, -1);
    Bullet* bullet = playerId == 1 ? handler->bullet1 : handler->bullet2;
    const PlayerShip* opponent = playerId == 1 ? handler->ship2 : handler->ship1;
    bullet->visible = false;
    const double s = bullet->speed + velocity * shotInheritance;
    const SDL_Rect bulletPos = centredOn(rect, bullet->size.w, bullet->size.h);
    const SDL_Rect bulletVelocity = {wholePixels(s * std::sin(direction)),
                                     wholePixels(s * std::cos(direction)), 0, 0};
    // Deliberate: a shot that starts inside the enemy is lost, so that ramming is no way to win.
    if (rectanglesCollide(bulletPos, opponent->rect)) {
        return;
    }
    bullet->show(bulletPos, bulletVelocity);
}

void PlayerShip::teleport() {
    if (teleportCounter == 0 || teleportRecharge != 0) {
        return;
    }
    --teleportCounter;
    teleportRecharge = teleportRechargeFrames;
    setReloading(teleportReloadFrames, -1);
    relocate();
    handler->moveViewport(playerId);
}

void PlayerShip::setReloading(int n, int max) {
    reloading = n;
    maxReloading = max == -1 ? n : max;
}

void PlayerShip::relocate() {
    do {
        rect.x = static_cast<Sint16>(rand() % gridPlaces * gridStep + gridStep);
        const int r = rand();
        rect.w = shipSize;
        rect.h = shipSize;
        rect.y = static_cast<Sint16>(r % gridPlaces * gridStep + gridStep);
    } while (handler->collidesWithBarriers(rect));
}

int PlayerShip::getPhase() {
    double a = headingOfPhase0 - direction;
    while (a < 0) {
        a += fullTurn;
    }
    while (a >= fullTurn) {
        a -= fullTurn;
    }
    return static_cast<int>(a * phases / fullTurn);
}
