// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "eventnoise.h"

#include "events.h"

namespace {

const int framesBetweenBursts = 250; // on average
const int eventsOfBurst = 100;       // the classic library keeps at most 128
const int modifiers[] = {KMOD_LSHIFT, KMOD_RSHIFT, KMOD_LCTRL, KMOD_RCTRL, KMOD_LALT, KMOD_RALT,
                         KMOD_LMETA,  KMOD_RMETA,  KMOD_NUM,   KMOD_CAPS,  KMOD_MODE};

} // namespace

// A generator of its own, so that the noise does not change what the player does.
EventNoise::EventNoise(std::uint64_t seed) : random(~seed) {}

std::vector<SDL_Event> EventNoise::addTo(std::vector<SDL_Event> events) {
    for (SDL_Event& event : events) {
        event = fill(event);
    }
    if (random.below(framesBetweenBursts) == 0) {
        const int before = random.below(static_cast<int>(events.size()) + 1);
        std::vector<SDL_Event> burst;
        burst.reserve(eventsOfBurst);
        for (int i = 0; i < eventsOfBurst; ++i) {
            burst.push_back(anyOther());
        }
        events.insert(events.begin() + before, burst.begin(), burst.end());
    }
    return events;
}

SDL_Event EventNoise::fill(SDL_Event event) {
    switch (event.type) {
    case SDL_KEYDOWN:
    case SDL_KEYUP: {
        int held = KMOD_NONE;
        for (const int modifier : modifiers) {
            held |= random.chance(20) ? modifier : KMOD_NONE;
        }
        event.key.which = static_cast<Uint8>(random.below(256));
        event.key.keysym.mod = static_cast<SDLMod>(held);
        event.key.keysym.scancode = static_cast<Uint8>(random.below(256));
        event.key.keysym.unicode = static_cast<Uint16>(random.below(0x10000));
        break;
    }
    case SDL_MOUSEMOTION:
        event.motion.which = static_cast<Uint8>(random.below(256));
        event.motion.state = static_cast<Uint8>(random.below(256));
        event.motion.xrel = static_cast<Sint16>(random.below(1600) - 800);
        event.motion.yrel = static_cast<Sint16>(random.below(1200) - 600);
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        event.button.which = static_cast<Uint8>(random.below(256));
        event.button.x = static_cast<Uint16>(random.below(800));
        event.button.y = static_cast<Uint16>(random.below(600));
        break;
    default:
        break;
    }
    return event;
}

// Changes no screen, except that the pointer above the menu's buttons removes their focus.
SDL_Event EventNoise::anyOther() {
    switch (random.below(6)) {
    case 0:
        return otherEvent(SDL_ACTIVEEVENT);
    case 1:
        return otherEvent(SDL_JOYAXISMOTION);
    case 2:
        return otherEvent(SDL_VIDEOEXPOSE);
    case 3:
        return fill(mouseDown(1 + random.below(5)));
    case 4:
        return fill(keyUp(SDLK_F1 + random.below(15)));
    default: {
        const int y = random.below(100);
        return fill(mouseMotion(random.below(800), y));
    }
    }
}
