// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "librarycalls.h"

#include <vector>

#include "allocations.h"
#include "samples.h"

extern "C" {
int __real_SDL_UpperBlit(SDL_Surface* src, SDL_Rect* srcrect, SDL_Surface* dst, SDL_Rect* dstrect);
int __wrap_SDL_UpperBlit(SDL_Surface* src, SDL_Rect* srcrect, SDL_Surface* dst, SDL_Rect* dstrect);
int __real_SDL_FillRect(SDL_Surface* dst, SDL_Rect* rect, Uint32 colour);
int __wrap_SDL_FillRect(SDL_Surface* dst, SDL_Rect* rect, Uint32 colour);
int __real_SDL_SetAlpha(SDL_Surface* surface, Uint32 flags, Uint8 alpha);
int __wrap_SDL_SetAlpha(SDL_Surface* surface, Uint32 flags, Uint8 alpha);
int __real_SDL_Flip(SDL_Surface* surface);
int __wrap_SDL_Flip(SDL_Surface* surface);
SDL_Surface* __real_SDL_ConvertSurface(SDL_Surface* src, SDL_PixelFormat* format, Uint32 flags);
SDL_Surface* __wrap_SDL_ConvertSurface(SDL_Surface* src, SDL_PixelFormat* format, Uint32 flags);
SDL_Surface* __real_SDL_DisplayFormat(SDL_Surface* surface);
SDL_Surface* __wrap_SDL_DisplayFormat(SDL_Surface* surface);
SDL_Surface* __real_SDL_DisplayFormatAlpha(SDL_Surface* surface);
SDL_Surface* __wrap_SDL_DisplayFormatAlpha(SDL_Surface* surface);
}

namespace {

enum class Kind { blit, fill, alpha };

// Blits write into their rectangles, so the rectangles are kept as they were given.
struct Call {
    Kind kind;
    SDL_Surface* surface; // drawn on, or given its opacity
    SDL_Rect rect;
    bool hasRect;
    SDL_Surface* source;
    SDL_Rect sourceRect;
    bool hasSourceRect;
    Uint32 value; // colour, or flags
    Uint8 opacity;
};

bool recording = false;
std::vector<Call> calls;
long conversionCount = 0;
double flipMicroseconds = 0;

SDL_Rect valueOf(const SDL_Rect* rect) {
    return rect == nullptr ? SDL_Rect{0, 0, 0, 0} : *rect;
}

bool sameColours(const SDL_PixelFormat* a, const SDL_PixelFormat* b) {
    return a->BitsPerPixel == b->BitsPerPixel && a->Rmask == b->Rmask && a->Gmask == b->Gmask &&
           a->Bmask == b->Bmask;
}

} // namespace

void recordCalls(bool on) {
    recording = on;
}

void forgetCalls() {
    calls.clear();
}

void repeatCalls() {
    for (Call& call : calls) {
        SDL_Rect rect = call.rect;
        SDL_Rect sourceRect = call.sourceRect;
        switch (call.kind) {
        case Kind::blit:
            __real_SDL_UpperBlit(call.source, call.hasSourceRect ? &sourceRect : nullptr,
                                 call.surface, call.hasRect ? &rect : nullptr);
            break;
        case Kind::fill:
            __real_SDL_FillRect(call.surface, call.hasRect ? &rect : nullptr, call.value);
            break;
        case Kind::alpha:
            __real_SDL_SetAlpha(call.surface, call.value, call.opacity);
            break;
        }
    }
}

long conversions() {
    return conversionCount;
}

double lastFlip() {
    return flipMicroseconds;
}

extern "C" {

int __wrap_SDL_UpperBlit(SDL_Surface* src, SDL_Rect* srcrect, SDL_Surface* dst, SDL_Rect* dstrect) {
    if (recording) {
        calls.push_back({Kind::blit, dst, valueOf(dstrect), dstrect != nullptr, src,
                         valueOf(srcrect), srcrect != nullptr, 0, 0});
    }
    if (!sameColours(src->format, dst->format)) {
        ++conversionCount;
    }
    return __real_SDL_UpperBlit(src, srcrect, dst, dstrect);
}

int __wrap_SDL_FillRect(SDL_Surface* dst, SDL_Rect* rect, Uint32 colour) {
    if (recording) {
        calls.push_back(
            {Kind::fill, dst, valueOf(rect), rect != nullptr, nullptr, {}, false, colour, 0});
    }
    return __real_SDL_FillRect(dst, rect, colour);
}

int __wrap_SDL_SetAlpha(SDL_Surface* surface, Uint32 flags, Uint8 alpha) {
    if (recording) {
        calls.push_back({Kind::alpha, surface, {}, false, nullptr, {}, false, flags, alpha});
    }
    return __real_SDL_SetAlpha(surface, flags, alpha);
}

int __wrap_SDL_Flip(SDL_Surface* surface) {
    // The work of showing a frame is the library's, so it is not counted as the game's.
    const bool wasCounting = countAllocations(false);
    const Clock::time_point start = Clock::now();
    const int result = __real_SDL_Flip(surface);
    flipMicroseconds = microsecondsSince(start);
    countAllocations(wasCounting);
    return result;
}

SDL_Surface* __wrap_SDL_ConvertSurface(SDL_Surface* src, SDL_PixelFormat* format, Uint32 flags) {
    ++conversionCount;
    return __real_SDL_ConvertSurface(src, format, flags);
}

SDL_Surface* __wrap_SDL_DisplayFormat(SDL_Surface* surface) {
    ++conversionCount;
    return __real_SDL_DisplayFormat(surface);
}

SDL_Surface* __wrap_SDL_DisplayFormatAlpha(SDL_Surface* surface) {
    ++conversionCount;
    return __real_SDL_DisplayFormatAlpha(surface);
}
}
