// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "floors.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include <sys/resource.h>
#include <unistd.h>

#include <SDL_image.h>
#include <SDL_mixer.h>
#include <SDL_ttf.h>

#include "gamedata.h"
#include "main.h"
#include "samples.h"

namespace {

const int fontSize = 29;

void require(bool success) {
    if (!success) {
        std::fprintf(stderr, "The benchmark cannot go on: %s\n", SDL_GetError());
        std::exit(1);
    }
}

void startLibraries() {
    require(SDL_Init(SDL_INIT_EVERYTHING) == 0);
    screen = SDL_SetVideoMode(800, 600, 32, SDL_FULLSCREEN);
    require(screen != nullptr);
    require(TTF_Init() == 0);
    require(Mix_OpenAudio(22050, AUDIO_S16SYS, 2, 4096) == 0);
    programDataPath = getDataPath();
}

double residentMegabytes() {
    long total = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

double processorSeconds() {
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

} // namespace

void measureDecoding() {
    startLibraries();
    const Clock::time_point start = Clock::now();
    for (const PictureFile& file : pictureFiles) {
        SDL_Surface* picture = IMG_Load((programDataPath + file.name).c_str());
        require(picture != nullptr);
        SDL_FreeSurface(picture);
    }
    const double picturesDone = microsecondsSince(start);
    TTF_Font* font = TTF_OpenFont((programDataPath + fontFile).c_str(), fontSize);
    require(font != nullptr);
    for (const char* name : musicFiles) {
        require(Mix_LoadMUS((programDataPath + name).c_str()) != nullptr);
    }
    printResult("decode pictures", "ms", picturesDone / 1000);
    printResult("decode all files", "ms", microsecondsSince(start) / 1000);
}

void measureMemory() {
    startLibraries();
    std::vector<std::pair<int, int>> sizes = {{800, 600}}; // the intro's own picture
    for (const PictureFile& file : pictureFiles) {
        SDL_Surface* picture = IMG_Load((programDataPath + file.name).c_str());
        require(picture != nullptr);
        sizes.emplace_back(picture->w, picture->h);
        SDL_FreeSurface(picture);
    }
    for (const auto& size : sizes) {
        SDL_Surface* surface = createSurface(size.first, size.second);
        require(surface != nullptr && SDL_FillRect(surface, nullptr, 1) == 0);
    }
    require(SDL_FillRect(screen, nullptr, 1) == 0 && SDL_Flip(screen) == 0);
    require(TTF_OpenFont((programDataPath + fontFile).c_str(), fontSize) != nullptr);
    for (const char* name : musicFiles) {
        Mix_Music* track = Mix_LoadMUS((programDataPath + name).c_str());
        require(track != nullptr);
        if (name == musicFiles[0]) {
            require(Mix_PlayMusic(track, -1) == 0);
        }
    }
    printResult("memory floor", "MB", residentMegabytes());
}

void measurePacing(int frames) {
    require(SDL_Init(SDL_INIT_EVERYTHING) == 0);
    const double before = processorSeconds();
    const Clock::time_point start = Clock::now();
    Clock::time_point lastStart = start;
    std::vector<double> periods;
    for (int i = 0; i < frames; ++i) {
        const Uint32 frameStart = SDL_GetTicks();
        if (i > 0) {
            periods.push_back(microsecondsSince(lastStart) / 1000);
        }
        lastStart = Clock::now();
        SDL_Event event;
        while (SDL_PollEvent(&event) != 0) {
        }
        while (SDL_GetTicks() - frameStart < 16) {
            SDL_Delay(1);
        }
    }
    const double share = (processorSeconds() - before) / (microsecondsSince(start) / 1e6);
    printResult("pacing steps alone", "% of a core", 100 * share);
    printSamples("period of the pacing steps alone", "ms", periods);
    for (double& period : periods) {
        period = std::abs(period - 16);
    }
    printSamples("their distance from 16 ms", "ms", periods);
}
