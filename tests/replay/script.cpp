// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "script.h"

#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "events.h"
#include "lines.h"

namespace {

const std::map<std::string, int> keyNames = {
    {"escape", SDLK_ESCAPE}, {"return", SDLK_RETURN}, {"space", SDLK_SPACE},
    {"tab", SDLK_TAB},       {"delete", SDLK_DELETE}, {"up", SDLK_UP},
    {"down", SDLK_DOWN},     {"left", SDLK_LEFT},     {"right", SDLK_RIGHT},
    {"shift", SDLK_LSHIFT},  {"f1", SDLK_F1},         {"unknown", SDLK_UNKNOWN},
};

const std::map<std::string, int> buttonNames = {
    {"leftbutton", SDL_BUTTON_LEFT},     {"middlebutton", SDL_BUTTON_MIDDLE},
    {"rightbutton", SDL_BUTTON_RIGHT},   {"wheelup", SDL_BUTTON_WHEELUP},
    {"wheeldown", SDL_BUTTON_WHEELDOWN},
};

// Reads the words of one line. A word that is missing or wrong makes it fail for good.
class Words {
public:
    explicit Words(const std::string& line) : stream(line) {}

    std::string word() {
        std::string text;
        failed = !(stream >> text) || failed;
        return text;
    }

    template <typename Number> Number number() {
        Number value = 0;
        failed = !(stream >> value) || failed;
        return value;
    }

    int named(const std::map<std::string, int>& names) {
        const std::string name = word();
        const auto found = names.find(name);
        if (found != names.end()) {
            return found->second;
        }
        failed = failed || name.size() != 1;
        return failed ? 0 : name[0]; // letters and digits are their own key symbols
    }

    bool readWholly() {
        std::string rest;
        return !failed && !(stream >> rest);
    }

    bool failed = false;

private:
    std::istringstream stream;
};

// "show 30", "show 30 to 90" or "show 30 to 90 every 5"
void readShow(Words& words, const std::string& line, Script& script) {
    const int first = words.number<int>();
    int last = first;
    int step = 1;
    if (line.find(" to ") != std::string::npos) {
        words.failed = words.word() != "to" || words.failed;
        last = words.number<int>();
    }
    if (line.find(" every ") != std::string::npos) {
        words.failed = words.word() != "every" || words.failed;
        step = words.number<int>();
    }
    for (int frame = first; frame <= last && step > 0; frame += step) {
        script.shown.insert(frame);
    }
}

bool readHead(const std::string& head, Words& words, const std::string& line, Script& script) {
    if (head == "seed") {
        script.seed = words.number<unsigned>();
    } else if (head == "pictures") {
        script.pictures = words.word();
    } else if (head == "frames") {
        script.frames = words.number<int>();
    } else if (head == "show") {
        readShow(words, line, script);
    } else if (head == "player") {
        script.playerSeed = words.number<std::uint64_t>();
        script.playerStyle = words.word();
        words.failed = words.word() != "from" || words.failed;
        script.playerFrom = words.number<int>();
    } else {
        return false;
    }
    return true;
}

void readKey(const std::string& verb, Words& words, int frame, Script& script) {
    const int key = words.named(keyNames);
    if (verb != "up") {
        script.events[frame].push_back(keyDown(key));
    }
    if (verb == "hold") {
        script.events[frame + words.number<int>()].push_back(keyUp(key));
    } else if (verb != "down") {
        script.events[frame].push_back(keyUp(key));
    }
}

void readButton(const std::string& verb, Words& words, int frame, Script& script) {
    const int button = words.named(buttonNames);
    if (verb != "release") {
        script.events[frame].push_back(mouseDown(button));
    }
    if (verb != "press") {
        script.events[frame].push_back(mouseUp(button));
    }
}

// An event of a frame.
void readAction(int frame, Words& words, Script& script) {
    const std::string verb = words.word();
    if (verb == "down" || verb == "up" || verb == "tap" || verb == "hold") {
        readKey(verb, words, frame, script);
    } else if (verb == "press" || verb == "release" || verb == "click") {
        readButton(verb, words, frame, script);
    } else if (verb == "point") {
        const int x = words.number<int>();
        const int y = words.number<int>();
        script.events[frame].push_back(mouseMotion(x, y));
    } else if (verb == "quit") {
        script.events[frame].push_back(otherEvent(SDL_QUIT));
    } else if (verb == "other") {
        script.events[frame].push_back(otherEvent(words.number<int>()));
    } else if (verb == "set") {
        const std::string field = words.word();
        script.settings[frame].push_back({field, words.number<double>()});
    } else {
        words.failed = true;
    }
}

bool readLine(const std::string& line, Script& script) {
    Words words(line);
    const std::string head = words.word();
    if (head[0] >= '0' && head[0] <= '9') {
        readAction(std::atoi(head.c_str()), words, script);
        return words.readWholly();
    }
    return readHead(head, words, line, script) && words.readWholly();
}

} // namespace

Script readScript(const std::string& file) {
    Script script;
    for (const std::string& line : readLines(file)) {
        if (line.empty() || line[0] == '#') {
            continue;
        }
        if (!readLine(line, script)) {
            std::fprintf(stderr, "%s: cannot read \"%s\"\n", file.c_str(), line.c_str());
            std::exit(1);
        }
    }
    if (script.frames == 0) {
        std::fprintf(stderr, "%s: does not say how many frames it has\n", file.c_str());
        std::exit(1);
    }
    return script;
}
