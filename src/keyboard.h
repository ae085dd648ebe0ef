// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

#include <SDL.h>

// The state of every key, fed by the main loop from key events. A key released during a frame still
// counts as pressed until that frame ends, so that a tap shorter than a frame is never lost.
// Keys are SDL 1.2 key symbols, 0 to SDLK_LAST - 1; nothing else may be passed.
namespace Keyboard {

// Records the key of an SDL_KEYDOWN event. Deliberate: a key that was released and pressed again
// within one frame stays "released", so a double tap within 16 ms is one tap. The key counts as up
// from the next frame until it is pressed again.
void keyPress(SDL_Event* event);

// Marks the key of an SDL_KEYUP event as released during this frame, whatever it was before.
void keyRelease(SDL_Event* event);

// Ends the frame: keys released during it become fully up.
void releaseKeys();

// True while the key is held or was released during this frame.
bool isPressed(int sdlk);

// The description of the latest key pressed; all zero before the first. Reading consumes nothing.
SDL_keysym readkey();

} // namespace Keyboard
