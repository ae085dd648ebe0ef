// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "clippingcheck.h"

#include <cstdio>

#include <SDL.h>

#include "clipping.h"
#include "testrandom.h"

namespace {

const int rectangles = 20000;
const int shownDifferences = 5;

SDL_Surface* surfaceOf(int w, int h) {
    return SDL_CreateRGBSurface(SDL_SWSURFACE, w, h, 32, 0xff0000, 0xff00, 0xff, 0);
}

// Around and over the edges of a surface.
SDL_Rect randomRect(TestRandom& random, const SDL_Surface& surface) {
    SDL_Rect rect;
    rect.x = static_cast<Sint16>(random.below(3 * surface.w) - surface.w);
    rect.y = static_cast<Sint16>(random.below(3 * surface.h) - surface.h);
    rect.w = static_cast<Uint16>(random.below(2 * surface.w));
    rect.h = static_cast<Uint16>(random.below(2 * surface.h));
    return rect;
}

bool isEmpty(SDL_Rect rect) {
    return rect.w == 0 || rect.h == 0;
}

// If nothing is drawn, only that is compared: the libraries write back different places, which the
// game never reads.
bool areEqual(SDL_Rect a, SDL_Rect b) {
    if (isEmpty(a) || isEmpty(b)) {
        return isEmpty(a) && isEmpty(b);
    }
    return a.x == b.x && a.y == b.y && a.w == b.w && a.h == b.h;
}

class Comparison {
public:
    void compare(const char* what, SDL_Rect asked, SDL_Rect library, SDL_Rect standIn) {
        ++done;
        if (areEqual(library, standIn)) {
            return;
        }
        ++different;
        if (different <= shownDifferences) {
            std::printf("%s at %d, %d, %d x %d: the library says %d, %d, %d x %d, "
                        "the stand-in %d, %d, %d x %d\n",
                        what, asked.x, asked.y, asked.w, asked.h, library.x, library.y, library.w,
                        library.h, standIn.x, standIn.y, standIn.w, standIn.h);
        }
    }

    long done = 0;
    long different = 0;
};

void compareBlits(TestRandom& random, SDL_Surface* source, SDL_Surface* target,
                  Comparison& comparison) {
    SDL_Rect part = randomRect(random, *source);
    SDL_Rect* read = random.chance(50) ? &part : nullptr;
    const SDL_Rect place = randomRect(random, *target);
    SDL_Rect library = place;
    SDL_Rect standIn = place;
    SDL_BlitSurface(source, read, target, &library);
    clipBlit(*source, read, *target, &standIn);
    comparison.compare("blit", place, library, standIn);
}

void compareFills(TestRandom& random, SDL_Surface* target, Comparison& comparison) {
    const SDL_Rect place = randomRect(random, *target);
    SDL_Rect library = place;
    SDL_Rect standIn = place;
    SDL_FillRect(target, &library, 0);
    clipFill(*target, &standIn);
    comparison.compare("fill", place, library, standIn);
}

} // namespace

bool clipsLikeTheLibrary(Counts& counts) {
    SDL_Init(SDL_INIT_VIDEO);
    SDL_Surface* source = surfaceOf(40, 30);
    SDL_Surface* target = surfaceOf(100, 70);
    TestRandom random(1);
    Comparison comparison;
    for (int i = 0; i < rectangles; ++i) {
        compareBlits(random, source, target, comparison);
        compareFills(random, target, comparison);
    }
    SDL_FreeSurface(source);
    SDL_FreeSurface(target);
    SDL_Quit();
    counts["clipped_rectangles"] = comparison.done;
    return comparison.different == 0;
}
