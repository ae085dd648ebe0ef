# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Figures: one bar of accompaniment or drums, each sign an equal share of the bar.

b bass, o its octave, f its fifth (or the chord tone nearest to it), 1 2 3 the upper parts
from low to high, [..] together, ' and , an octave up and down, > louder, ? softer,
- holds, . rests.  Parts with strokes use the letters of their stroke table instead.
"""
import re

from .notation import ScoreError

SIGN = re.compile(r"\[[^\]]*\][>?]?|[A-Za-z0-9][',]*[>?]?|[.-]")
TONE = re.compile(r"([A-Za-z0-9])([',]*)")
ACCENT = 14.0


def split_figure(text):
    """Signs of one bar."""
    if SIGN.sub('', text).strip():
        raise ScoreError(f'cannot read {SIGN.sub("", text).strip()!r} in figure {text!r}')
    return SIGN.findall(text)


def events(text, quavers):
    """(start, length, tones, loudness offset) of a bar's signs, in quavers."""
    signs, result = split_figure(text), []
    share = quavers / len(signs)
    for index, sign in enumerate(signs):
        if sign == '-' and result:
            result[-1][1] += share
        elif sign not in '.-':
            push = ACCENT * (sign.endswith('>') - sign.endswith('?'))
            result.append([index * share, share, TONE.findall(sign), push])
    return result


def _fifth(bass, classes):
    return next(p for step in (7, 8, 6, 5, 9, 4) for p in [bass + step] if p % 12 in classes)


def tone_pitch(tone, setting, classes):
    """MIDI pitch of a figure's tone over a four-part setting."""
    letter, octaves = tone
    table = {'b': setting[0], 'o': setting[0] + 12, '1': setting[1], '2': setting[2],
             '3': setting[3]}
    if letter == 'f':
        pitch = _fifth(setting[0], classes)
    elif letter in table:
        pitch = table[letter]
    else:
        raise ScoreError(f'no tone {letter!r} in a figure')
    return pitch + 12 * octaves.count("'") - 12 * octaves.count(',')


def fold(pitch, low, high):
    """The same pitch class inside a range, as near as octaves allow."""
    while pitch < low:
        pitch += 12
    while pitch > high:
        pitch -= 12
    return pitch
