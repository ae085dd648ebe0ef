// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "music.h"

#include <SDL_mixer.h>

#include "main.h"

namespace {

const int forever = -1;

Mix_Music* m1;
Mix_Music* m2;
Mix_Music* m3;
int currentMusic;

bool loadTrack(Mix_Music*& track, const std::string& filename) {
    track = Mix_LoadMUS((programDataPath + filename).c_str());
    if (track == nullptr) {
        return error(("$Can't load " + filename).c_str(), 3) != 0;
    }
    return true;
}

} // namespace

bool Music::load() {
    if (!haveSound) {
        return true;
    }
    return loadTrack(m1, "music1.mp3") && loadTrack(m2, "music2.mp3") &&
           loadTrack(m3, "music3.mp3");
}

void Music::unload() {
    if (!haveSound) {
        return;
    }
    for (Mix_Music* track : {m1, m2, m3}) {
        if (track != nullptr) {
            Mix_FreeMusic(track);
        }
    }
}

void Music::play(int n) {
    if (!haveSound || n == currentMusic) {
        return;
    }
    if (Mix_PlayingMusic() != 0) {
        Mix_HaltMusic();
    }
    currentMusic = n;
    switch (n) {
    case 1:
        Mix_PlayMusic(m1, forever);
        break;
    case 2:
        Mix_PlayMusic(m2, forever);
        break;
    case 3:
        Mix_PlayMusic(m3, forever);
        break;
    default:
        currentMusic = 0;
        break;
    }
}

int Music::current() {
    return haveSound ? currentMusic : 0;
}
