// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

// Counts the flips of the display while it lives, one watch at a time. The test program's own
// SDL_Flip stands before the library's, so the game needs no switch for it. A watched flip does
// not reach the library, which takes milliseconds for it and shows nobody anything.
class FlipWatch {
public:
    // atFlip runs at every flip, while the display is as the player is about to see it.
    explicit FlipWatch(std::function<void()> whatAtFlip = nullptr);
    ~FlipWatch();
    FlipWatch(const FlipWatch&) = delete;
    FlipWatch& operator=(const FlipWatch&) = delete;

    std::function<void()> atFlip;
    int count;
};
