/* SPDX-FileCopyrightText: 2026 The Morvane makers
   SPDX-License-Identifier: MIT */

/* SDL's audio driver for the browser. There is no sound thread: the page asks for a chunk of
   samples whenever it has too few left. It can ask only while the program sleeps. */
#include <emscripten.h>
#include <stdlib.h>
#include <string.h>

#include "SDL.h"
#include "audio/SDL_audio_c.h"
#include "audio/SDL_sysaudio.h"

typedef SDL_AudioDevice Device;

struct SDL_PrivateAudioData {
    Uint8* chunk;
};

static Device* openDevice;

EM_JS(int, pageOpenAudio, (int frequency, int channels, int samples), {
    const mix = () => {
        const chunk = _mixChunk() >> 1;
        return chunk ? HEAP16.slice(chunk, chunk + samples * channels) : null;
    };
    return Module.page.openAudio(frequency, channels, samples, mix) ? 1 : 0;
});
EM_JS(void, pageCloseAudio, (void), { Module.page.closeAudio(); });

/* Returns the next chunk of 16-bit samples, valid until the next call; null when closed. */
EMSCRIPTEN_KEEPALIVE const Uint8* mixChunk(void) {
    Device* device = openDevice;
    if (!device) {
        return NULL;
    }
    memset(device->hidden->chunk, device->spec.silence, device->spec.size);
    if (!device->paused) {
        device->spec.callback(device->spec.userdata, device->hidden->chunk,
                              (int)device->spec.size);
    }
    return device->hidden->chunk;
}

static int openAudio(Device* device, SDL_AudioSpec* spec) {
    spec->format = AUDIO_S16SYS;
    SDL_CalculateAudioSpec(spec);
    device->hidden->chunk = malloc(spec->size);
    if (!device->hidden->chunk || !pageOpenAudio(spec->freq, spec->channels, spec->samples)) {
        SDL_SetError("The browser cannot open a sound device");
        return -1;
    }
    openDevice = device;
    return 1; /* tells SDL to start no thread */
}

static void closeAudio(Device* device) {
    openDevice = NULL;
    pageCloseAudio();
    free(device->hidden->chunk);
    device->hidden->chunk = NULL;
}

static void lockAudio(Device* device) {
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
    device->OpenAudio = openAudio;
    device->CloseAudio = closeAudio;
    device->LockAudio = lockAudio;
    device->UnlockAudio = lockAudio;
    device->free = deleteDevice;
    return device;
}

AudioBootStrap DUMMYAUD_bootstrap = {"web", "browser sound", isAvailable, createDevice};
