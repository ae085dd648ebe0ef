// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#include "recordingmode.h"

#include "librarycalls.h"

RecordingMode::RecordingMode(const std::string& modeName) : name(modeName) {}

RecordingMode::~RecordingMode() {
    note(name + ": deleted");
}

void RecordingMode::event(SDL_Event* e) {
    note(name + ": event " + std::to_string(static_cast<int>(e->type)));
    if (onEvent) {
        onEvent(*e);
    }
}

void RecordingMode::activate() {
    note(name + ": activate");
    if (onActivate) {
        onActivate();
    }
}

void RecordingMode::update() {
    note(name + ": update");
    if (onUpdate) {
        onUpdate();
    }
}

void RecordingMode::cleanUp() {
    note(name + ": cleanUp");
}
