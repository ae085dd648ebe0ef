// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>

// Where the main loop gets its events and its time from. --wrap redirects the game's own calls of
// SDL_PollEvent, SDL_GetTicks and SDL_Delay here, but not those of the libraries.
class EventSource {
public:
    virtual ~EventSource() = default;
    virtual int poll(SDL_Event* event) = 0;
    virtual Uint32 ticks() = 0;
    virtual void delay(Uint32 milliseconds) = 0;
};

// The source in use; null for the library itself.
extern EventSource* eventSource;
