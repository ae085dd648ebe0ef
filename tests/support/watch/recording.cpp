// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "recording.h"

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

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

const char* directory() {
    static const char* const name = std::getenv("MORVANE_RECORD");
    return name;
}

long frame = -1;

} // namespace

void recordFrame() {
    if (directory() == nullptr) {
        return;
    }
    if (frame >= 0 && frame % framesPerPicture == 0) {
        const std::string file = directory() + ("/" + std::to_string(frame)) + ".bmp";
        SDL_SaveBMP(SDL_GetVideoSurface(), file.c_str());
    }
    ++frame;
}

void recordEvent(const SDL_Event& event) {
    if (directory() == nullptr) {
        return;
    }
    static std::FILE* const script =
        std::fopen((directory() + std::string("/session.txt")).c_str(), "w");
    if (script != nullptr) {
        std::fprintf(script, "%ld %s\n", frame, inWords(event).c_str());
        std::fflush(script);
    }
}
