/* SPDX-FileCopyrightText: 2026 The Morvane makers
   SPDX-License-Identifier: MIT */

/* SDL's start, clock, display and input in the browser. SDL's dummy driver keeps the display in
   memory. Every flip passes it to the page, and the events come from the page, which also owns the
   clock and stops it while the game is paused. */
#include <emscripten.h>
#include <stdlib.h>

#include "SDL.h"
#include "events/SDL_events_c.h"
#include "timer/SDL_timer_c.h"
#include "video/SDL_pixels_c.h"
#include "video/SDL_sysvideo.h"

typedef SDL_VideoDevice Device;

EM_JS(double, pageNow, (void), { return Module.page.now(); });
EM_ASYNC_JS(void, pageSleep, (int ms), { await Module.page.sleep(ms); });
EM_JS(void, pagePresent, (const Uint32* pixels, int w, int h),
      { Module.page.present(new Uint8ClampedArray(HEAPU8.buffer, pixels, w * h * 4), w, h); });
/* Writes the next event's kind and two numbers; returns 0 when there is none. */
EM_JS(int, pageEvent, (int* event), {
    const next = Module.page.nextEvent();
    if (!next)
        return 0;
    HEAP32.set(next, event >> 2);
    return 1;
});

enum EventKind { keyEvent = 1, motionEvent, buttonEvent, focusEvent, quitEvent };

static double start;
static SDL_Surface* (*setDummyMode)(Device*, SDL_Surface*, int, int, int, Uint32);

static void pumpEvents(Device* device) {
    int event[3];
    (void)device;
    while (pageEvent(event)) {
        const Uint8 isPressed = event[1] ? SDL_PRESSED : SDL_RELEASED;
        SDL_keysym key = {0, (SDLKey)event[2], KMOD_NONE, 0};
        switch (event[0]) {
        case keyEvent:
            SDL_PrivateKeyboard(isPressed, &key);
            break;
        case motionEvent:
            SDL_PrivateMouseMotion(0, 0, (Sint16)event[1], (Sint16)event[2]);
            break;
        case buttonEvent:
            SDL_PrivateMouseButton(isPressed, (Uint8)event[2], 0, 0);
            break;
        case focusEvent: /* when the focus is lost, SDL releases every key */
            SDL_PrivateAppActive((Uint8)event[1], SDL_APPINPUTFOCUS);
            break;
        case quitEvent:
            SDL_PrivateQuit();
            break;
        }
    }
}

/* Gives the display the byte order of a canvas, so that no byte has to be moved. */
static SDL_Surface* setVideoMode(Device* device, SDL_Surface* display, int w, int h, int depth,
                                 Uint32 flags) {
    const int isSet = setDummyMode(device, display, w, h, depth, flags) &&
                      SDL_ReallocFormat(display, depth, 0xFF, 0xFF00, 0xFF0000, 0);
    return isSet ? display : NULL;
}

/* Passes the whole display to the page, because the game always flips the whole display. The fourth
   byte of a pixel has no meaning to SDL, but a canvas takes it for the opacity. */
static void updateRects(Device* device, int n, SDL_Rect* rects) {
    const SDL_Surface* display = device->screen;
    const int count = display->w * display->h;
    Uint32* pixels = display->pixels;
    (void)n, (void)rects;
    for (int i = 0; i < count; ++i) {
        pixels[i] |= 0xFF000000;
    }
    pagePresent(pixels, display->w, display->h);
}

/* Starts only the display and the input: the game uses none of the other parts that have to be
   started here. */
int SDL_Init(Uint32 flags) {
    (void)flags;
    start = pageNow();
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    if (SDL_VideoInit("dummy", 0) != 0) {
        return -1;
    }
    SDL_ShowCursor(SDL_DISABLE); /* the page's pointer is the cursor */
    setDummyMode = current_video->SetVideoMode;
    current_video->SetVideoMode = setVideoMode;
    current_video->UpdateRects = updateRects;
    current_video->PumpEvents = pumpEvents;
    return 0;
}

void SDL_Quit(void) {
    SDL_VideoQuit();
}

Uint32 SDL_GetTicks(void) {
    return (Uint32)(pageNow() - start);
}

/* Suspends the whole program, so that the browser can do its own work. */
void SDL_Delay(Uint32 ms) {
    pageSleep((int)ms);
}

/* The libraries call this instead of SDL_Delay. They would wait only for threads and for fading
   music. The game has neither, and only its main loop may be suspended (see web/link). */
void librariesDelay(Uint32 ms) {
    (void)ms;
    abort();
}

/* SDL's event thread, which is never started, would call these. */
int SDL_timer_running;

int SDL_SetTimerThreaded(int value) {
    return value;
}

void SDL_ThreadedTimerCheck(void) {}
