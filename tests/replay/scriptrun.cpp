// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "scriptrun.h"

#include <cstdio>
#include <cstdlib>
#include <memory>

#include "drawing.h"
#include "events.h"
#include "fixedclock.h"
#include "lines.h"
#include "main.h"
#include "player.h"
#include "record.h"
#include "setting.h"
#include "state.h"
#include "surroundings.h"

namespace {

const int framesBetweenNotes = 50;

std::unique_ptr<SeededPlayer> makePlayer(const std::string& style, std::uint64_t seed) {
    using Style = SeededPlayer::Style;
    const std::map<std::string, Style> styles = {{"masher", Style::masher},
                                                 {"hunter", Style::hunterAndDrifter},
                                                 {"hunters", Style::twoHunters},
                                                 {"rammer", Style::rammer},
                                                 {"wanderer", Style::wanderer}};
    if (style == "any") {
        return std::make_unique<SeededPlayer>(seed);
    }
    const auto found = styles.find(style);
    if (found == styles.end()) {
        std::fprintf(stderr, "There is no player called %s.\n", style.c_str());
        std::exit(1);
    }
    return std::make_unique<SeededPlayer>(seed, found->second);
}

class ScriptRun : public Conductor {
public:
    ScriptRun(const Script& theScript, const Look& theLook)
        : script(theScript), look(theLook), record(framesBetweenNotes) {
        if (script.playerFrom >= 0) {
            player = makePlayer(script.playerStyle, script.playerSeed);
        }
    }

    std::vector<SDL_Event> eventsOf(int frame) override {
        if (frame >= script.frames) {
            return {otherEvent(SDL_QUIT)};
        }
        const auto settings = script.settings.find(frame);
        if (settings != script.settings.end()) {
            for (const Setting& setting : settings->second) {
                applySetting(setting);
            }
        }
        std::vector<SDL_Event> events;
        if (player != nullptr && frame >= script.playerFrom) {
            events = player->play(frame);
        }
        const auto own = script.events.find(frame);
        if (own != script.events.end()) {
            events.insert(events.end(), own->second.begin(), own->second.end());
        }
        return events;
    }

    void frameEnded(int frame) override {
        if (frame >= script.frames) {
            return; // the window was closed from outside; the script is over
        }
        const std::size_t notes = record.notes.size();
        record.addFrame();
        if (record.notes.size() > notes) {
            note(frame, "states", record.chain.value);
        }
        if (drawing.movesPixels && script.shown.count(frame) != 0) {
            note(frame, "display", hashOfColours(*screen));
        }
        if (frame == look.frame && !look.pictureFile.empty()) {
            SDL_SaveBMP(screen, look.pictureFile.c_str());
        }
        if (frame == look.frame || !running || frame + 1 == script.frames) {
            last = describeState();
            if (frame == look.frame) {
                stopProgram();
            }
        }
    }

    void reportEnd() {
        if (look.frame < 0) {
            note(record.frames - 1, "states", record.chain.value);
            report("end frames " + std::to_string(record.frames) + "\n");
        }
        for (const std::string& line : last) {
            report("end " + line + "\n");
        }
    }

private:
    void note(int frame, const char* what, std::uint64_t hash) const {
        if (look.frame < 0) {
            report("frame " + std::to_string(frame) + " " + what + " " + textOf(hash) + "\n");
        }
    }

    const Script& script;
    Look look;
    Record record;
    std::unique_ptr<SeededPlayer> player;
    std::vector<std::string> last;
};

} // namespace

Outcome runScript(const Script& script, bool drawn, const Look& look) {
    return runReplay([&] {
        ScriptRun run(script, look);
        surroundings.conductor = &run;
        stopClock(script.seed);
        drawing.movesPixels = drawn;
        surroundings.keepsSurfaces = drawn;
        const int result = runGame(script.pictures.c_str());
        run.reportEnd();
        return result;
    });
}
