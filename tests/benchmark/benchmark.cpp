// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// Measures what a frame of a duel costs beside the copies that no duel can do without: the empty
// sea onto the world and two viewports onto the display. Both are taken in turn in one run, so
// that the ratio holds on a busy machine. The flip at the end of a frame is the library's own work
// and is shown apart. Also the time and memory up to the first frame.
// Runs on the dummy drivers from a directory that holds data/.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

#include "gamehandler.h"
#include "keyboard.h"
#include "main.h"

int morvaneMain(int argc, char** argv);

// The linker leads every flip of the game here.
extern "C" int __real_SDL_Flip(SDL_Surface* surface);
extern "C" int __wrap_SDL_Flip(SDL_Surface* surface);

namespace {

using Clock = std::chrono::steady_clock;

const int warmUpFrames = 200;
const int measuredFrames = 3000;
const int starts = 9;
const char* const startArgument = "first-frame";

bool reportFirstFlip = false;
double lastFlip = 0; // microseconds

double microsecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

double quantile(std::vector<double> values, double part) {
    std::sort(values.begin(), values.end());
    return values[static_cast<std::size_t>(part * static_cast<double>(values.size() - 1))];
}

double residentMegabytes() {
    long total = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

double sinceBoot() {
    return std::chrono::duration<double, std::milli>(Clock::now().time_since_epoch()).count();
}

void prepareBattle() {
    if (SDL_Init(SDL_INIT_VIDEO) != 0) {
        error("$Could not initialize SDL", 4);
    }
    screen = SDL_SetVideoMode(800, 600, 32, SDL_FULLSCREEN);
    programDataPath = getDataPath();
    bool loaded = screen != nullptr;
    for (const char* name : {"bar1.png", "bar2.png", "kruh.png", "voda.png"}) {
        loaded = loaded && loadImage(name, false) != nullptr;
    }
    for (const char* name :
         {"lod1.png", "cball.png", "prekazka1.png", "prekazka2.png", "prekazka3.png"}) {
        loaded = loaded && loadImage(name, true) != nullptr;
    }
    if (!loaded) {
        std::fputs("The benchmark needs a display driver and the game's data.\n", stderr);
        std::exit(1);
    }
}

void hold(SDLKey key) {
    SDL_Event event = {};
    event.type = SDL_KEYDOWN;
    event.key.keysym.sym = key;
    Keyboard::keyPress(&event);
}

void bareCopies(GameHandler& battle) {
    SDL_Rect place1 = {5, 5, 0, 0};
    SDL_Rect place2 = {405, 5, 0, 0};
    SDL_BlitSurface(battle.background, nullptr, battle.world, nullptr);
    SDL_BlitSurface(battle.world, &battle.viewport1, screen, &place1);
    SDL_BlitSurface(battle.world, &battle.viewport2, screen, &place2);
}

void printRow(const char* name, const std::vector<double>& microseconds) {
    std::printf("%-28s %7.0f us %7.0f us\n", name, quantile(microseconds, 0.5),
                quantile(microseconds, 0.99));
}

void measureBattle() {
    prepareBattle();
    srandom(1);
    GameHandler battle;
    battle.activate();
    // Both ships circle at full speed and fire as often as they can.
    for (SDLKey key : {SDLK_w, SDLK_a, SDLK_TAB, SDLK_UP, SDLK_LEFT, SDLK_RETURN}) {
        hold(key);
    }
    std::vector<double> frames;
    std::vector<double> copies;
    std::vector<double> flips;
    for (int i = 0; i < warmUpFrames + measuredFrames; ++i) {
        const Clock::time_point frameStart = Clock::now();
        battle.update();
        const double frame = microsecondsSince(frameStart) - lastFlip;
        const Clock::time_point copyStart = Clock::now();
        bareCopies(battle);
        const double copy = microsecondsSince(copyStart);
        if (i >= warmUpFrames) {
            frames.push_back(frame);
            copies.push_back(copy);
            flips.push_back(lastFlip);
        }
    }
    std::printf("%-28s %10s %10s\n", "", "median", "99 %");
    printRow("battle frame before the flip", frames);
    printRow("bare copies", copies);
    printRow("flip", flips);
    std::printf("%-28s %10.2f %10.2f\n", "frame / copies",
                quantile(frames, 0.5) / quantile(copies, 0.5),
                quantile(frames, 0.99) / quantile(copies, 0.99));
}

// Starts this program anew for every measurement, so that loading the libraries counts.
void measureStart() {
    std::vector<double> times;
    std::vector<double> memory;
    for (int i = 0; i < starts; ++i) {
        const double start = sinceBoot();
        FILE* child = popen(
            ("exec /proc/" + std::to_string(getpid()) + "/exe " + startArgument).c_str(), "r");
        double firstFlip = 0;
        double megabytes = 0;
        const bool read = std::fscanf(child, "%lf %lf", &firstFlip, &megabytes) == 2;
        if (pclose(child) != 0 || !read) {
            std::fputs("The game did not reach its first frame.\n", stderr);
            std::exit(1);
        }
        times.push_back(firstFlip - start);
        memory.push_back(megabytes);
    }
    std::printf("%-28s %7.0f ms\n", "start to first frame", quantile(times, 0.5));
    std::printf("%-28s %7.1f MB\n", "resident memory", quantile(memory, 0.5));
}

} // namespace

extern "C" int __wrap_SDL_Flip(SDL_Surface* surface) {
    const Clock::time_point start = Clock::now();
    const int result = __real_SDL_Flip(surface);
    lastFlip = microsecondsSince(start);
    if (reportFirstFlip) {
        reportFirstFlip = false;
        std::printf("%f %f\n", sinceBoot(), residentMegabytes());
        stopProgram();
    }
    return result;
}

int main(int argc, char** argv) {
    if (argc > 1 && std::strcmp(argv[1], startArgument) == 0) {
        reportFirstFlip = true;
        return morvaneMain(argc, argv);
    }
    const SDL_version* version = SDL_Linked_Version();
    std::printf("SDL %d.%d.%d\n", version->major, version->minor, version->patch);
    measureBattle();
    measureStart();
    return 0;
}
