// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// Preloaded before SDL, this plays the real game: it leads it to the screen named by
// BENCHMARK_SCREEN, notes when every frame begins, and quits after BENCHMARK_FRAMES frames. At the
// end it writes to the file BENCHMARK_LOG: when the game started SDL and when the first flip was
// done, and then for every frame when it began, and how many events waited for it and after it. All
// times are in milliseconds of the steady clock since boot.
//
// With BENCHMARK_DISTURB set, every 50th frame is held up for 40 ms and a hundred movements of the
// mouse wait at the beginning of every frame.

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>
#include <vector>

#include <dlfcn.h>

#include <SDL.h>

namespace {

struct KeyStroke {
    long frame;
    Uint8 type;
    SDLKey key;
};

double now() {
    return std::chrono::duration<double, std::milli>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

const char* setting(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

std::vector<KeyStroke> press(long frame, SDLKey key) {
    return {{frame, SDL_KEYDOWN, key}, {frame + 2, SDL_KEYUP, key}};
}

std::vector<KeyStroke> strokesTo(const char* screenName) {
    std::vector<KeyStroke> strokes;
    const auto add = [&strokes](const std::vector<KeyStroke>& more) {
        strokes.insert(strokes.end(), more.begin(), more.end());
    };
    if (std::strcmp(screenName, "intro") == 0) {
        return strokes;
    }
    add(press(5, SDLK_ESCAPE));
    if (std::strcmp(screenName, "menu") == 0) {
        return strokes;
    }
    add(press(10, SDLK_DOWN));
    if (std::strcmp(screenName, "help") == 0) {
        add(press(15, SDLK_DOWN));
    }
    add(press(20, SDLK_RETURN));
    if (std::strcmp(screenName, "battle") == 0) {
        for (SDLKey key : {SDLK_w, SDLK_a, SDLK_UP, SDLK_LEFT}) {
            strokes.push_back({30, SDL_KEYDOWN, key});
        }
    }
    return strokes;
}

struct Frame {
    double start;
    int eventsWaiting;
    int eventsLeft;
};

const int eventsPerDisturbedFrame = 100; // SDL 1.2 keeps at most 128
const std::size_t framesBetweenHoldUps = 50;
const std::chrono::milliseconds holdUp(40);

struct Play {
    std::vector<KeyStroke> strokes = strokesTo(setting("BENCHMARK_SCREEN"));
    std::size_t nextStroke = 0;
    long frames = std::atol(setting("BENCHMARK_FRAMES"));
    bool disturb = setting("BENCHMARK_DISTURB")[0] != '\0';
    std::vector<Frame> frameLog;
    double started = 0;
    double firstFlip = 0;
    bool atFrameStart = true;
    bool quitSent = false;

    Play() {
        frameLog.reserve(static_cast<std::size_t>(frames) + 10);
    }

    void writeLog() const {
        FILE* log = std::fopen(setting("BENCHMARK_LOG"), "w");
        if (log == nullptr) {
            return;
        }
        std::fprintf(log, "%.6f %.6f\n", started, firstFlip);
        for (const Frame& frame : frameLog) {
            std::fprintf(log, "%.6f %d %d\n", frame.start, frame.eventsWaiting, frame.eventsLeft);
        }
        std::fclose(log);
    }
};

Play& play() {
    static Play instance;
    return instance;
}

void pushMouseMovements() {
    SDL_Event event = {};
    event.type = SDL_MOUSEMOTION;
    for (int i = 0; i < eventsPerDisturbedFrame; ++i) {
        SDL_PushEvent(&event);
    }
}

int waitingEvents() {
    std::array<SDL_Event, 128> events;
    return SDL_PeepEvents(events.data(), static_cast<int>(events.size()), SDL_PEEKEVENT,
                          SDL_ALLEVENTS);
}

} // namespace

extern "C" int SDL_Init(Uint32 flags) {
    using Init = int (*)(Uint32);
    static const auto real = reinterpret_cast<Init>(dlsym(RTLD_NEXT, "SDL_Init"));
    if (play().started == 0) {
        play().started = now();
    }
    return real(flags);
}

extern "C" int SDL_PollEvent(SDL_Event* event) {
    using PollEvent = int (*)(SDL_Event*);
    static const auto real = reinterpret_cast<PollEvent>(dlsym(RTLD_NEXT, "SDL_PollEvent"));
    Play& p = play();
    if (p.atFrameStart) {
        p.frameLog.push_back({now(), 0, 0});
        p.atFrameStart = false;
        if (p.disturb) {
            pushMouseMovements();
            p.frameLog.back().eventsWaiting = waitingEvents();
        }
    }
    const long frame = static_cast<long>(p.frameLog.size());
    if (p.nextStroke < p.strokes.size() && p.strokes[p.nextStroke].frame <= frame) {
        const KeyStroke& stroke = p.strokes[p.nextStroke++];
        *event = SDL_Event();
        event->type = stroke.type;
        event->key.keysym.sym = stroke.key;
        return 1;
    }
    if (frame > p.frames && !p.quitSent) {
        p.quitSent = true;
        p.writeLog();
        *event = SDL_Event();
        event->type = SDL_QUIT;
        return 1;
    }
    const int pending = real(event);
    p.atFrameStart = pending == 0;
    return pending;
}

extern "C" int SDL_Flip(SDL_Surface* surface) {
    using Flip = int (*)(SDL_Surface*);
    static const auto real = reinterpret_cast<Flip>(dlsym(RTLD_NEXT, "SDL_Flip"));
    const int result = real(surface);
    Play& p = play();
    if (!p.frameLog.empty()) {
        p.frameLog.back().eventsLeft = waitingEvents();
    }
    if (p.disturb && p.frameLog.size() % framesBetweenHoldUps == 0) {
        std::this_thread::sleep_for(holdUp);
    }
    // SDL 1.2 flips once by itself while it sets the display up.
    if (p.firstFlip == 0 && !p.frameLog.empty()) {
        p.firstFlip = now();
    }
    return result;
}
