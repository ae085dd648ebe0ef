// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "librarycalls.h"

#include <cstdlib>
#include <deque>
#include <map>
#include <sstream>

#include <SDL.h>
#include <SDL_image.h>
#include <SDL_mixer.h>
#include <SDL_ttf.h>

#include "main.h"
#include "programmode.h"

namespace {

LibraryCalls* recorder = nullptr;
std::map<const void*, std::string> names; // of music and fonts
std::deque<char> pretended;               // what stands for music and fonts
bool playing = false;                     // while pretending

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

template <typename Thing> Thing* pretend() {
    pretended.push_back(0);
    return reinterpret_cast<Thing*>(&pretended.back());
}

template <typename Thing> Thing* named(Thing* thing, const std::string& name) {
    names[thing] = name;
    return thing;
}

} // namespace

LibraryCalls::LibraryCalls() : pretending(false) {
    recorder = this;
}

LibraryCalls::~LibraryCalls() {
    recorder = nullptr;
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

// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the linker's names
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
int __real_Mix_OpenAudio(int frequency, Uint16 format, int channels, int chunkSize);
Mix_Music* __real_Mix_LoadMUS(const char* file);
int __real_Mix_PlayMusic(Mix_Music* music, int loops);
int __real_Mix_PlayingMusic();
int __real_Mix_HaltMusic();
void __real_Mix_FreeMusic(Mix_Music* music);
void __real_Mix_CloseAudio();
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
    return named(pretending() ? pretend<TTF_Font>() : __real_TTF_OpenFont(file, size), file);
}

void __wrap_TTF_CloseFont(TTF_Font* font) {
    note(call("TTF_CloseFont", names[font]));
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

int __wrap_Mix_OpenAudio(int frequency, Uint16 format, int channels, int chunkSize) {
    return fails(call("Mix_OpenAudio", frequency, hex(format), channels, chunkSize))
               ? -1
               : __real_Mix_OpenAudio(frequency, format, channels, chunkSize);
}

Mix_Music* __wrap_Mix_LoadMUS(const char* file) {
    if (fails(call("Mix_LoadMUS", file))) {
        return nullptr;
    }
    return named(pretending() ? pretend<Mix_Music>() : __real_Mix_LoadMUS(file), file);
}

int __wrap_Mix_PlayMusic(Mix_Music* music, int loops) {
    if (fails(call("Mix_PlayMusic", names[music], loops))) {
        return -1;
    }
    playing = true;
    return pretending() ? 0 : __real_Mix_PlayMusic(music, loops);
}

int __wrap_Mix_PlayingMusic() {
    return pretending() ? static_cast<int>(playing) : __real_Mix_PlayingMusic();
}

int __wrap_Mix_HaltMusic() {
    note("Mix_HaltMusic()");
    playing = false;
    return pretending() ? 0 : __real_Mix_HaltMusic();
}

void __wrap_Mix_FreeMusic(Mix_Music* music) {
    note(call("Mix_FreeMusic", names[music]));
    if (!pretending()) {
        __real_Mix_FreeMusic(music);
    }
}

void __wrap_Mix_CloseAudio() {
    note("Mix_CloseAudio()");
    if (!pretending()) {
        __real_Mix_CloseAudio();
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
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)
