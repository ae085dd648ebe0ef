// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <utility>

// How the game's blits, fills and flips are carried out; --wrap redirects them to drawing.cpp.
struct Drawing {
    // False: blits and fills only clip their rectangles and write them back, because the rules
    // depend on that. A frame then takes a hundredth of the time.
    bool movesPixels = true;
    bool showsPixels = true;      // false: a flip is only counted
    std::function<void()> atFlip; // runs while the display is as the player is about to see it

    // Counted since the start.
    long blits = 0;
    int flips = 0;
};

extern Drawing drawing;

// While an object of this class lives, no pixels are moved or shown.
class WithoutDrawing {
public:
    WithoutDrawing() {
        drawing.movesPixels = false;
        drawing.showsPixels = false;
    }
    ~WithoutDrawing() {
        drawing.movesPixels = true;
        drawing.showsPixels = true;
    }
    WithoutDrawing(const WithoutDrawing&) = delete;
    WithoutDrawing& operator=(const WithoutDrawing&) = delete;
};

// Counts the flips while it lives, one watch at a time. A watched flip does not reach the library,
// which takes milliseconds for it and shows nobody anything.
class FlipWatch {
public:
    explicit FlipWatch(std::function<void()> whatAtFlip = nullptr) {
        drawing.atFlip = [this, atFlip = std::move(whatAtFlip)] {
            ++count;
            if (atFlip) {
                atFlip();
            }
        };
        drawing.showsPixels = false;
    }
    ~FlipWatch() {
        drawing.atFlip = nullptr;
        drawing.showsPixels = true;
    }
    FlipWatch(const FlipWatch&) = delete;
    FlipWatch& operator=(const FlipWatch&) = delete;

    mutable int count = 0;
};
