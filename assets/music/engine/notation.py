# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Note strings: letters as in abc, lengths in quavers, bars between strokes.

C is middle C (MIDI 60), c the octave above, C, the octave below.  ^ _ = are sharp, flat
and natural and hold to the end of the bar.  A trailing - ties, . shortens, > accents; {d}c is
a c with a grace note before it; (abc) is a slur.
"""
import re
from dataclasses import dataclass

STEPS = {'C': 0, 'D': 2, 'E': 4, 'F': 5, 'G': 7, 'A': 9, 'B': 11}
NAMES = 'C C# D Eb E F F# G Ab A Bb B'.split()
PITCH = r"[\^_=]?[A-Ga-g][,']*"
TOKEN = re.compile(rf"(\(?)(?:\{{({PITCH})\}})?(\[(?:{PITCH})+\]|{PITCH}|z)"
                   r"(\d*)(/?\d*)([-.>]*)(\)?)")
GRACE = 0.3  # quavers that a grace note takes from the note it belongs to
ACCIDENTALS = {'^': 1, '_': -1, '=': 0}


class ScoreError(ValueError):
    """A score that does not add up; the message says where."""


@dataclass
class Note:
    """Start and length in quavers, MIDI pitch, loudness offset in velocity steps.

    joins: the next note is slurred to it; joined: it is slurred to the one before.
    """
    start: float
    length: float
    pitch: int
    push: float = 0.0
    gate: float = 0.0
    joins: bool = False
    joined: bool = False


def pitch_class(name):
    """Pitch class of a note name such as Bb or F#."""
    return (STEPS[name[0]] + name.count('#') - name[1:].count('b')) % 12


def signature(sharps):
    """Accidentals of a key signature; negative numbers are flats."""
    letters = 'FCGDAEB' if sharps > 0 else 'BEADGCF'
    return {letter: (1 if sharps > 0 else -1) for letter in letters[:abs(sharps)]}


def _pitch(text, key, bar):
    sign, letter, octave = re.fullmatch(r"([\^_=]?)([A-Ga-g])([,']*)", text).groups()
    if sign:
        bar[letter + octave] = ACCIDENTALS[sign]
    base = 60 + STEPS[letter.upper()] + (12 if letter.islower() else 0)
    base += 12 * octave.count("'") - 12 * octave.count(',')
    return base + bar.get(letter + octave, key.get(letter.upper(), 0))


def _length(number, fraction):
    length = float(number or 1)
    return length / float(fraction[1:] or 2) if fraction else length


def split_bars(text):
    """Bars of a text, without the empty ones outside the first and last stroke."""
    return [bar.strip() for bar in text.split('|') if bar.strip()]


def parse_notes(text, sharps, quavers):
    """Notes of a string and the number of its bars; every bar must be full."""
    key, notes, tied, slurred = signature(sharps), [], [], False
    bars = split_bars(text)
    for index, bar in enumerate(bars):
        altered, at = {}, 0.0
        if TOKEN.sub('', bar).strip():
            raise ScoreError(f'cannot read {TOKEN.sub("", bar).strip()!r} in bar {bar!r}')
        for begin, grace, head, number, fraction, marks, end in TOKEN.findall(bar):
            length = _length(number, fraction)
            if grace:
                notes.append(Note(index * quavers + at, GRACE, _pitch(grace, key, altered), -4.0))
            pitches = [_pitch(p, key, altered) for p in re.findall(PITCH, head)]
            held = [n for n in tied if n.pitch in pitches]
            for note in held:
                note.length += length
            late = GRACE if grace else 0.0
            fresh = [Note(index * quavers + at + late, length - late, p, 12.0 * ('>' in marks),
                          0.5 if '.' in marks else 0.0, joined=slurred)
                     for p in pitches if p not in [n.pitch for n in held]]
            slurred = (slurred or bool(begin)) and not end
            for note in held + fresh:
                note.joins = slurred
            notes += fresh
            tied = held + fresh if '-' in marks else []
            at += length
        if abs(at - quavers) > 1e-6:
            raise ScoreError(f'bar {index + 1} holds {at:g} quavers, not {quavers}: {bar!r}')
    return notes, len(bars)
