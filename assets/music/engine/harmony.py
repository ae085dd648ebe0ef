# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Chord symbols, and the search for a bass and three upper parts that lead well."""
import re
from dataclasses import dataclass
from itertools import combinations

from .notation import ScoreError, pitch_class

QUALITIES = {'': (0, 4, 7), 'm': (0, 3, 7), '7': (0, 4, 7, 10), 'm7': (0, 3, 7, 10),
             'maj7': (0, 4, 7, 11), 'dim': (0, 3, 6), 'sus': (0, 5, 7), '5': (0, 7),
             '6': (0, 4, 7, 9), 'm6': (0, 3, 7, 9), 'add9': (0, 4, 7, 2), '7sus': (0, 5, 7, 10),
             '9': (0, 4, 7, 10, 2), 'm9': (0, 3, 7, 10, 2), '7b9': (0, 4, 7, 10, 1),
             'aug': (0, 4, 8), 'm7b5': (0, 3, 6, 10), 'dim7': (0, 3, 6, 9)}
SYMBOL = re.compile(r'([A-G][#b]?)([a-z0-9]*)(?:/([A-G][#b]?))?')
PARALLEL_COST = 16


@dataclass(frozen=True)
class Chord:
    """Pitch classes from the root up, and the one in the bass."""
    symbol: str
    classes: tuple
    bass: int


def parse_chord(symbol):
    """The chord of a symbol such as Dm, G7 or C/E."""
    match = SYMBOL.fullmatch(symbol)
    if not match or match.group(2) not in QUALITIES:
        raise ScoreError(f'unknown chord {symbol!r}')
    root = pitch_class(match.group(1))
    classes = tuple((root + step) % 12 for step in QUALITIES[match.group(2)])
    return Chord(symbol, classes, pitch_class(match.group(3)) if match.group(3) else root)


def perfect_parallel(low, high, low_next, high_next):
    """True if two voices, both moving, go from a fifth or octave to the same interval."""
    interval = (high - low) % 12
    return (interval in (0, 7) and (high_next - low_next) % 12 == interval
            and low != low_next and high != high_next)


def _bass_line(chords, low, high, centre):
    line = []
    for chord in chords:
        near = line[-1] if line else centre
        line.append(min((p for p in range(low, high + 1) if p % 12 == chord.bass),
                        key=lambda p: (abs(p - near) + 1.2 * abs(p - centre), p)))
    return line


def _voicings(chord, low, high):
    tones = [p for p in range(low, high + 1) if p % 12 in chord.classes]
    third = chord.classes[1]
    for voicing in combinations(tones, 3):
        a, b, c = voicing
        present = {p % 12 for p in voicing}
        if (1 < b - a <= 9 and 1 < c - b <= 9 and c - a >= 7
                and {third, chord.classes[-1]} <= present
                and len(present) == min(3, len(chord.classes))):
            yield voicing


def _step_cost(before, after, register):
    middle = sum(register) / 2
    cost = sum(abs(x - y) for x, y in zip(before[1:], after[1:])) + .15 * abs(after[2] - middle)
    for i, j in combinations(range(4), 2):
        if perfect_parallel(before[i], before[j], after[i], after[j]):
            cost += PARALLEL_COST
    return cost


def lead_voices(chords, registers, bass_range=(36, 50), bass_centre=43):
    """Four-part settings (bass, 1, 2, 3) of a chord row, found by dynamic programming.

    `registers` gives, for each chord, the lowest and highest pitch of the upper parts.
    """
    bass = _bass_line(chords, *bass_range, bass_centre)
    settings = [[(low,) + v for v in _voicings(chord, *register)]
                for low, chord, register in zip(bass, chords, registers)]
    costs = {s: abs(s[2] - sum(registers[0]) / 2) for s in settings[0]}
    back = []
    for layer, register in zip(settings[1:], registers[1:]):
        step = {s: min((cost + _step_cost(p, s, register), p) for p, cost in costs.items())
                for s in layer}
        back.append({s: origin for s, (_, origin) in step.items()})
        costs = {s: cost for s, (cost, _) in step.items()}
    path = [min(costs, key=lambda s: (costs[s], s))]
    for origins in reversed(back):
        path.append(origins[path[-1]])
    return path[::-1]
