// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "librarycalls.h"

#include <cstdlib>
#include <sstream>

#include <SDL.h>
#include <SDL_image.h>
#include <SDL_ttf.h>

#include "fakemixer.h"
#include "main.h"
#include "programmode.h"

namespace {

LibraryCalls* recorder = nullptr;
std::string fontName; // of the font opened last
char pretendedFont;

std::string nameOf(const std::string& line) {
    return line.substr(0, line.find('('));
}

template <typename... Arguments>
std::string call(const std::string& function, Arguments... arguments) {
    std::ostringstream text;
    const char* separator = "";
    text << function << "(";
    ((text << separator << arguments, separator = ", "), ...);
    text << ")";
    return text.str();
}

std::string hex(Uint32 number) {
    std::ostringstream text;
    text << "0x" << std::hex << number;
    return text.str();
}

std::string pictureName(SDL_Surface* surface) {
    for (const auto& image : imagePool) {
        if (image.second == surface) {
            return image.first;
        }
    }
    return surface == nullptr ? "null" : "surface";
}

// Records the call; true when it is to fail.
bool fails(const std::string& line) {
    note(line);
    if (recorder == nullptr) {
        return false;
    }
    const std::set<std::string>& failing = recorder->failing;
    if (failing.count(line) == 0 && failing.count(nameOf(line)) == 0) {
        return false;
    }
    SDL_SetError("out of luck");
    return true;
}

bool pretending() {
    return recorder != nullptr && recorder->pretending;
}

} // namespace

LibraryCalls::LibraryCalls() {
    recorder = this;
    mixer.onCall = fails;
}

LibraryCalls::~LibraryCalls() {
    recorder = nullptr;
    mixer.onCall = nullptr;
}

std::vector<std::string> LibraryCalls::of(const std::set<std::string>& functions) const {
    std::vector<std::string> chosen;
    for (const std::string& line : log) {
        if (functions.count(nameOf(line)) != 0) {
            chosen.push_back(line);
        }
    }
    return chosen;
}

void note(const std::string& line) {
    if (recorder != nullptr) {
        recorder->log.push_back(line);
    }
}

extern "C" {

int __real_SDL_Init(Uint32 flags);
SDL_Surface* __real_SDL_SetVideoMode(int w, int h, int depth, Uint32 flags);
void __real_SDL_WM_SetCaption(const char* title, const char* icon);
void __real_SDL_Quit();
SDL_Surface* __real_SDL_CreateRGBSurface(Uint32 flags, int w, int h, int depth, Uint32 r, Uint32 g,
                                         Uint32 b, Uint32 a);
int __real_SDL_SetAlpha(SDL_Surface* surface, Uint32 flags, Uint8 alpha);
int __real_SDL_SetColorKey(SDL_Surface* surface, Uint32 flags, Uint32 key);
SDL_Surface* __real_SDL_DisplayFormatAlpha(SDL_Surface* surface);
void __real_SDL_FreeSurface(SDL_Surface* surface);
SDL_Surface* __real_IMG_Load(const char* file);
int __real_TTF_Init();
TTF_Font* __real_TTF_OpenFont(const char* file, int size);
void __real_TTF_CloseFont(TTF_Font* font);
void __real_TTF_Quit();
void __real_srand(unsigned seed);
void __real__ZN11ProgramMode8activateEv(ProgramMode* mode);

int __wrap_SDL_Init(Uint32 flags) {
    return fails(call("SDL_Init", hex(flags))) ? -1 : __real_SDL_Init(flags);
}

SDL_Surface* __wrap_SDL_SetVideoMode(int w, int h, int depth, Uint32 flags) {
    return fails(call("SDL_SetVideoMode", w, h, depth, hex(flags)))
               ? nullptr
               : __real_SDL_SetVideoMode(w, h, depth, flags);
}

void __wrap_SDL_WM_SetCaption(const char* title, const char* icon) {
    note(call("SDL_WM_SetCaption", title, icon == nullptr ? "null" : icon));
    __real_SDL_WM_SetCaption(title, icon);
}

void __wrap_SDL_Quit() {
    note("SDL_Quit()");
    if (!pretending()) {
        __real_SDL_Quit();
    }
}

SDL_Surface* __wrap_SDL_CreateRGBSurface(Uint32 flags, int w, int h, int depth, Uint32 r, Uint32 g,
                                         Uint32 b, Uint32 a) {
    const std::string line =
        call("SDL_CreateRGBSurface", hex(flags), w, h, depth, hex(r), hex(g), hex(b), hex(a));
    return fails(line) ? nullptr : __real_SDL_CreateRGBSurface(flags, w, h, depth, r, g, b, a);
}

int __wrap_SDL_SetAlpha(SDL_Surface* surface, Uint32 flags, Uint8 alpha) {
    note(call("SDL_SetAlpha", hex(flags), static_cast<int>(alpha)));
    return __real_SDL_SetAlpha(surface, flags, alpha);
}

int __wrap_SDL_SetColorKey(SDL_Surface* surface, Uint32 flags, Uint32 key) {
    note(call("SDL_SetColorKey", hex(flags), hex(key)));
    return __real_SDL_SetColorKey(surface, flags, key);
}

SDL_Surface* __wrap_SDL_DisplayFormatAlpha(SDL_Surface* surface) {
    return fails("SDL_DisplayFormatAlpha()") ? nullptr : __real_SDL_DisplayFormatAlpha(surface);
}

void __wrap_SDL_FreeSurface(SDL_Surface* surface) {
    note(call("SDL_FreeSurface", pictureName(surface)));
    if (!pretending()) {
        __real_SDL_FreeSurface(surface);
    }
}

SDL_Surface* __wrap_IMG_Load(const char* file) {
    return fails(call("IMG_Load", file)) ? nullptr : __real_IMG_Load(file);
}

int __wrap_TTF_Init() {
    return fails("TTF_Init()") ? -1 : __real_TTF_Init();
}

TTF_Font* __wrap_TTF_OpenFont(const char* file, int size) {
    if (fails(call("TTF_OpenFont", file, size))) {
        return nullptr;
    }
    fontName = file;
    return pretending() ? reinterpret_cast<TTF_Font*>(&pretendedFont)
                        : __real_TTF_OpenFont(file, size);
}

void __wrap_TTF_CloseFont(TTF_Font* font) {
    note(call("TTF_CloseFont", fontName));
    if (!pretending()) {
        __real_TTF_CloseFont(font);
    }
}

void __wrap_TTF_Quit() {
    note("TTF_Quit()");
    if (!pretending()) {
        __real_TTF_Quit();
    }
}

void __wrap_srand(unsigned seed) {
    note(call("srand", seed));
    __real_srand(seed);
}

// ProgramMode::activate() as every mode has it that brings none of its own.
void __wrap__ZN11ProgramMode8activateEv(ProgramMode* mode) {
    note("ProgramMode::activate()");
    __real__ZN11ProgramMode8activateEv(mode);
}

} // extern "C"
