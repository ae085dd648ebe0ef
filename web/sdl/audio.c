/* SPDX-FileCopyrightText: 2026 The Morvane makers
   SPDX-License-Identifier: MIT */

/* SDL's audio device in the browser. There is no sound thread: the page asks for a chunk of samples
   whenever it has too few left. It can ask only while the program sleeps, so nothing is locked. */
#include <emscripten.h>
#include <stdlib.h>
#include <string.h>

#include "SDL.h"
#include "audio/SDL_sysaudio.h"

SDL_AudioDevice* current_audio; /* null: SDL_MixAudio then takes 16-bit samples */

static SDL_AudioSpec device;
static Uint8* chunk;
static int isPaused = 1;

EM_JS(int, pageOpenAudio, (int frequency, int channels, int samples), {
    function mix() {
        const chunk = _mixChunk() >> 1;
        return chunk ? HEAP16.slice(chunk, chunk + samples * channels) : null;
    }
    return Module.page.openAudio(frequency, channels, samples, mix) ? 1 : 0;
});
EM_JS(void, pageCloseAudio, (void), { Module.page.closeAudio(); });

/* Returns the next chunk of 16-bit samples, valid until the next call; null when closed. */
EMSCRIPTEN_KEEPALIVE const Uint8* mixChunk(void) {
    if (chunk) {
        memset(chunk, 0, device.size);
        if (!isPaused) {
            device.callback(device.userdata, chunk, (int)device.size);
        }
    }
    return chunk;
}

int SDL_OpenAudio(SDL_AudioSpec* desired, SDL_AudioSpec* obtained) {
    if (!pageOpenAudio(desired->freq, desired->channels, desired->samples)) {
        SDL_SetError("The browser cannot open a sound device");
        return -1;
    }
    device = *desired;
    device.size = (Uint32)desired->samples * desired->channels * 2;
    chunk = malloc(device.size);
    *obtained = device;
    return 0;
}

void SDL_PauseAudio(int pause) {
    isPaused = pause;
}

void SDL_CloseAudio(void) {
    pageCloseAudio();
    free(chunk);
    chunk = NULL;
}

void SDL_Audio_SetCaption(const char* caption) {
    (void)caption;
}

void SDL_LockAudio(void) {}

void SDL_UnlockAudio(void) {}
