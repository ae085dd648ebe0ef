/* SPDX-FileCopyrightText: 2026 The Morvane makers
   SPDX-License-Identifier: MIT */

/* SDL's clock in the browser. The page owns the clock and stops it while the game is paused. */
#include <emscripten.h>
#include <stdlib.h>

#include "SDL.h"
#include "SDL_timer.h"
#include "timer/SDL_systimer.h"
#include "timer/SDL_timer_c.h"

void librariesDelay(Uint32 ms);

EM_JS(double, pageNow, (void), { return Module.page.now(); });
EM_ASYNC_JS(void, pageSleep, (int ms), { await Module.page.sleep(ms); });

static double start;

void SDL_StartTicks(void) {
    start = pageNow();
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

int SDL_SYS_TimerInit(void) {
    return 0;
}

void SDL_SYS_TimerQuit(void) {}

int SDL_SYS_StartTimer(void) {
    SDL_SetError("Timer callbacks are not supported in the browser");
    return -1;
}

void SDL_SYS_StopTimer(void) {}
