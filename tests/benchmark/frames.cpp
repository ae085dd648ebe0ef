// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "frames.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "allocations.h"
#include "battles.h"
#include "introscreen.h"
#include "librarycalls.h"
#include "main.h"
#include "mainmenu.h"
#include "playership.h"
#include "samples.h"

namespace {

const int warmUpFrames = 200;
const int measuredFrames = 1000;
const int fadeFrames = 170; // of each of the intro's three fades, but for its first frames
const int fades = 3;
const int fadeLength = 180;
const int constructions = 60;

// Copies as many bytes as the bare copies, by plain memory copies.
class MemoryCopies {
public:
    MemoryCopies() : source(bytes, 1), target(bytes, 2) {}

    void run() {
        std::memcpy(target.data(), source.data(), bytes);
        std::memcpy(source.data(), target.data(), 2 * viewportBytes);
    }

private:
    static const std::size_t bytes = 1300 * 1300 * 4;
    static const std::size_t viewportBytes = 390 * 490 * 4;
    std::vector<char> source;
    std::vector<char> target;
};

double timed(const std::function<void()>& work) {
    const Clock::time_point start = Clock::now();
    work();
    return microsecondsSince(start);
}

struct Timings {
    std::vector<double> frame;
    std::vector<double> blits; // the same drawing calls without the game
};

// One frame with the calls recorded, then the frame and its bare calls in turn.
void measureFrame(const std::function<void()>& frame, Timings& timings) {
    forgetCalls();
    recordCalls(true);
    frame();
    recordCalls(false);
    timings.frame.push_back(timed(frame) - lastFlip());
    timings.blits.push_back(timed(repeatCalls));
}

std::vector<double> battleFrames(GameHandler& battle, int frames) {
    std::vector<double> times;
    times.reserve(static_cast<std::size_t>(frames));
    for (int i = 0; i < frames; ++i) {
        times.push_back(timed([&] { battle.update(); }) - lastFlip());
    }
    return times;
}

long callsOfGame(const char* name, const std::function<void()>& frame, int frames) {
    const Allocations before = countedAllocations();
    const long conversionsBefore = conversions();
    countAllocations(true);
    for (int i = 0; i < frames; ++i) {
        frame();
    }
    countAllocations(false);
    const Allocations after = countedAllocations();
    const long byGame = after.byGame - before.byGame;
    const long converted = conversions() - conversionsBefore;
    const std::string prefix = name;
    printResult(prefix + " allocations by the game", "a frame",
                static_cast<double>(byGame) / frames);
    printResult(prefix + " allocations by the libraries", "a frame",
                static_cast<double>(after.byLibraries - before.byLibraries) / frames);
    printResult(prefix + " format conversions", "a frame", static_cast<double>(converted) / frames);
    return byGame + converted;
}

} // namespace

void measureBattleFrames() {
    srandom(1);
    GameHandler battle;
    battle.activate();
    holdBattleKeys();
    battleFrames(battle, warmUpFrames);
    BareCopies bareCopies(battle);
    MemoryCopies memory;
    Timings timings;
    std::vector<double> copies;
    std::vector<double> memoryCopies;
    std::vector<double> flips;
    for (int i = 0; i < measuredFrames; ++i) {
        measureFrame([&] { battle.update(); }, timings);
        flips.push_back(lastFlip());
        copies.push_back(timed([&] { bareCopies.run(); }));
        memoryCopies.push_back(timed([&] { memory.run(); }));
    }
    printSamples("battle frame", "us", timings.frame);
    printSamples("battle frame's own blits", "us", timings.blits);
    printSamples("battle bare copies", "us", copies);
    printSamples("battle plain memory copies", "us", memoryCopies);
    printSamples("flip", "us", flips);
}

void measureMenuFrames() {
    MainMenu menu;
    menu.activate();
    Timings timings;
    for (int i = 0; i < measuredFrames; ++i) {
        if (i % 40 == 0) {
            menu.down();
        }
        measureFrame([&] { menu.update(); }, timings);
    }
    printSamples("menu frame", "us", timings.frame);
    printSamples("menu frame's own blits", "us", timings.blits);
}

void measureIntroFrames() {
    IntroScreen intro;
    Timings timings;
    for (int fade = 0; fade < fades; ++fade) {
        for (int i = 0; i < fadeFrames; ++i) {
            intro.frameCounter = fade * fadeLength + i;
            // Its first frame composes the picture; the others only fade it in.
            if (i == 0) {
                intro.update();
                continue;
            }
            measureFrame(
                [&] {
                    intro.frameCounter = fade * fadeLength + i;
                    intro.update();
                },
                timings);
        }
    }
    printSamples("intro frame", "us", timings.frame);
    printSamples("intro frame's own blits", "us", timings.blits);
}

void measureConstruction() {
    srandom(1);
    std::vector<double> built;
    std::vector<double> surfaces;
    SDL_Surface* tile = imagePool["voda.png"];
    for (int i = 0; i < constructions; ++i) {
        built.push_back(timed([] { const GameHandler battle; }));
        surfaces.push_back(timed([tile] {
            SDL_Surface* world = createSurface(1300, 1300);
            SDL_Surface* sea = createSurface(1300, 1300);
            SDL_FillRect(sea, nullptr, SDL_MapRGB(sea->format, 0, 0, 255));
            for (int x = 0; x < sea->w; x += tile->w) {
                for (int y = 0; y < sea->h; y += tile->h) {
                    drawPicture(tile, sea, x, y);
                }
            }
            SDL_FreeSurface(world);
            SDL_FreeSurface(sea);
        }));
    }
    printSamples("construction of a battle", "us", built);
    printSamples("its surfaces, created and filled", "us", surfaces);
}

void measureGrowth() {
    holdBattleKeys();
    for (int times : {1, 2, 10, 100}) {
        srandom(1);
        GameHandler battle;
        multiplyBarriers(battle, times);
        battle.activate();
        printSamples("barriers x " + std::to_string(times), "us",
                     battleFrames(battle, measuredFrames / 4));
    }
    for (int size : {1300, 1838, 2600, 3677, 5200}) {
        srandom(1);
        GameHandler battle;
        enlargeWorld(battle, size);
        battle.activate();
        printSamples("world of " + std::to_string(size) + " px", "us",
                     battleFrames(battle, measuredFrames / 4));
    }
}

int countFrameWork() {
    long work = 0;
    {
        srandom(1);
        GameHandler battle;
        battle.activate();
        holdBattleKeys();
        // Not to the end of the duel, which makes the next screen.
        const auto frame = [&battle] {
            battle.ship1->hp = battle.ship1->maxhp;
            battle.ship2->hp = battle.ship2->maxhp;
            battle.update();
        };
        work += callsOfGame("battle", frame, measuredFrames);
    }
    {
        MainMenu menu;
        menu.activate();
        menu.down();
        menu.update();
        const auto frame = [&menu] { menu.update(); };
        work += callsOfGame("menu", frame, measuredFrames);
    }
    {
        IntroScreen intro;
        intro.update();
        const auto frame = [&intro] { intro.update(); };
        work += callsOfGame("intro", frame, fadeFrames);
    }
    return work == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

void runBattleFrames(int frames) {
    srandom(1);
    GameHandler battle;
    battle.activate();
    holdBattleKeys();
    battleFrames(battle, frames);
}
