// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

// The three looping tracks: 1 for the intro and the menus, 2 and 3 for battles. Without a mixer
// (haveSound false) every operation does nothing, so that no caller has to ask.
namespace Music {

// Loads the three tracks from the data directory; this unit owns them. Returns true when ready or
// when there is no sound; on the first failure reports it and returns false.
bool load();

// Frees the tracks. Runs after the mixer has been closed.
void unload();

// Plays track n (1 to 3) forever; any other n silences the music. Asking for the current track
// changes nothing, so the music continues unbroken from screen to screen.
void play(int n);

// The track last started, 1 to 3, or 0 for none or without sound.
int current();

} // namespace Music
