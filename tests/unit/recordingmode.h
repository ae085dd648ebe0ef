// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>

#include "programmode.h"

// A mode that notes its name and everything that happens to it among the LibraryCalls:
// "a: event 12" with the event's type, "a: activate", "a: update", "a: cleanUp", "a: deleted".
class RecordingMode : public ProgramMode {
public:
    explicit RecordingMode(const std::string& name);
    ~RecordingMode() override;

    void event(SDL_Event* e) override;
    void activate() override;
    void update() override;
    void cleanUp() override;

    std::string name;
    // What the mode does besides noting; any of them may be empty.
    std::function<void(const SDL_Event&)> onEvent;
    std::function<void()> onActivate;
    std::function<void()> onUpdate;
};
