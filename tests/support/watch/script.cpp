// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "script.h"

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "events.h"
#include "hearing.h"
#include "journal.h"

namespace {

struct Step {
    std::string verb;
    std::string text;

    long number() const {
        return std::atol(text.c_str());
    }
};

std::vector<Step> readSteps() {
    std::vector<Step> steps;
    const char* script = std::getenv("MORVANE_SCRIPT");
    std::istringstream words(script == nullptr ? "" : script);
    for (std::string word; words >> word;) {
        const auto sign = word.find('=');
        steps.push_back(
            {word.substr(0, sign), sign == std::string::npos ? "" : word.substr(sign + 1)});
    }
    return steps;
}

std::vector<Step>& steps() {
    static auto& all = *new std::vector<Step>(readSteps());
    return all;
}

std::size_t place = 0; // of the step to come
long framesWaited = 0; // for that step

// True when the step is done with and makes no event.
bool passes(const Step& step) {
    if (step.verb == "frames") {
        if (framesWaited < step.number()) {
            ++framesWaited;
            return false;
        }
        framesWaited = 0;
    } else if (step.verb == "heard") {
        hear(step.number());
    } else if (step.verb == "mark") {
        annotate(" mark:" + step.text + ":" + std::to_string(framesHeard()));
    } else if (step.verb == "terminate") {
        std::raise(SIGTERM);
    } else {
        std::cerr << "unknown step of the script: " << step.verb << '\n';
        std::abort();
    }
    return true;
}

} // namespace

bool isScripted() {
    return std::getenv("MORVANE_SCRIPT") != nullptr;
}

int nextEvent(SDL_Event* event) {
    while (place < steps().size()) {
        const Step& step = steps()[place];
        if (step.verb == "down" || step.verb == "up") {
            ++place;
            const int key = static_cast<int>(step.number());
            *event = step.verb == "down" ? keyDown(key) : keyUp(key);
            return 1;
        }
        if (step.verb == "quit") {
            ++place;
            *event = otherEvent(SDL_QUIT);
            return 1;
        }
        if (!passes(step)) {
            return 0;
        }
        ++place;
    }
    return 0;
}
