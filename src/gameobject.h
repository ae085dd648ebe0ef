// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>

// Anything that lives in the world of a battle. The battle creates every object with new and owns
// it.
class GameObject {
public:
    virtual ~GameObject();

    // Advances the object by one frame and draws it onto where, the world's surface.
    virtual void update(SDL_Surface* where) = 0;
};
