// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "eventsource.h"

EventSource* eventSource = nullptr;

extern "C" {

int __real_SDL_PollEvent(SDL_Event* event);
Uint32 __real_SDL_GetTicks();
void __real_SDL_Delay(Uint32 milliseconds);

int __wrap_SDL_PollEvent(SDL_Event* event) {
    return eventSource == nullptr ? __real_SDL_PollEvent(event) : eventSource->poll(event);
}

Uint32 __wrap_SDL_GetTicks() {
    return eventSource == nullptr ? __real_SDL_GetTicks() : eventSource->ticks();
}

void __wrap_SDL_Delay(Uint32 milliseconds) {
    if (eventSource == nullptr) {
        __real_SDL_Delay(milliseconds);
    } else {
        eventSource->delay(milliseconds);
    }
}

} // extern "C"
