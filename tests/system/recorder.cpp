// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// Preloaded before SDL, this writes down what a player does to the real game, frame by frame, as
// a script that can be replayed: into MORVANE_RECORD/session.txt. After every tenth frame it leaves
// the display in MORVANE_RECORD/FRAME.bmp.

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

#include <dlfcn.h>

#include <SDL.h>

namespace {

const long framesPerPicture = 10;

const std::map<int, std::string> keyNames = {
    {SDLK_ESCAPE, "escape"}, {SDLK_RETURN, "return"}, {SDLK_SPACE, "space"},
    {SDLK_TAB, "tab"},       {SDLK_DELETE, "delete"}, {SDLK_UP, "up"},
    {SDLK_DOWN, "down"},     {SDLK_LEFT, "left"},     {SDLK_RIGHT, "right"},
};

const std::map<int, std::string> buttonNames = {
    {SDL_BUTTON_LEFT, "leftbutton"},     {SDL_BUTTON_MIDDLE, "middlebutton"},
    {SDL_BUTTON_RIGHT, "rightbutton"},   {SDL_BUTTON_WHEELUP, "wheelup"},
    {SDL_BUTTON_WHEELDOWN, "wheeldown"},
};

std::string directory() {
    const char* name = std::getenv("MORVANE_RECORD");
    return name == nullptr ? "." : name;
}

std::string keyName(int key) {
    const auto found = keyNames.find(key);
    return found == keyNames.end() ? std::string(1, static_cast<char>(key)) : found->second;
}

std::string inWords(const SDL_Event& event) {
    switch (event.type) {
    case SDL_KEYDOWN:
        return "down " + keyName(event.key.keysym.sym);
    case SDL_KEYUP:
        return "up " + keyName(event.key.keysym.sym);
    case SDL_MOUSEMOTION:
        return "point " + std::to_string(event.motion.x) + " " + std::to_string(event.motion.y);
    case SDL_MOUSEBUTTONDOWN:
        return "press " + buttonNames.at(event.button.button);
    case SDL_MOUSEBUTTONUP:
        return "release " + buttonNames.at(event.button.button);
    case SDL_QUIT:
        return "quit";
    default:
        return "other " + std::to_string(event.type);
    }
}

struct Record {
    std::FILE* script = std::fopen((directory() + "/session.txt").c_str(), "w");
    long frame = -1;
    bool frameEnded = true;
};

void beginFrame(Record& record) {
    if (record.frame >= 0 && record.frame % framesPerPicture == 0) {
        const std::string file = directory() + "/" + std::to_string(record.frame) + ".bmp";
        SDL_SaveBMP(SDL_GetVideoSurface(), file.c_str());
    }
    ++record.frame;
}

} // namespace

extern "C" int SDL_PollEvent(SDL_Event* event) {
    using PollEvent = int (*)(SDL_Event*);
    static const auto real = reinterpret_cast<PollEvent>(dlsym(RTLD_NEXT, "SDL_PollEvent"));
    static Record record;
    if (record.frameEnded) {
        beginFrame(record);
    }
    const int pending = real(event);
    record.frameEnded = pending == 0;
    if (pending != 0 && record.script != nullptr) {
        std::fprintf(record.script, "%ld %s\n", record.frame, inWords(*event).c_str());
        std::fflush(record.script);
    }
    return pending;
}
