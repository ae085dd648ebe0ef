// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

#pragma once

// Listens to the sound device. SDL's disk driver is told to write into a named pipe, and as it can
// only go on when the pipe has been read, the music waits for whoever listens: how far it gets
// depends on no clock, however busy the machine is. It waits outside the mixer's lock, so that the
// game can speak to the mixer meanwhile.

// Opens the pipe, before the sound device does; does nothing where no pipe is named.
void startHearing();

// Reads n sample frames of 16 bits and two channels, waiting for them.
void hear(long n);

// How many have been read so far.
long framesHeard();

// Closes the pipe, so that the device does not wait for it any more and can be closed.
void stopHearing();
