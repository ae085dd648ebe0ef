// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

// How many blits there have been, with pixels or without.
long countedBlits();

// While an object of this class lives, blits, fills and flips move no pixels. Rectangles are
// clipped and written back as ever, since the rules depend on them. Voyages get a hundred times
// longer for it.
class WithoutDrawing {
public:
    WithoutDrawing();
    ~WithoutDrawing();
    WithoutDrawing(const WithoutDrawing&) = delete;
    WithoutDrawing& operator=(const WithoutDrawing&) = delete;
};
