// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include <cstring>

#include <SDL_mixer.h>

#include "surroundings.h"

// The mixer as the game sees it, without a sound.

namespace {

// Music that is only a number.
char tracks[4];

Mix_Music* trackOf(const char* file) {
    const char* number = std::strrchr(file, '.') - 1;
    return reinterpret_cast<Mix_Music*>(&tracks[*number - '0']);
}

int numberOf(Mix_Music* music) {
    const std::ptrdiff_t number = reinterpret_cast<char*>(music) - tracks;
    return number >= 1 && number <= 3 ? static_cast<int>(number) : 0;
}

} // namespace

// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the linker's names
extern "C" {

int __wrap_Mix_OpenAudio(int /*frequency*/, Uint16 /*format*/, int /*channels*/, int /*chunk*/) {
    return 0;
}

Mix_Music* __wrap_Mix_LoadMUS(const char* file) {
    return trackOf(file);
}

int __wrap_Mix_PlayMusic(Mix_Music* music, int loops) {
    surroundings.loops = loops;
    surroundings.playing = numberOf(music);
    ++surroundings.starts[surroundings.playing];
    return 0;
}

int __wrap_Mix_PlayingMusic() {
    return surroundings.playing == 0 ? 0 : 1;
}

int __wrap_Mix_HaltMusic() {
    surroundings.playing = 0;
    ++surroundings.halts;
    return 0;
}

void __wrap_Mix_FreeMusic(Mix_Music* /*music*/) {}

void __wrap_Mix_CloseAudio() {}

} // extern "C"
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)
