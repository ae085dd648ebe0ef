// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

// Reads what the sound device plays. SDL's disk driver writes into a named pipe and waits until the
// pipe is read, so the music advances only as far as it is read here, however busy the machine is.
// The driver waits outside the mixer's lock, so the game can call the mixer meanwhile.

// Opens the pipe, before the sound device does; does nothing where no pipe is named.
void startHearing();

// Reads n sample frames of 16 bits and two channels, waiting for them.
void hear(long n);

// How many have been read so far.
long framesHeard();

// Closes the pipe, so that the device does not wait for it any more and can be closed.
void stopHearing();
