// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "clipping.h"

#include <algorithm>

namespace {

// One axis of a blit: from is where reading begins, to where drawing begins, both with length.
struct Span {
    int from;
    int to;
    int length;
};

void skip(Span& span, int pixels) {
    span.from += pixels;
    span.to += pixels;
    span.length -= pixels;
}

// The sourceSize and the clip's begin and size are those of the same axis.
Span clipped(Span span, int sourceSize, int clipBegin, int clipSize) {
    if (span.from < 0) {
        skip(span, -span.from);
    }
    span.length = std::min(span.length, sourceSize - span.from);
    if (span.to < clipBegin) {
        skip(span, clipBegin - span.to);
    }
    span.length = std::min(span.length, clipBegin + clipSize - span.to);
    return span;
}

} // namespace

void clipBlit(const SDL_Surface& source, const SDL_Rect* part, const SDL_Surface& target,
              SDL_Rect* place) {
    if (place == nullptr) {
        return;
    }
    const SDL_Rect whole = {0, 0, static_cast<Uint16>(source.w), static_cast<Uint16>(source.h)};
    const SDL_Rect read = part == nullptr ? whole : *part;
    const SDL_Rect clip = target.clip_rect;
    const Span x = clipped({read.x, place->x, read.w}, source.w, clip.x, clip.w);
    const Span y = clipped({read.y, place->y, read.h}, source.h, clip.y, clip.h);
    place->x = static_cast<Sint16>(x.to);
    place->y = static_cast<Sint16>(y.to);
    const bool empty = x.length <= 0 || y.length <= 0;
    place->w = static_cast<Uint16>(empty ? 0 : x.length);
    place->h = static_cast<Uint16>(empty ? 0 : y.length);
}

void clipFill(const SDL_Surface& target, SDL_Rect* place) {
    if (place == nullptr) {
        return;
    }
    const SDL_Rect clip = target.clip_rect;
    const int left = std::max<int>(place->x, clip.x);
    const int top = std::max<int>(place->y, clip.y);
    const int right = std::min(place->x + place->w, clip.x + clip.w);
    const int bottom = std::min(place->y + place->h, clip.y + clip.h);
    *place = {static_cast<Sint16>(left), static_cast<Sint16>(top),
              static_cast<Uint16>(std::max(right - left, 0)),
              static_cast<Uint16>(std::max(bottom - top, 0))};
}
