# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Turns figures and drum rolls into notes, using the chords of a score."""
import random
from dataclasses import dataclass, replace

from . import figures
from .instruments import taiko_key
from .score import PartNote

ROLL_STROKE_SECONDS = 0.062
WEAKER_HAND = -7.0      # velocity steps
LATER_HAND, STRAY = .08, .07    # shares of a stroke
LOOK_BACK = 8  # notes among which the one to prolong can be


@dataclass(frozen=True)
class Manner:
    """How accompaniment is played: semitones up, louder by, held for, tied over bars."""
    up: int = 0
    push: float = 0.0
    gate: float = 0.0
    tied: bool = False


def _drum_key(key, tonic):
    """Tuned drums give their stroke as high or low: fifth or tonic of the section."""
    if key == 'low':
        return taiko_key(figures.fold(tonic, 30, 36))
    return taiko_key(figures.fold(tonic + 7, 35, 41)) if key == 'high' else key


def _strike(score, part, start, length, tone, push, manner):
    chord, setting = score.setting_at(start)
    instrument = part.instrument
    if instrument.strokes:
        key, offset = instrument.strokes[tone[0]]
        key, push = _drum_key(key, score.section_at(start).tonic), push + offset
    else:
        key = figures.tone_pitch(tone, setting, chord.classes) + manner.up
        key = figures.fold(key, instrument.low, instrument.high)
    part.notes.append(PartNote(start, length, key, push + manner.push, manner.gate, False))


def _prolong(notes):
    """The last note lengthens an equal one that ends where it begins, if there is one."""
    last = notes[-1]
    for index in range(len(notes) - 2, max(-1, len(notes) - LOOK_BACK), -1):
        if notes[index].key == last.key and abs(notes[index].end - last.start) < 1e-6:
            notes[index] = replace(notes[index], length=last.end - notes[index].start)
            notes.pop()
            return


def _hold(score, part, start, end, tone, push, manner):
    """Plays a tone; at a change of chord it moves to the same tone of the new chord if needed."""
    inside = [at for at, _ in score.chords if start + 1e-6 < at < end - 1e-6]
    for first, last in zip([start, *inside], [*inside, end]):
        _strike(score, part, first, last - first, tone, push, manner)
        if first > start or manner.tied:
            _prolong(part.notes)


def accompany(score, names, bars, patterns, manner):
    """Lets parts play figures, one a bar, in turn."""
    for index, bar in enumerate(bars):
        pattern = patterns[index % len(patterns)]
        for start, length, tones, push in figures.events(pattern, score.quavers):
            at = bar * score.quavers + start
            for name in names:
                for tone in tones:
                    _hold(score, score.parts[name], at, at + length, tone, push, manner)


def roll(score, names, start, length, sign, manner):
    """Lets parts repeat a sign as fast as two uneven hands go, for a length in quavers."""
    chance = random.Random(f'{score.name} {names} {start}')
    seconds = length * 60 / score.tempo_at(start) / score.pulse
    strokes = round(seconds / ROLL_STROKE_SECONDS)
    for index in range(strokes):
        weaker = index % 2
        stray = chance.gauss(0, STRAY) + LATER_HAND * weaker if index else 0
        at = start + (index + stray) * length / strokes
        push = WEAKER_HAND * weaker + chance.gauss(0, 3)
        for name in names:
            _strike(score, score.parts[name], at, length / strokes, (sign, ''), push, manner)
