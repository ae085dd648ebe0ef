// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "fakemixer.h"

#include <sstream>

#include <SDL_mixer.h>

FakeMixer mixer;

namespace {

// Music that is only a number, and the files that were loaded.
char tracks[4];
std::string files[4];

int numberOf(Mix_Music* music) {
    const std::ptrdiff_t number = reinterpret_cast<char*>(music) - tracks;
    return number >= 1 && number <= 3 ? static_cast<int>(number) : 0;
}

// Returns true when the call is to fail.
bool fails(const std::string& call) {
    return mixer.onCall && mixer.onCall(call);
}

} // namespace

extern "C" {

int __wrap_Mix_OpenAudio(int frequency, Uint16 format, int channels, int chunkSize) {
    std::ostringstream call;
    call << "Mix_OpenAudio(" << frequency << ", 0x" << std::hex << format << std::dec << ", "
         << channels << ", " << chunkSize << ")";
    return fails(call.str()) ? -1 : 0;
}

Mix_Music* __wrap_Mix_LoadMUS(const char* file) {
    const std::string name = file;
    const int number = name[name.rfind('.') - 1] - '0';
    files[number] = name;
    return fails("Mix_LoadMUS(" + name + ")") ? nullptr
                                              : reinterpret_cast<Mix_Music*>(&tracks[number]);
}

int __wrap_Mix_PlayMusic(Mix_Music* music, int loops) {
    const int track = numberOf(music);
    if (fails("Mix_PlayMusic(" + files[track] + ", " + std::to_string(loops) + ")")) {
        return -1;
    }
    mixer.loops = loops;
    mixer.playing = track;
    ++mixer.starts[track];
    return 0;
}

int __wrap_Mix_PlayingMusic() {
    return mixer.playing == 0 ? 0 : 1;
}

int __wrap_Mix_HaltMusic() {
    fails("Mix_HaltMusic()");
    mixer.playing = 0;
    ++mixer.halts;
    return 0;
}

void __wrap_Mix_FreeMusic(Mix_Music* music) {
    fails("Mix_FreeMusic(" + files[numberOf(music)] + ")");
}

void __wrap_Mix_CloseAudio() {
    fails("Mix_CloseAudio()");
}

} // extern "C"
