// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// Preloaded before SDL, this plays the real game: it leads it to the screen named by
// BENCHMARK_SCREEN, notes when every frame begins, and quits after BENCHMARK_FRAMES frames. At the
// end it writes to the file BENCHMARK_LOG: when the first flip was done, and then a line for every
// frame, all in milliseconds of the steady clock since boot.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
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

struct Play {
    std::vector<KeyStroke> strokes = strokesTo(setting("BENCHMARK_SCREEN"));
    std::size_t nextStroke = 0;
    long frames = std::atol(setting("BENCHMARK_FRAMES"));
    std::vector<double> frameStarts;
    double firstFlip = 0;
    bool atFrameStart = true;
    bool quitSent = false;

    Play() {
        frameStarts.reserve(static_cast<std::size_t>(frames) + 10);
    }

    void writeLog() const {
        FILE* log = std::fopen(setting("BENCHMARK_LOG"), "w");
        if (log == nullptr) {
            return;
        }
        std::fprintf(log, "%.6f\n", firstFlip);
        for (double start : frameStarts) {
            std::fprintf(log, "%.6f\n", start);
        }
        std::fclose(log);
    }
};

Play& play() {
    static Play instance;
    return instance;
}

} // namespace

extern "C" int SDL_PollEvent(SDL_Event* event) {
    using PollEvent = int (*)(SDL_Event*);
    static const auto real = reinterpret_cast<PollEvent>(dlsym(RTLD_NEXT, "SDL_PollEvent"));
    Play& p = play();
    if (p.atFrameStart) {
        p.frameStarts.push_back(now());
        p.atFrameStart = false;
    }
    const long frame = static_cast<long>(p.frameStarts.size());
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
    // SDL 1.2 flips once by itself while it sets the display up.
    if (p.firstFlip == 0 && !p.frameStarts.empty()) {
        p.firstFlip = now();
    }
    return result;
}
