/* SPDX-FileCopyrightText: 2026 The Morvane makers
 * SPDX-License-Identifier: MIT
 *
 * Plays a piece as the game does, for a number of milliseconds.  With SDL_AUDIODRIVER=disk
 * the mix goes to the file named by SDL_DISKAUDIOFILE, where its seam can be measured.
 * With a third argument, halts the piece after that many of the mixer's buffers, leaves a few
 * silent, and plays it again. */
#include <SDL/SDL.h>
#include <SDL/SDL_mixer.h>
#include <stdio.h>
#include <stdlib.h>

enum { CHUNK = 4096, PAUSE = 4 };

static volatile int buffers;

static void count(void *unused, Uint8 *stream, int length)
{
    (void) unused, (void) stream, (void) length;
    ++buffers;
}

static void wait_for(int more)
{
    const int last = buffers + more;
    while (buffers < last)
        SDL_Delay(1);
}

static int fail(const char *what)
{
    fprintf(stderr, "%s: %s\n", what, SDL_GetError());
    SDL_Quit();
    return 1;
}

int main(int argc, char **argv)
{
    Mix_Music *music;
    if (argc != 3 && argc != 4) {
        fprintf(stderr, "usage: playloop FILE MILLISECONDS [BUFFERS]\n");
        return 2;
    }
    if (SDL_Init(SDL_INIT_AUDIO) < 0)
        return fail("sound");
    if (Mix_OpenAudio(22050, AUDIO_S16SYS, 2, CHUNK) < 0)
        return fail("mixer");
    music = Mix_LoadMUS(argv[1]);
    if (!music || Mix_PlayMusic(music, -1) < 0)
        return fail(argv[1]);
    if (argc == 4) {
        Mix_SetPostMix(count, NULL);
        wait_for(atoi(argv[3]));
        Mix_HaltMusic();
        wait_for(PAUSE);
        if (Mix_PlayMusic(music, -1) < 0)
            return fail(argv[1]);
    }
    SDL_Delay((Uint32) atoi(argv[2]));
    Mix_HaltMusic();
    Mix_FreeMusic(music);
    Mix_CloseAudio();
    SDL_Quit();
    return 0;
}
