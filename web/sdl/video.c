/* SPDX-FileCopyrightText: 2026 The Morvane makers
   SPDX-License-Identifier: MIT */

/* SDL's video driver for the browser: a 32-bit display in memory, which every flip passes to the
   page, and the input events from the page. */
#include <emscripten.h>
#include <stdlib.h>

#include "SDL.h"
#include "events/SDL_events_c.h"
#include "video/SDL_pixels_c.h"
#include "video/SDL_sysvideo.h"

typedef SDL_VideoDevice Device;

struct SDL_PrivateVideoData {
    Uint32* rgba; /* a copy of the display in the byte order of a canvas */
};

struct WMcursor {
    int unused;
};

static WMcursor pagesCursor;

EM_JS(void, pageOpen, (int w, int h), { Module.page.open(w, h); });
EM_JS(void, pagePresent, (const Uint32* pixels, int w, int h), {
    Module.page.present(new Uint8ClampedArray(HEAPU8.buffer, pixels, w * h * 4), w, h);
});
/* Writes the next event's kind and three numbers; returns 0 when there is none. */
EM_JS(int, pageEvent, (int* event), {
    const next = Module.page.nextEvent();
    if (!next) return 0;
    HEAP32.set(next, event >> 2);
    return 1;
});

enum EventKind { keyEvent = 1, motionEvent, buttonEvent, focusEvent, quitEvent };

static void pumpEvents(Device* device) {
    int event[4];
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

static int videoInit(Device* device, SDL_PixelFormat* format) {
    (void)device;
    format->BitsPerPixel = 32;
    format->BytesPerPixel = 4;
    format->Rmask = 0xFF0000;
    format->Gmask = 0xFF00;
    format->Bmask = 0xFF;
    return 0;
}

static SDL_Rect** listModes(Device* device, SDL_PixelFormat* format, Uint32 flags) {
    (void)device, (void)flags;
    return format->BitsPerPixel == 32 ? (SDL_Rect**)-1 : NULL;
}

static SDL_Surface* setVideoMode(Device* device, SDL_Surface* current, int w, int h, int bpp,
                                 Uint32 flags) {
    const size_t count = (size_t)w * (size_t)h;
    if (bpp != 32 || !SDL_ReallocFormat(current, 32, 0xFF0000, 0xFF00, 0xFF, 0)) {
        return NULL;
    }
    free(current->pixels);
    free(device->hidden->rgba);
    current->pixels = calloc(count, 4);
    device->hidden->rgba = malloc(count * 4);
    if (!current->pixels || !device->hidden->rgba) {
        SDL_OutOfMemory();
        return NULL;
    }
    current->flags = flags & SDL_FULLSCREEN;
    current->w = w;
    current->h = h;
    current->pitch = (Uint16)(w * 4);
    pageOpen(w, h);
    return current;
}

/* Passes the whole display to the page, because the game always flips the whole display. */
static void updateRects(Device* device, int n, SDL_Rect* rects) {
    const SDL_Surface* display = device->screen;
    const Uint32* from = display->pixels;
    Uint32* to = device->hidden->rgba;
    const int count = display->w * display->h;
    (void)n, (void)rects;
    for (int i = 0; i < count; ++i) {
        const Uint32 p = from[i];
        to[i] = 0xFF000000 | (p << 16 & 0xFF0000) | (p & 0xFF00) | (p >> 16 & 0xFF);
    }
    pagePresent(to, display->w, display->h);
}

static int setColors(Device* device, int first, int n, SDL_Color* colors) {
    (void)device, (void)first, (void)n, (void)colors;
    return 1;
}

static void videoQuit(Device* device) {
    if (device->screen) {
        free(device->screen->pixels);
        device->screen->pixels = NULL;
    }
    free(device->hidden->rgba);
    device->hidden->rgba = NULL;
}

/* All surfaces are software surfaces, and memory needs no locking. */
static int allocHWSurface(Device* device, SDL_Surface* surface) {
    (void)device, (void)surface;
    return -1;
}

static int lockSurface(Device* device, SDL_Surface* surface) {
    (void)device, (void)surface;
    return 0;
}

static void unlockSurface(Device* device, SDL_Surface* surface) {
    (void)device, (void)surface;
}

/* The page's pointer is the cursor; SDL draws no cursor into the display. */
static WMcursor* createCursor(Device* device, Uint8* data, Uint8* mask, int w, int h, int x,
                              int y) {
    (void)device, (void)data, (void)mask, (void)w, (void)h, (void)x, (void)y;
    return &pagesCursor;
}

static int showCursor(Device* device, WMcursor* cursor) {
    (void)device, (void)cursor;
    return 1;
}

static void freeCursor(Device* device, WMcursor* cursor) {
    (void)device, (void)cursor;
}

static void initKeymap(Device* device) {
    (void)device;
}

static int isAvailable(void) {
    return 1;
}

static void deleteDevice(Device* device) {
    free(device->hidden);
    free(device);
}

static Device* createDevice(int index) {
    Device* device = calloc(1, sizeof *device);
    (void)index;
    if (device) {
        device->hidden = calloc(1, sizeof *device->hidden);
    }
    if (!device || !device->hidden) {
        free(device);
        SDL_OutOfMemory();
        return NULL;
    }
    device->VideoInit = videoInit;
    device->ListModes = listModes;
    device->SetVideoMode = setVideoMode;
    device->SetColors = setColors;
    device->UpdateRects = updateRects;
    device->VideoQuit = videoQuit;
    device->AllocHWSurface = allocHWSurface;
    device->LockHWSurface = lockSurface;
    device->UnlockHWSurface = unlockSurface;
    device->FreeHWSurface = unlockSurface;
    device->CreateWMCursor = createCursor;
    device->ShowWMCursor = showCursor;
    device->FreeWMCursor = freeCursor;
    device->InitOSKeymap = initKeymap;
    device->PumpEvents = pumpEvents;
    device->free = deleteDevice;
    return device;
}

VideoBootStrap DUMMY_bootstrap = {"web", "browser canvas", isAvailable, createDevice};
