// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// Preloaded before the libraries of the real program, this receives every call that the game makes
// of SDL, SDL_image, SDL_ttf and SDL_mixer, and passes it on. Calls between the libraries are not
// recorded. Environment variables control it:
//   MORVANE_CALLS=<file>      writes each call on a line: number, function, arguments, result
//   MORVANE_FAIL_AT=<n>       the n-th call (from 1) fails as that function does
//   MORVANE_SCRIPT=<steps>    plays the game, see script.cpp
//   MORVANE_EAR=<pipe>        a named pipe that the sound device is to write into, see hearing.h
//   MORVANE_MIX=<file>        keeps what was heard
//   MORVANE_QUICK=1           time passes only in SDL_Delay, and takes none
//   MORVANE_FIXED_TIME=<s>    the time of day, from which the game seeds its random generator
//   MORVANE_RECORD=<folder>   writes down what the player does, see recording.h
//   MORVANE_TIMES=<file>      notes when every frame begins, see timing.h

#include <cstdlib>

#include <SDL.h>
#include <SDL_image.h>
#include <SDL_mixer.h>
#include <SDL_ttf.h>
#include <dlfcn.h>

#include "hearing.h"
#include "journal.h"
#include "recording.h"
#include "script.h"
#include "timing.h"

namespace {

template <typename Function> Function* next(Function* /*interposed*/, const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

bool isQuick() {
    static const bool quick = std::getenv("MORVANE_QUICK") != nullptr;
    return quick;
}

Uint32 quickClock = 0;
bool frameEnded = true;

void beforePolling() {
    if (frameEnded) {
        recordFrame();
        noteFrame();
    }
}

void afterPolling(const SDL_Event* event) {
    frameEnded = event == nullptr;
    if (event != nullptr) {
        recordEvent(*event);
        if (event->type == SDL_QUIT) {
            writeTimes();
        }
    }
}

struct Place {
    const SDL_Rect* rect;
};

std::ostream& operator<<(std::ostream& out, Place place) {
    return place.rect == nullptr ? out << "whole" : out << place.rect->x << ',' << place.rect->y;
}

// ":data/voda.png" of "file:data/voda.png".
std::string fileOf(const SDL_Surface* picture) {
    const std::string name = nameOf(picture);
    const auto colon = name.find(':');
    return colon == std::string::npos ? ":" + name : name.substr(colon);
}

} // namespace

// Each function below asks for its successor once, under its own name.
#define NEXT(function) static auto* const real = next(&(function), #function)
// The place in the program that called the function this stands in.
#define CALLER __builtin_return_address(0)

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the headers call them dst, src
extern "C" {

// Calls that can fail, with the result that says so.

int SDL_Init(Uint32 flags) {
    NEXT(SDL_Init);
    Call call(CALLER, "SDL_Init", flags);
    noteStart();
    return call.fails() ? -1 : real(flags);
}

SDL_Surface* SDL_SetVideoMode(int w, int h, int depth, Uint32 flags) {
    NEXT(SDL_SetVideoMode);
    Call call(CALLER, "SDL_SetVideoMode", w, h, depth, flags);
    return call.made(call.fails() ? nullptr : real(w, h, depth, flags), "display");
}

int TTF_Init() {
    NEXT(TTF_Init);
    Call call(CALLER, "TTF_Init");
    return call.fails() ? -1 : real();
}

int Mix_OpenAudio(int frequency, Uint16 format, int channels, int chunkSize) {
    NEXT(Mix_OpenAudio);
    Call call(CALLER, "Mix_OpenAudio", frequency, format, channels, chunkSize);
    if (call.isTheGames()) {
        startHearing();
    }
    return call.fails() ? -1 : real(frequency, format, channels, chunkSize);
}

SDL_Surface* IMG_Load(const char* file) {
    NEXT(IMG_Load);
    Call call(CALLER, "IMG_Load", file);
    return call.made(call.fails() ? nullptr : real(file), "file:" + std::string(file));
}

SDL_Surface* SDL_DisplayFormatAlpha(SDL_Surface* surface) {
    NEXT(SDL_DisplayFormatAlpha);
    Call call(CALLER, "SDL_DisplayFormatAlpha", Named{surface});
    const std::string name = "image" + fileOf(surface);
    return call.made(call.fails() ? nullptr : real(surface), name);
}

SDL_Surface* SDL_CreateRGBSurface(Uint32 flags, int w, int h, int depth, Uint32 r, Uint32 g,
                                  Uint32 b, Uint32 a) {
    NEXT(SDL_CreateRGBSurface);
    Call call(CALLER, "SDL_CreateRGBSurface", w, h);
    const std::string name = "surface:" + std::to_string(w) + "x" + std::to_string(h);
    return call.made(call.fails() ? nullptr : real(flags, w, h, depth, r, g, b, a), name);
}

TTF_Font* TTF_OpenFont(const char* file, int size) {
    NEXT(TTF_OpenFont);
    Call call(CALLER, "TTF_OpenFont", file, size);
    return call.made(call.fails() ? nullptr : real(file, size), "font:" + std::string(file));
}

SDL_Surface* TTF_RenderText_Blended(TTF_Font* font, const char* text, SDL_Color colour) {
    NEXT(TTF_RenderText_Blended);
    Call call(CALLER, "TTF_RenderText_Blended", Named{font}, "'" + std::string(text) + "'");
    const std::string name = "text:'" + std::string(text) + "'";
    return call.made(call.fails() ? nullptr : real(font, text, colour), name);
}

Mix_Music* Mix_LoadMUS(const char* file) {
    NEXT(Mix_LoadMUS);
    Call call(CALLER, "Mix_LoadMUS", file);
    return call.made(call.fails() ? nullptr : real(file), "music:" + std::string(file));
}

int Mix_PlayMusic(Mix_Music* music, int loops) {
    NEXT(Mix_PlayMusic);
    Call call(CALLER, "Mix_PlayMusic", Named{music}, loops);
    return call.fails() ? -1 : real(music, loops);
}

int SDL_SetAlpha(SDL_Surface* surface, Uint32 flags, Uint8 alpha) {
    NEXT(SDL_SetAlpha);
    Call call(CALLER, "SDL_SetAlpha", Named{surface}, flags, static_cast<int>(alpha));
    return call.fails() ? -1 : real(surface, flags, alpha);
}

int SDL_SetColorKey(SDL_Surface* surface, Uint32 flags, Uint32 key) {
    NEXT(SDL_SetColorKey);
    Call call(CALLER, "SDL_SetColorKey", Named{surface}, flags, key);
    return call.fails() ? -1 : real(surface, flags, key);
}

int SDL_FillRect(SDL_Surface* surface, SDL_Rect* rect, Uint32 colour) {
    NEXT(SDL_FillRect);
    Call call(CALLER, "SDL_FillRect", Named{surface}, Place{rect}, colour);
    return call.fails() ? -1 : real(surface, rect, colour);
}

int SDL_UpperBlit(SDL_Surface* from, SDL_Rect* part, SDL_Surface* to, SDL_Rect* place) {
    NEXT(SDL_UpperBlit);
    Call call(CALLER, "SDL_UpperBlit", Named{from}, Place{part}, Named{to}, Place{place});
    return call.fails() ? -1 : real(from, part, to, place);
}

int SDL_Flip(SDL_Surface* surface) {
    NEXT(SDL_Flip);
    Call call(CALLER, "SDL_Flip", Named{surface});
    if (call.fails()) {
        return -1;
    }
    const int result = real(surface);
    if (call.isTheGames()) {
        noteFlip();
    }
    return result;
}

// Calls whose result cannot tell a failure. A call that is to fail is carried out all the same and
// only sets SDL's error text, which the game must not mistake for a failure.

void SDL_WM_SetCaption(const char* title, const char* icon) {
    NEXT(SDL_WM_SetCaption);
    Call call(CALLER, "SDL_WM_SetCaption", title);
    real(title, icon);
    call.fails();
}

Uint32 SDL_MapRGB(const SDL_PixelFormat* format, Uint8 r, Uint8 g, Uint8 b) {
    NEXT(SDL_MapRGB);
    Call call(CALLER, "SDL_MapRGB", +r, +g, +b);
    call.fails();
    return real(format, r, g, b);
}

char* SDL_GetError() {
    NEXT(SDL_GetError);
    Call call(CALLER, "SDL_GetError");
    call.fails();
    return real();
}

int SDL_PollEvent(SDL_Event* event) {
    NEXT(SDL_PollEvent);
    Call call(CALLER, "SDL_PollEvent");
    call.fails();
    if (!call.isTheGames()) {
        return real(event);
    }
    beforePolling();
    int found = 0;
    if (!isScripted() || isDisturbed()) {
        found = real(event);
    } else {
        // Each library sends other events of the desktop, so all but the quit event are dropped.
        do {
            found = real(event);
        } while (found != 0 && event->type != SDL_QUIT);
    }
    if (found == 0 && isScripted()) {
        found = nextEvent(event);
    }
    afterPolling(found == 0 ? nullptr : event);
    return call.result(found);
}

Uint32 SDL_GetTicks() {
    NEXT(SDL_GetTicks);
    Call call(CALLER, "SDL_GetTicks");
    call.fails();
    return call.isTheGames() && isQuick() ? quickClock : real();
}

void SDL_Delay(Uint32 milliseconds) {
    NEXT(SDL_Delay);
    Call call(CALLER, "SDL_Delay", milliseconds);
    call.fails();
    if (call.isTheGames() && isQuick()) {
        quickClock += milliseconds;
    } else {
        real(milliseconds);
    }
}

int Mix_PlayingMusic() {
    NEXT(Mix_PlayingMusic);
    Call call(CALLER, "Mix_PlayingMusic");
    call.fails();
    return call.result(real());
}

int Mix_HaltMusic() {
    NEXT(Mix_HaltMusic);
    Call call(CALLER, "Mix_HaltMusic");
    call.fails();
    return real();
}

void SDL_FreeSurface(SDL_Surface* surface) {
    NEXT(SDL_FreeSurface);
    Call call(CALLER, "SDL_FreeSurface", Named{surface});
    call.givesBack(surface);
    real(surface);
    call.fails();
}

void Mix_FreeMusic(Mix_Music* music) {
    NEXT(Mix_FreeMusic);
    Call call(CALLER, "Mix_FreeMusic", Named{music});
    call.givesBack(music);
    real(music);
    call.fails();
}

void Mix_CloseAudio() {
    NEXT(Mix_CloseAudio);
    Call call(CALLER, "Mix_CloseAudio");
    stopHearing();
    real();
    call.fails();
}

void TTF_CloseFont(TTF_Font* font) {
    NEXT(TTF_CloseFont);
    Call call(CALLER, "TTF_CloseFont", Named{font});
    call.givesBack(font);
    real(font);
    call.fails();
}

void TTF_Quit() {
    NEXT(TTF_Quit);
    Call call(CALLER, "TTF_Quit");
    real();
    call.fails();
}

void SDL_Quit() {
    NEXT(SDL_Quit);
    Call call(CALLER, "SDL_Quit");
    real();
    call.fails();
}

} // extern "C"
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
