# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Statistics of a score: rhythm, breath, harmony and roles, as a reader counts them."""
from collections import defaultdict

import numpy as np

from .counterpoint import DOUBLING, LISTEN
from .notation import GRACE

WIND = range(56, 80)        # General MIDI programs that are blown
TUTTI = .7                  # share of the playing parts that makes a downbeat a tutti
BREATH = .9                 # quavers of rest in which a player can breathe
LONG_ENOUGH = 4             # bars from which an accompaniment can be called monotonous
KEY_SECONDS = 12.0
# How often the twelve tones occur in a key, from its tonic up (Krumhansl and Kessler).
MAJOR = (6.35, 2.23, 3.48, 2.33, 4.38, 4.09, 2.52, 5.19, 2.39, 3.66, 2.29, 2.88)
MINOR = (6.33, 2.68, 3.52, 5.38, 2.60, 3.53, 2.54, 4.75, 3.98, 2.69, 3.34, 3.17)


def weight(score, quaver):
    """How strong a place is: 3 bar, 2 half a bar, 1 pulse, 0 quaver, -1 anything between."""
    place = round(quaver % score.quavers, 3)
    if place in (0, score.quavers):
        return 3
    if place == score.quavers / 2 and score.quavers % (2 * score.pulse) == 0:
        return 2
    if place % score.pulse == 0:
        return 1
    return 0 if place % 1 == 0 else -1


def is_syncopated(score, note):
    """True if a note begins at a weaker place than a pulse through which it is held."""
    first = int(np.floor(note.start / score.pulse)) + 1
    held = range(first, int(np.ceil(note.end / score.pulse)))
    return any(weight(score, at * score.pulse) > weight(score, note.start) for at in held)


def tune_notes(score):
    """Notes of every statement of a tune, grace notes left out."""
    for part, first, last in score.tunes:
        for note in score.parts[part].notes:
            if (note.written and note.length > GRACE + .01
                    and first <= note.start / score.quavers < last):
                yield note


def syncopated(score):
    """Percent of the tunes' notes."""
    return 100 * np.mean([is_syncopated(score, note) for note in tune_notes(score)])


def tutti_downbeats(score):
    """Percent of bars on whose first beat most of the bar's parts strike."""
    count = 0
    for bar in range(score.bars):
        begin, end = bar * score.quavers, (bar + 1) * score.quavers
        playing = [part for part in score.parts.values()
                   if any(n.start < end - .01 and n.end > begin + .01 for n in part.notes)]
        striking = [part for part in playing
                    if any(abs(n.start - begin) < GRACE + .01 for n in part.notes)]
        count += len(striking) >= TUTTI * len(playing) and bool(playing)
    return 100 * count / score.bars


def silent_pulses(score):
    """Pulses (their quavers) at which nothing with a pitch sounds."""
    silent = []
    for pulse in range(round(score.length / score.pulse)):
        at = pulse * score.pulse + LISTEN
        if not any(n.start <= at < n.end for part in score.parts.values()
                   if part.instrument.pitched for n in part.notes):
            silent.append(pulse * score.pulse)
    return silent


def grand_pauses(score):
    """Runs of pulses in which nothing with a pitch sounds."""
    silent = silent_pulses(score)
    return sum(at - score.pulse not in silent for at in silent)


def foreign_on_pulse(score):
    """Percent of the tunes' notes on a pulse that are no tone of their chord."""
    found = []
    for note in tune_notes(score):
        first = int(np.ceil(note.start / score.pulse - .2))
        for pulse in range(first, int(np.ceil(note.end / score.pulse - .01))):
            chord, _ = score.setting_at(pulse * score.pulse)
            found.append(note.key % 12 not in (*chord.classes, chord.bass))
    return 100 * np.mean(found)


def one_chord_bars(score):
    """Percent of bars with exactly one chord."""
    bars = [int(at // score.quavers) for at, _ in score.chords]
    return 100 * np.mean([bars.count(bar) == 1 for bar in range(score.bars)])


def chord_changes(score, seconds):
    """Changes of the written chord a minute."""
    symbols = [chord.symbol for _, chord in score.chords]
    changes = sum(a != b for a, b in zip(symbols, symbols[1:] + symbols[:1]))
    return changes * 60 / seconds


def _rhythms(score, part, section):
    bars = defaultdict(set)
    for note in part.notes:
        if not note.written and score.section_at(note.start) is section:
            bar, place = divmod(note.start + 1e-6, score.quavers)
            bars[bar].add(round(place, 2))
    return list(bars.values())


def monotonous_lines(score):
    """Percent of accompaniment lines, a part in a section, that keep one rhythm throughout."""
    lines = [_rhythms(score, part, section) for part in score.parts.values()
             if part.instrument.pitched for section in score.sections]
    lines = [bars for bars in lines if len(bars) >= LONG_ENOUGH]
    return 100 * np.mean([all(bar == bars[0] for bar in bars) for bars in lines])


def longest_wind_line(score, clock):
    """(seconds, part) that a wind instrument plays on without a rest."""
    longest = (0.0, '')
    for part in score.parts.values():
        if part.instrument.program not in WIND or not part.instrument.pitched:
            continue
        begin = end = None
        for note in sorted(part.notes, key=lambda n: n.start):
            if end is None or note.start > end + BREATH:
                begin = note.start
            end = max(end or 0, note.end)
            longest = max(longest, (clock(min(end, score.length)) - clock(begin), part.name))
    return longest


def most_parts(score):
    """(parts, section) where the most parts with a pitch play in one section."""
    return max((sum(part.instrument.pitched and
                    any(score.section_at(n.start) is section for n in part.notes)
                    for part in score.parts.values()), section.name)
               for section in score.sections)


def highest_bars(score, section):
    """Bars of a section in which its tunes are highest."""
    first, last = section.start, section.start + section.bars
    notes = [n for n in tune_notes(score) if first <= n.start / score.quavers < last]
    top = max((n.key for n in notes), default=0)
    return sorted({int(n.start // score.quavers) for n in notes if n.key == top})


def carriers(score, section):
    """Parts that carry a tune of a section, alone or doubled."""
    first, last = section.start, section.start + section.bars
    leading = {name for name, a, b in score.tunes if a < last and b > first}
    pulses = np.arange(first * score.quavers, last * score.quavers, score.pulse)
    lines = {name: [_sounding(score, name, at) for at in pulses] for name in score.parts}
    tune = [set().union(*(lines[name][i] for name in leading)) for i in range(len(pulses))]
    found = set(leading)
    for name, line in lines.items():
        both = [(a, b) for a, b in zip(tune, line) if a and b]
        if both and np.mean([bool(a & b) for a, b in both]) > DOUBLING:
            found.add(name)
    return found


def _sounding(score, name, quaver):
    return {n.key % 12 for n in score.parts[name].notes
            if n.written and n.start <= quaver + LISTEN < n.end}


def tune_bars(score, section):
    """Bars of a section in which a tune sounds."""
    first, last = section.start, section.start + section.bars
    held = [(n.start, n.end) for n in tune_notes(score)]
    return [bar for bar in range(first, last)
            if any(a < (bar + 1) * score.quavers - .01 and b > bar * score.quavers + .01
                   for a, b in held)]


def home_share(score, clock):
    """Percent of 12-s windows whose notes fit the home key best.

    A mode of the signature counts as the major or minor key with that signature, too.
    """
    step, count = KEY_SECONDS / 4, 0
    home = _home_keys(score)
    windows = np.arange(0, clock.total, step)
    spans = [(clock(n.start), clock(min(n.end, score.length)), n.key % 12)
             for part in score.parts.values() if part.instrument.pitched for n in part.notes]
    begin, end, tone = map(np.array, zip(*spans))
    for start in windows:
        held = np.minimum(end, start + KEY_SECONDS) - np.maximum(begin, start)
        profile = np.bincount(tone, np.maximum(held, 0), 12)
        fits = [np.corrcoef(np.roll(shape, key), profile)[0, 1]
                for shape in (MAJOR, MINOR) for key in range(12)]
        count += int(np.argmax(fits)) in home
    return 100 * count / len(windows)


def _home_keys(score):
    """Keys (0 to 11 major, 12 to 23 minor) on the tonic, or with its signature if it is a mode."""
    major = 7 * score.sharps % 12
    if score.tonic in (major, (major + 9) % 12):
        return {score.tonic if score.tonic == major else score.tonic + 12}
    return {score.tonic, major}
