/* SPDX-FileCopyrightText: 2026 The Morvane makers
   SPDX-License-Identifier: MIT */

/* Preloaded into the game for Linux. Plays the events of a file on a virtual clock and writes the
   hash of the display after every frame and of every chunk of sound that the mixer makes. The page
   test does the same in a browser, and the two outputs must be equal. It also writes the file of
   each piece of music that starts ("mFILE"), which the page test cannot.

   RECORD_EVENTS names the file: "FRAME KIND A B" a line, with the kinds of web/page/input.js, and
   kind 6 for A chunks of sound at the end of the frame. RECORD_SEED is the calendar time. */
#define _GNU_SOURCE
#include <SDL.h>
#include <SDL_mixer.h>
#include <dlfcn.h>
#include <pthread.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>

enum { width = 800, height = 600, frameTicks = 16, framesPerChunk = 12, maxEvents = 20000 };
enum { keyEvent = 1, motionEvent, buttonEvent, focusEvent, quitEvent, soundEvent };

typedef struct {
    int frame, kind, a, b;
} Event;

static Event events[maxEvents];
static int eventCount, nextEvent, frame;
static Uint32 ticks;
static SDL_Surface* display;
static Uint32 displayHash;
static SDL_AudioSpec audio;
static pthread_t mainThread;
static int pointerX, pointerY;

static Uint32 hash(Uint32 h, Uint32 word) {
    return (h ^ word) * 16777619u;
}

__attribute__((constructor)) static void readEvents(void) {
    FILE* file = fopen(getenv("RECORD_EVENTS"), "r");
    Event e;
    mainThread = pthread_self();
    while (file && eventCount < maxEvents &&
           fscanf(file, "%d %d %d %d", &e.frame, &e.kind, &e.a, &e.b) == 4) {
        events[eventCount++] = e;
    }
    if (!file || !feof(file)) {
        fputs("The events cannot be read.\n", stderr);
        _Exit(2);
    }
    fclose(file);
}

time_t time(time_t* result) {
    const time_t seed = atol(getenv("RECORD_SEED"));
    if (result) {
        *result = seed;
    }
    return seed;
}

/* Sound: no device and no thread; the mixer's callback is called here. */

int SDL_OpenAudio(SDL_AudioSpec* desired, SDL_AudioSpec* obtained) {
    audio = *desired;
    audio.size = (Uint32)audio.samples * audio.channels * 2;
    audio.silence = 0;
    if (obtained) {
        *obtained = audio;
    }
    return 0;
}

void SDL_CloseAudio(void) {
    audio.callback = NULL;
}

void SDL_PauseAudio(int pause) {
    (void)pause;
}

void SDL_LockAudio(void) {}

void SDL_UnlockAudio(void) {}

static void recordChunk(void) {
    static Uint16 chunk[1 << 16];
    Uint32 h = 2166136261u;
    if (!audio.callback) {
        return;
    }
    memset(chunk, 0, audio.size);
    audio.callback(audio.userdata, (Uint8*)chunk, (int)audio.size);
    for (Uint32 i = 0; i < audio.size / 2; ++i) {
        h = hash(h, chunk[i]);
    }
    printf("s%08x\n", h);
}

/* Music: the mixer's own functions, and the names of the pieces. */

static struct {
    Mix_Music* music;
    char name[64];
} pieces[4];

Mix_Music* Mix_LoadMUS(const char* file) {
    static int count;
    Mix_Music* (*real)(const char*);
    *(void**)&real = dlsym(RTLD_NEXT, "Mix_LoadMUS");
    pieces[count].music = real(file);
    snprintf(pieces[count].name, sizeof pieces[count].name, "%s", strrchr(file, '/') + 1);
    return pieces[count++].music;
}

int Mix_PlayMusic(Mix_Music* music, int loops) {
    int (*real)(Mix_Music*, int);
    *(void**)&real = dlsym(RTLD_NEXT, "Mix_PlayMusic");
    for (int i = 0; i < 4; ++i) {
        if (music && pieces[i].music == music) {
            printf("m%s\n", pieces[i].name);
        }
    }
    return real(music, loops);
}

/* Time: every wait of a millisecond is one; a frame ends with its sixteenth. */

Uint32 SDL_GetTicks(void) {
    return ticks;
}

static void endFrame(void) {
    const int isPlaying = nextEvent < eventCount && events[nextEvent].kind == soundEvent &&
                          events[nextEvent].frame <= frame;
    const int chunks = isPlaying ? events[nextEvent++].a : frame % framesPerChunk == 0;
    printf("f%08x\n", displayHash);
    for (int i = 0; i < chunks; ++i) {
        recordChunk();
    }
    ++frame;
}

void SDL_Delay(Uint32 ms) {
    if (!pthread_equal(pthread_self(), mainThread)) { /* SDL's own timer thread */
        const struct timespec pause = {0, 50000000};
        nanosleep(&pause, NULL);
        return;
    }
    while (ms-- > 0) {
        if (++ticks % frameTicks == 0) {
            endFrame();
        }
    }
}

/* Events: as SDL passes them on from a driver. */

/* SDL drops a key's event that does not change it; buttons' events always pass. */
static int isRepeated(const Event* e) {
    static unsigned char isDown[SDLK_LAST];
    const int repeated = isDown[e->b] == e->a;
    isDown[e->b] = (unsigned char)e->a;
    return repeated;
}

int SDL_PollEvent(SDL_Event* out) {
    while (nextEvent < eventCount && events[nextEvent].frame <= frame &&
           events[nextEvent].kind != soundEvent) {
        const Event* e = &events[nextEvent++];
        memset(out, 0, sizeof *out);
        switch (e->kind) {
        case keyEvent:
            if (isRepeated(e)) {
                continue;
            }
            out->type = e->a ? SDL_KEYDOWN : SDL_KEYUP;
            out->key.keysym.sym = (SDLKey)e->b;
            return 1;
        case motionEvent:
            if (e->a == pointerX && e->b == pointerY) {
                continue; /* SDL reports no motion to where the pointer is */
            }
            pointerX = e->a;
            pointerY = e->b;
            out->type = SDL_MOUSEMOTION;
            out->motion.x = (Uint16)e->a;
            out->motion.y = (Uint16)e->b;
            return 1;
        case buttonEvent:
            out->type = e->a ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
            out->button.button = (Uint8)e->b;
            return 1;
        case quitEvent:
            out->type = SDL_QUIT;
            return 1;
        }
    }
    return 0;
}

/* Display. */

SDL_Surface* SDL_SetVideoMode(int w, int h, int depth, Uint32 flags) {
    SDL_Surface* (*real)(int, int, int, Uint32);
    *(void**)&real = dlsym(RTLD_NEXT, "SDL_SetVideoMode");
    SDL_ShowCursor(SDL_DISABLE); /* the dummy driver would paint it into the display */
    display = real(w, h, depth, flags);
    return display;
}

int SDL_Flip(SDL_Surface* surface) {
    Uint32 h = 2166136261u;
    for (int y = 0; y < height; ++y) {
        const Uint32* line = (const Uint32*)((const Uint8*)surface->pixels + y * surface->pitch);
        for (int x = 0; x < width; ++x) {
            const Uint32 p = line[x];
            h = hash(h, (p << 16 & 0xFF0000) | (p & 0xFF00) | (p >> 16 & 0xFF)); /* as a canvas */
        }
    }
    displayHash = h;
    if (getenv("RECORD_BMP") && frame == atoi(getenv("RECORD_FRAME"))) {
        SDL_SaveBMP(surface, getenv("RECORD_BMP"));
    }
    return 0;
}
