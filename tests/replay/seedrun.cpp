// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "seedrun.h"

#include <cstdlib>
#include <iostream>
#include <memory>
#include <sstream>
#include <utility>

#include "childprocess.h"
#include "drawing.h"
#include "eventnoise.h"
#include "events.h"
#include "gamehandler.h"
#include "gameover.h"
#include "lines.h"
#include "main.h"
#include "player.h"
#include "playership.h"
#include "record.h"
#include "state.h"
#include "surroundings.h"

namespace {

using Style = SeededPlayer::Style;

const int framesAfterDuel = 20;
const int noFrame = -1;

int frameLimit(int seed, Style style) {
    switch (style) {
    case Style::hunterAndDrifter:
    case Style::twoHunters:
        return 2600;
    case Style::rammer:
        return 900;
    case Style::wanderer:
        return 700;
    default:
        return 300 + seed % 7 * 50;
    }
}

// Plays one script and then ends the process, which was forked for this script.
class SeedRun : public Conductor {
public:
    explicit SeedRun(int scriptSeed, int frameToShow)
        : seed(scriptSeed), player(static_cast<std::uint64_t>(scriptSeed)),
          noise(static_cast<std::uint64_t>(scriptSeed)),
          limit(frameLimit(scriptSeed, player.style)), record(framesBetweenSeedNotes),
          shown(frameToShow) {}

    std::vector<SDL_Event> eventsOf(int frame) override {
        return noise.addTo(player.play(frame));
    }

    void frameEnded(int frame) override {
        record.addFrame();
        if (frame == shown) {
            for (const std::string& line : describeState()) {
                report(line + "\n");
            }
            _Exit(0);
        }
        watchDuel(frame);
        if (!running || frame + 1 == limit) {
            report(summary());
            _Exit(0);
        }
    }

private:
    void watchDuel(int frame) {
        if (const auto* battle = dynamic_cast<GameHandler*>(activeProgramMode)) {
            hitPoints[0] = battle->ship1->hp;
            hitPoints[1] = battle->ship2->hp;
        } else if (const auto* gameOver = dynamic_cast<GameOver*>(activeProgramMode)) {
            if (winner == 0) {
                winner = 3 - gameOver->defeatedPlayer;
                hitPoints[gameOver->defeatedPlayer - 1] = 0;
                limit = frame + framesAfterDuel;
            }
        }
    }

    std::string summary() {
        std::ostringstream line;
        line << seed << " " << record.frames << " " << (running ? activeModeName() : "stopped")
             << " " << winner << " " << hitPoints[0] << " " << hitPoints[1] << " "
             << textOf(record.chain.value) << " ";
        for (const std::uint64_t note : record.notes) {
            line << textOf(note).substr(13);
        }
        line << "\n";
        return line.str();
    }

    int seed;
    SeededPlayer player;
    EventNoise noise;
    int limit;
    Record record;
    int shown;
    int winner = 0;
    int hitPoints[2] = {50, 50};
};

// Starts the game once for many scripts. In its first frame, the process is forked for each script,
// and the child continues as if it had been started for this script alone.
class SeedStarter : public Conductor {
public:
    SeedStarter(std::vector<int> scriptSeeds, int frameToShow)
        : seeds(std::move(scriptSeeds)), shown(frameToShow) {}

    std::vector<SDL_Event> eventsOf(int frame) override {
        for (const int seed : seeds) {
            const Child child = makeChild(replayPatience);
            if (child.process == 0) {
                run = std::make_unique<SeedRun>(seed, shown);
                surroundings.conductor = run.get();
                // The game has been seeded but has used no random number yet, so it can be seeded
                // again.
                std::srand(static_cast<unsigned>(seed));
                return run->eventsOf(frame);
            }
            const Outcome script = waitFor(child);
            report(script.out);
            std::cerr << script.err;
            if (script.status != 0) {
                report(std::to_string(seed) + " broke off with status " +
                       std::to_string(script.status) + "\n");
            }
        }
        return {otherEvent(SDL_QUIT)};
    }

    void frameEnded(int /*frame*/) override {}

private:
    std::vector<int> seeds;
    int shown;
    std::unique_ptr<SeedRun> run; // in the copy
};

std::vector<std::string> run(const std::vector<int>& seeds, const char* pictures, bool drawn,
                             int shown) {
    const Outcome all = runReplay([&] {
        SeedStarter starter(seeds, shown);
        surroundings.conductor = &starter;
        drawing.movesPixels = drawn;
        surroundings.keepsSurfaces = drawn;
        return runGame(pictures);
    });
    std::vector<std::string> lines = splitLines(all.out);
    if (all.status != 0) {
        lines.push_back("The game itself ended with status " + std::to_string(all.status));
    }
    return lines;
}

} // namespace

std::vector<std::string> runSeeds(const std::vector<int>& seeds, const char* pictures, bool drawn) {
    return run(seeds, pictures, drawn, noFrame);
}

std::vector<std::string> stateInSeed(int seed, const char* pictures, int frame) {
    return run({seed}, pictures, false, frame);
}
