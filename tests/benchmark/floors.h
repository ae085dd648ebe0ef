// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

// Baselines: the least that the game's work can cost, measured without the game. Each prints lines
// of JSON.

// Decodes every file that the game loads, once, in this process.
void measureDecoding();

// Starts the libraries and keeps surfaces as large as what the game keeps loaded, with the font
// and the music; prints the resident memory.
void measureMemory();

// Waits as the main loop waits, for this many frames of 16 ms (at least two); prints the part of a
// core used and how even the frames were.
void measurePacing(int frames);
