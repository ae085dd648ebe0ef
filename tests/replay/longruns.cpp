// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "longruns.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <malloc.h>
#include <unistd.h>

#include "drawing.h"
#include "eventnoise.h"
#include "events.h"
#include "fixedclock.h"
#include "gamehandler.h"
#include "lines.h"
#include "main.h"
#include "player.h"
#include "record.h"
#include "surroundings.h"

namespace {

const int framesPerHour = 60 * 60 * 1000 / 16;
const int drawnEvery = 200;         // frames of a watched run
const long allowedGrowth = 1 << 20; // bytes allocated after the first hour
// The allocator may keep the memory of a duel's two large surfaces for the next duel.
const long allowedResident = allowedGrowth + 2 * 1300 * 1300 * 4;
const int never = 1 << 30;

// What a leak would make grow.
struct Size {
    long resident;  // bytes
    long allocated; // bytes
    long files;
};

Size sizeNow() {
    long total = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    long files = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        files += entry.path().empty() ? 0 : 1;
    }
    const struct mallinfo2 heap = mallinfo2();
    return {resident * sysconf(_SC_PAGESIZE), static_cast<long>(heap.uordblks + heap.hblkhd),
            files};
}

class Marathon : public Conductor {
public:
    explicit Marathon(const LongRun& theRun)
        : longRun(theRun), player(theRun.seed), noise(theRun.seed), record(never) {
        player.staying = true;
    }

    std::vector<SDL_Event> eventsOf(int frame) override {
        if (longRun.watched) {
            // The sea is built in a frame of the menu. Drawing these frames makes its memory
            // resident in every duel, so that measurements can be compared.
            drawing.movesPixels = !atSea || frame % drawnEvery == 0;
        }
        return frame < longRun.frames ? noise.addTo(player.play(frame))
                                      : std::vector<SDL_Event>{otherEvent(SDL_QUIT)};
    }

    void frameEnded(int frame) override {
        record.addFrame();
        if (dynamic_cast<GameHandler*>(activeProgramMode) == nullptr) {
            atSea = false;
        } else if (!atSea) {
            atSea = true;
            ++duels;
        }
        measure(frame);
    }

    // A line for each count.
    std::string summary() const {
        std::ostringstream lines;
        lines << "frames " << record.frames << "\nduels " << duels << "\nmeasures " << measures
              << "\nfirst_resident_kb " << first.resident / 1024 << "\nlast_resident_kb "
              << last.resident / 1024 << "\nlargest_resident_kb " << largest.resident / 1024
              << "\nfirst_allocated_kb " << first.allocated / 1024 << "\nlargest_allocated_kb "
              << largest.allocated / 1024 << "\nfirst_files " << first.files << "\nlargest_files "
              << largest.files << "\n";
        return lines.str();
    }

    bool grew() const {
        return largest.files > first.files || largest.resident > first.resident + allowedResident ||
               largest.allocated > first.allocated + allowedGrowth;
    }

private:
    // Always after a drawn frame of a duel, so that every measurement includes a duel's memory.
    void measure(int frame) {
        if (!longRun.watched || !atSea || frame % drawnEvery != 0 || frame < framesPerHour ||
            frame < nextMeasure) {
            return;
        }
        nextMeasure = frame + framesPerHour / 4;
        const Size size = sizeNow();
        if (measures == 0) {
            first = size;
        }
        ++measures;
        last = size;
        largest.resident = std::max(largest.resident, size.resident);
        largest.allocated = std::max(largest.allocated, size.allocated);
        largest.files = std::max(largest.files, size.files);
    }

    LongRun longRun;
    SeededPlayer player;
    EventNoise noise;
    Record record;
    bool atSea = false;
    long duels = 0;
    int nextMeasure = 0;
    int measures = 0;
    Size first = {0, 0, 0}; // after the first hour
    Size last = {0, 0, 0};
    Size largest = {0, 0, 0};
};

} // namespace

bool surviveLongRun(const LongRun& longRun, Counts& counts) {
    const Outcome result = runReplay([&] {
        Marathon marathon(longRun);
        surroundings.conductor = &marathon;
        stopClock(longRun.seed);
        if (longRun.watched) {
            alarm(0); // a night is long
        }
        const int status = runGame("standard");
        report(marathon.summary());
        return longRun.watched && marathon.grew() ? 1 : status;
    });
    for (const std::string& line : splitLines(result.out)) {
        char name[64] = "";
        long value = 0;
        if (std::sscanf(line.c_str(), "%63s %ld", name, &value) == 2 &&
            (longRun.watched || line.find("frames") == 0 || line.find("duels") == 0)) {
            counts[std::string(longRun.watched ? "night_" : "monkey_") + name] = value;
        }
    }
    const long frames = counts[longRun.watched ? "night_frames" : "monkey_frames"];
    std::printf("The run ended with status %d.\n", result.status);
    const bool measured = !longRun.watched || counts["night_measures"] > 1;
    return result.status == 0 && measured && frames == longRun.frames + 1;
}
