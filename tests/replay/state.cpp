// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "state.h"

#include "barrier.h"
#include "bullet.h"
#include "credits.h"
#include "drawing.h"
#include "fakemixer.h"
#include "gamehandler.h"
#include "gameover.h"
#include "helpscreen.h"
#include "introscreen.h"
#include "keyboard.h"
#include "main.h"
#include "mainmenu.h"
#include "mainmenubutton.h"
#include "music.h"
#include "playership.h"
#include "statereaders.h"
#include "surroundings.h"

namespace {

const char* nameOf(const ProgramMode* mode) {
    if (mode == nullptr) {
        return "none";
    }
    if (dynamic_cast<const GameHandler*>(mode) != nullptr) {
        return "GameHandler";
    }
    if (dynamic_cast<const MainMenu*>(mode) != nullptr) {
        return "MainMenu";
    }
    if (dynamic_cast<const IntroScreen*>(mode) != nullptr) {
        return "IntroScreen";
    }
    if (dynamic_cast<const GameOver*>(mode) != nullptr) {
        return "GameOver";
    }
    if (dynamic_cast<const HelpScreen*>(mode) != nullptr) {
        return "HelpScreen";
    }
    return dynamic_cast<const Credits*>(mode) != nullptr ? "Credits" : "unknown";
}

template <typename Reader> void readPlace(Reader& reader, SDL_Rect place) {
    reader.number("x", place.x);
    reader.number("y", place.y);
}

template <typename Reader> void readRect(Reader& reader, SDL_Rect rect) {
    readPlace(reader, rect);
    reader.number("w", rect.w);
    reader.number("h", rect.h);
}

template <typename Reader> void read(Reader& reader, const IntroScreen& intro) {
    reader.begin("intro", 0);
    reader.number("frameCounter", intro.frameCounter);
}

template <typename Reader> void read(Reader& reader, const MainMenu& menu) {
    reader.begin("menu", 0);
    reader.number("focusedButton", menu.focusedButton);
    reader.number("waitingToReleaseReturn", menu.waitingToReleaseReturn ? 1 : 0);
    for (const MainMenuButton* button : menu.buttons) {
        reader.begin("button", button->id);
        reader.number("type", button->type);
        reader.number("focusLevel", button->focusLevel);
        readRect(reader, button->getPosition());
    }
}

template <typename Reader> void read(Reader& reader, const GameOver& gameOver) {
    reader.begin("gameOver", 0);
    reader.number("defeatedPlayer", gameOver.defeatedPlayer);
}

template <typename Reader> void read(Reader& reader, const Bullet& ball) {
    reader.begin("ball", ball.playerId);
    reader.number("type", ball.type);
    reader.number("visible", ball.visible ? 1 : 0);
    readRect(reader, ball.pos);
    reader.number("velocity.x", ball.velocity.x);
    reader.number("velocity.y", ball.velocity.y);
    reader.number("speed", ball.speed);
    reader.number("size.w", ball.size.w);
    reader.number("size.h", ball.size.h);
    reader.number("myPlayerShip", ball.myPlayerShip->playerId);
    reader.number("otherPlayerShip", ball.otherPlayerShip->playerId);
}

template <typename Reader> void read(Reader& reader, PlayerShip& ship) {
    reader.begin("ship", ship.playerId);
    readRect(reader, ship.rect);
    reader.real("direction", ship.direction);
    reader.real("velocity", ship.velocity);
    reader.number("hp", ship.hp);
    reader.number("maxhp", ship.maxhp);
    reader.number("shipSpeed", ship.shipSpeed);
    reader.number("reloading", ship.reloading);
    reader.number("maxReloading", ship.maxReloading);
    reader.number("teleportRecharge", ship.teleportRecharge);
    reader.number("teleportCounter", ship.teleportCounter);
    const SDL_Rect hitBox = ship.myCollisionRect();
    reader.number("hitBox.w", hitBox.w);
    reader.number("hitBox.h", hitBox.h);
}

template <typename Reader> void read(Reader& reader, const Barrier& barrier, int number) {
    reader.begin("barrier", number);
    reader.number("type", barrier.type);
    readRect(reader, barrier.rect);
}

// In the order in which the battle updates its objects.
template <typename Reader> void readObjects(Reader& reader, const GameHandler& battle) {
    int number = 0;
    for (GameObject* object : battle.objects) {
        if (auto* barrier = dynamic_cast<Barrier*>(object)) {
            ++number;
            read(reader, *barrier, number);
        } else if (auto* ball = dynamic_cast<Bullet*>(object)) {
            read(reader, *ball);
        } else if (auto* ship = dynamic_cast<PlayerShip*>(object)) {
            read(reader, *ship);
        }
    }
}

template <typename Reader> void read(Reader& reader, const GameHandler& battle) {
    reader.begin("battle", 0);
    reader.number("objects", static_cast<long>(battle.objects.size()));
    reader.number("barriers", static_cast<long>(battle.barriers.size()));
    reader.number("shipType1", battle.shipType1);
    reader.number("shipType2", battle.shipType2);
    reader.number("ship1", battle.ship1->playerId);
    reader.number("ship2", battle.ship2->playerId);
    reader.number("bullet1", battle.bullet1->playerId);
    reader.number("bullet2", battle.bullet2->playerId);
    reader.begin("world", 0);
    readRect(reader, battle.world->clip_rect);
    reader.begin("viewport", 1);
    readRect(reader, battle.viewport1);
    reader.begin("viewport", 2);
    readRect(reader, battle.viewport2);
    reader.begin("viewportSize", 0);
    reader.number("w", battle.viewportSize.w);
    reader.number("h", battle.viewportSize.h);
    reader.begin("viewport1Pos", 0);
    readPlace(reader, battle.viewport1Pos);
    reader.begin("viewport2Pos", 0);
    readPlace(reader, battle.viewport2Pos);
    readObjects(reader, battle);
}

template <typename Reader> void readMode(Reader& reader) {
    reader.begin("mode", 0);
    reader.text("active", nameOf(activeProgramMode));
    reader.text("pending", nameOf(newProgramMode));
    if (const auto* battle = dynamic_cast<GameHandler*>(activeProgramMode)) {
        read(reader, *battle);
    } else if (const auto* menu = dynamic_cast<MainMenu*>(activeProgramMode)) {
        read(reader, *menu);
    } else if (const auto* intro = dynamic_cast<IntroScreen*>(activeProgramMode)) {
        read(reader, *intro);
    } else if (const auto* gameOver = dynamic_cast<GameOver*>(activeProgramMode)) {
        read(reader, *gameOver);
    }
}

template <typename Reader> void readSurroundings(Reader& reader) {
    reader.begin("dice", 0);
    reader.number("draws", static_cast<long>(surroundings.numbers));
    reader.number("lastDraw", surroundings.lastNumber);
    reader.begin("music", 0);
    reader.number("current", Music::current());
    reader.number("playing", mixer.playing);
    reader.number("loops", mixer.loops);
    for (int track = 0; track <= 3; ++track) {
        reader.number("starts", mixer.starts[track]);
    }
    reader.number("halts", mixer.halts);
    reader.begin("display", 0);
    reader.number("flips", drawing.flips);
}

template <typename Reader> void readAll(Reader& reader) {
    reader.begin("frame", 0);
    reader.number("running", running ? 1 : 0);
    reader.number("haveSound", haveSound ? 1 : 0);
    reader.number("initializationProgress", initializationProgress);
    reader.text("programDataPath", programDataPath.c_str());
    reader.number("pictures", static_cast<long>(imagePool.size()));
    reader.number("lostModes", surroundings.lostModes);
    reader.begin("keys", 0);
    reader.keys();
    const SDL_keysym latest = Keyboard::readkey();
    reader.number("latest.sym", latest.sym);
    reader.number("latest.scancode", latest.scancode);
    reader.number("latest.mod", latest.mod);
    reader.number("latest.unicode", latest.unicode);
    readMode(reader);
    readSurroundings(reader);
}

} // namespace

std::uint64_t hashOfState() {
    Hasher hasher;
    readAll(hasher);
    return hasher.hash.value;
}

std::vector<std::string> describeState() {
    Describer describer;
    readAll(describer);
    return describer.lines;
}

const char* activeModeName() {
    return nameOf(activeProgramMode);
}
