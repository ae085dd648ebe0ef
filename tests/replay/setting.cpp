// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "setting.h"

#include <cstdio>
#include <cstdlib>

#include "barrier.h"
#include "bullet.h"
#include "gamehandler.h"
#include "main.h"
#include "playership.h"

namespace {

[[noreturn]] void refuse(const Setting& setting) {
    std::fprintf(stderr, "There is no %s to set.\n", setting.field.c_str());
    std::exit(1);
}

bool setShip(PlayerShip& ship, const std::string& field, double value) {
    if (field == "direction") {
        ship.direction = value;
    } else if (field == "velocity") {
        ship.velocity = value;
    } else if (field == "x") {
        ship.rect.x = static_cast<Sint16>(value);
    } else if (field == "y") {
        ship.rect.y = static_cast<Sint16>(value);
    } else if (field == "hp") {
        ship.hp = static_cast<int>(value);
    } else if (field == "reloading") {
        ship.reloading = static_cast<int>(value);
    } else if (field == "teleportRecharge") {
        ship.teleportRecharge = static_cast<int>(value);
    } else {
        return false;
    }
    return true;
}

bool setPlace(SDL_Rect& rect, const std::string& field, double value) {
    if (field != "x" && field != "y") {
        return false;
    }
    (field == "x" ? rect.x : rect.y) = static_cast<Sint16>(value);
    return true;
}

} // namespace

void applySetting(const Setting& setting) {
    auto* battle = dynamic_cast<GameHandler*>(activeProgramMode);
    const std::size_t point = setting.field.find('.');
    if (battle == nullptr || point == std::string::npos) {
        refuse(setting);
    }
    const std::string object = setting.field.substr(0, point);
    const std::string field = setting.field.substr(point + 1);
    bool done = false;
    if (object == "ship1" || object == "ship2") {
        done = setShip(object == "ship1" ? *battle->ship1 : *battle->ship2, field, setting.value);
    }
    for (std::size_t i = 0; i < battle->barriers.size(); ++i) {
        if (object == "barrier" + std::to_string(i + 1)) {
            done = setPlace(battle->barriers[i]->rect, field, setting.value);
        }
    }
    if (!done) {
        refuse(setting);
    }
}
