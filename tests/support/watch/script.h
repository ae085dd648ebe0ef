// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>

// Plays the game by the steps in MORVANE_SCRIPT, words with spaces between them:
//   frames=<n>       lets n frames pass
//   down=<key>       presses a key, by its SDL symbol's number
//   up=<key>         releases it
//   heard=<n>        waits until n more sample frames have come out of the sound device
//   mark=<name>      writes the name and the sample frames heard so far into the journal
//   terminate        sends the program SIGTERM
//   quit             sends a quit event
// Steps that take no time happen in the same frame. After the last step, nothing more happens.

bool isScripted();

// Gives the game its next event of this frame, as SDL_PollEvent does; 0 when there is none.
int nextEvent(SDL_Event* event);
