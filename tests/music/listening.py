# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Finds which tracks were played in a mix, from where in each, and for how long."""

from dataclasses import dataclass

import numpy

RATE = 22050        # at which the game opens the mixer
HINT = 4096         # samples by which a track is recognised
LIKENESS = .98      # correlation of those with the mix
AS_GOOD = .001      # a difference in correlation that does not count
BLOCK = 512         # samples that either belong to the track or do not
UNHEARD = -50       # dB of the track, by which a block may differ
SILENT = 4 / 32768  # the mixer's silence, with what a resampler may add to it


@dataclass(frozen=True)
class Stretch:
    """A track heard without a break, in samples from the beginning of the mix."""
    track: int
    begin: int
    end: int
    start: int  # where in the track it begins


def read_mix(file):
    """The left channel. The tracks are the same on both."""
    samples = numpy.fromfile(file, "<i2")
    return samples[:len(samples) // 2 * 2:2] / 32768


def likeness(mix, hint):
    """The correlation of a hint with the mix at each place, from -1 to 1."""
    size = 1 << (len(mix) + len(hint) - 1).bit_length()
    spectrum = numpy.fft.rfft(mix, size) * numpy.conj(numpy.fft.rfft(hint, size))
    products = numpy.fft.irfft(spectrum, size)[:len(mix) - len(hint) + 1]
    power = numpy.concatenate([[0], numpy.cumsum(mix ** 2)])
    windows = power[len(hint):] - power[:-len(hint)]
    return products / numpy.sqrt(numpy.maximum(windows, 1e-9) * (hint ** 2).sum())


def recognised(sound, tracks):
    """The track that a moment of sound is from and its place there, or None."""
    found = [(alike.max(), number, alike) for number, alike in
             ((number, likeness(track, sound)) for number, track in tracks.items())]
    best, number, alike = max(found, key=lambda entry: entry[0])
    if best < LIKENESS:
        return None
    # A track is repeated; take the first of the places that are as good as the best.
    first = int((alike > best - AS_GOOD).argmax())
    return number, first + int(alike[first:first + BLOCK].argmax())


def matching_blocks(sound, track):
    """The number of successive blocks that are the same as in the track."""
    count = min(len(sound), len(track)) // BLOCK
    heard = sound[:count * BLOCK].reshape(count, BLOCK)
    expected = track[:count * BLOCK].reshape(count, BLOCK)
    error = ((heard - expected) ** 2).mean(axis=1)
    differs = error > (track ** 2).mean() * 10 ** (UNHEARD / 10)
    return int(differs.argmax()) if differs.any() else count


def stretches(mix, tracks):
    """Every stretch of the mix that is a track, in order.

    The tracks are longer than any stretch: what follows a track's end is its next round.
    """
    found, place = [], 0
    while place + HINT <= len(mix):
        place += silence_at(mix[place:])
        moment = mix[place:place + HINT]
        known = recognised(moment, tracks) if len(moment) == HINT else None
        blocks = matching_blocks(mix[place:], tracks[known[0]][known[1]:]) if known else 0
        if blocks:
            found.append(Stretch(known[0], place, place + blocks * BLOCK, known[1]))
        place += max(blocks, 1) * BLOCK
    return found


def silence_at(sound):
    """The number of silent samples at the beginning."""
    loud = numpy.abs(sound) > SILENT
    return int(loud.argmax()) if loud.any() else len(sound)


def is_silent(sound):
    return bool((numpy.abs(sound) <= SILENT).all())
