// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// Loaded before the libraries of the real program. The environment says what it does:
//   MORVANE_FAILS=<function>   that call fails, with "out of luck" as SDL's reason
//   MORVANE_STOPS_AFTER=<n>    after n frames the desktop asks the program to end

#include <csignal>
#include <cstdlib>
#include <cstring>

#include <SDL.h>
#include <dlfcn.h>

namespace {

bool fails(const char* function) {
    const char* failing = std::getenv("MORVANE_FAILS");
    if (failing == nullptr || std::strcmp(failing, function) != 0) {
        return false;
    }
    SDL_SetError("out of luck");
    return true;
}

template <typename Function> Function next(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

// Every frame ends its polling with an empty queue.
void endFrame() {
    static int frames = 0;
    const char* stop = std::getenv("MORVANE_STOPS_AFTER");
    ++frames;
    if (stop != nullptr && frames == std::atoi(stop)) {
        std::raise(SIGTERM);
    }
}

} // namespace

extern "C" {

int SDL_Init(Uint32 flags) {
    return fails("SDL_Init") ? -1 : next<int (*)(Uint32)>("SDL_Init")(flags);
}

SDL_Surface* SDL_SetVideoMode(int w, int h, int depth, Uint32 flags) {
    return fails("SDL_SetVideoMode") ? nullptr
                                     : next<SDL_Surface* (*)(int, int, int, Uint32)>(
                                           "SDL_SetVideoMode")(w, h, depth, flags);
}

int SDL_PollEvent(SDL_Event* event) {
    const int found = next<int (*)(SDL_Event*)>("SDL_PollEvent")(event);
    if (found == 0) {
        endFrame();
    }
    return found;
}

int TTF_Init() {
    return fails("TTF_Init") ? -1 : next<int (*)()>("TTF_Init")();
}

int Mix_OpenAudio(int frequency, Uint16 format, int channels, int chunkSize) {
    return fails("Mix_OpenAudio") ? -1
                                  : next<int (*)(int, Uint16, int, int)>("Mix_OpenAudio")(
                                        frequency, format, channels, chunkSize);
}

} // extern "C"
