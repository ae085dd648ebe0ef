/* SPDX-FileCopyrightText: 2026 The Morvane makers
   SPDX-License-Identifier: MIT */

/* The GNU C library's rand and random, which share one state, so that a seed gives the same duel in
   the browser as on Linux: the additive feedback generator x[i] = x[i-3] + x[i-31], whose first 31
   words come from the multiplicative generator 16807 * x mod (2^31 - 1), and whose first 310
   results are dropped. The game calls srand first. */
#include <stdint.h>
#include <stdlib.h>

enum { wordCount = 31, lag = 3, dropped = 310 };

static uint32_t words[wordCount];
static int oldest;

static uint32_t next(void) {
    const int nearer = (oldest + wordCount - lag) % wordCount;
    words[oldest] += words[nearer];
    const uint32_t result = words[oldest] >> 1;
    oldest = (oldest + 1) % wordCount;
    return result;
}

void srand(unsigned seed) {
    int64_t word = (int32_t)(seed == 0 ? 1 : seed);
    for (int i = 0; i < wordCount; ++i) {
        words[i] = (uint32_t)word;
        word = 16807 * word % 2147483647;
        if (word < 0) {
            word += 2147483647;
        }
    }
    oldest = lag; /* the first three words also count as the latest */
    for (int i = 0; i < dropped; ++i) {
        next();
    }
}

long random(void) {
    return (long)next();
}

int rand(void) {
    return (int)random();
}
