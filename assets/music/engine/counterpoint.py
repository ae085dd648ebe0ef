# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Reads a score as a teacher of harmony would: ranges, parallels, clashes."""
from dataclasses import dataclass

import numpy as np

from .harmony import perfect_parallel
from .notation import GRACE, NAMES

DOUBLING = 0.8   # share of a line's pulses in unison or octaves that makes it a doubling
REST = 1.01         # quavers; across longer rests two notes are not connected
LISTEN = GRACE + .01  # quavers after a pulse: past a grace note, inside a semiquaver


@dataclass
class Finding:
    """Something to look at: the quaver it happens at, and words."""
    quaver: float
    text: str


def pitched_notes(score):
    """(start, end, pitch, part) of everything with a pitch."""
    return [(n.start, n.end, n.key, part.name)
            for part in score.parts.values() if part.instrument.pitched
            for n in part.notes]


def _sounding(notes, quaver):
    return [(pitch, name) for start, end, pitch, name in notes
            if start <= quaver + LISTEN < end]


def _line(score, part, quaver):
    """Highest note of a part's written line at a quaver, or None."""
    found = [n.key for n in score.parts[part].notes
             if n.written and n.start <= quaver + LISTEN < n.end]
    return max(found, default=None)


def _pulses(score, first, last):
    quaver = first * score.quavers
    while quaver < last * score.quavers:
        yield quaver
        quaver += score.pulse


def ranges(score):
    """Notes outside the range of their instrument."""
    for part in score.parts.values():
        low, high = part.instrument.low, part.instrument.high
        for note in part.notes:
            if part.instrument.pitched and not low <= note.key <= high:
                yield Finding(note.start, f'{part.name} plays {note.key}')


def struck_twice(score):
    """Notes that a part has twice at once: two figures run over the same bars."""
    for part in score.parts.values():
        seen = set()
        for note in part.notes:
            stroke = round(note.start, 4), note.key
            if stroke in seen:
                yield Finding(note.start, f'{part.name} plays {note.key}')
            seen.add(stroke)


def _onsets(score, part, first, last):
    return sorted({n.start for n in score.parts[part].notes if n.written and n.length > GRACE
                   and first * score.quavers <= n.start < last * score.quavers})


def _outer_parallels(score, part, moments):
    notes, before = pitched_notes(score), None
    for quaver in moments:
        high = _line(score, part, quaver)
        low = min((p for p, _ in _sounding(notes, quaver)), default=None)
        now = None if high is None or low is None or low == high else (low, high)
        if before and now and perfect_parallel(*before, *now):
            like = (now[0] - before[0]) * (now[1] - before[1]) > 0
            yield Finding(quaver, ('parallel' if like else 'contrary') + ' ' +
                          ('octaves' if (now[1] - now[0]) % 12 == 0 else 'fifths') +
                          f' {part} {NAMES[before[1] % 12]}-{NAMES[now[1] % 12]} over '
                          f'{NAMES[before[0] % 12]}-{NAMES[now[0] % 12]}')
        before = now


def outer_by_pulse(score):
    """Fifths and octaves between the tune and the lowest voice, from pulse to pulse."""
    for part, first, last in score.tunes:
        yield from _outer_parallels(score, part, _pulses(score, first, last))


def outer_by_note(score):
    """The same from one note of the tune to the next."""
    for part, first, last in score.tunes:
        yield from _outer_parallels(score, part, _onsets(score, part, first, last))


def inner_parallels(score):
    """Fifths and octaves between the four parts of the setting."""
    for index in range(1, len(score.settings)):
        a, b = score.settings[index - 1], score.settings[index]
        for i in range(4):
            for j in range(i + 1, 4):
                if perfect_parallel(a[i], a[j], b[i], b[j]):
                    yield Finding(score.chords[index][0],
                                  f'{score.chords[index - 1][1].symbol} to '
                                  f'{score.chords[index][1].symbol}, voices {i} and {j}')


def _against_tune(score, tune, other, first, last):
    pairs = [(q, _line(score, tune, q), _line(score, other, q))
             for q in _pulses(score, first, last)]
    heard = [(q, a, b) for q, a, b in pairs if a is not None and b is not None]
    same = sum((a - b) % 12 == 0 for _, a, b in heard)
    if not heard or same > DOUBLING * len(heard):
        return
    for (q0, a0, b0), (q1, a1, b1) in zip(heard, heard[1:]):
        if q1 - q0 == score.pulse and perfect_parallel(b0, a0, b1, a1):
            yield Finding(q1, f'{other} against {tune}: '
                          f'{NAMES[b0 % 12]}-{NAMES[b1 % 12]} under '
                          f'{NAMES[a0 % 12]}-{NAMES[a1 % 12]}')


def counter_parallels(score):
    """Fifths and octaves between the tune and every line that does not double it."""
    for tune, first, last in score.tunes:
        for other in score.parts:
            if other != tune and score.parts[other].instrument.pitched:
                yield from _against_tune(score, tune, other, first, last)


def _moments(score, part):
    """(start, latest end, {key: end}) of what a part plays without grace notes, in order."""
    moments = {}
    for note in part.notes:
        if note.length > GRACE + .01:
            moments.setdefault(note.start, {})[note.key] = note.end
    return [(start, max(ends.values()), ends) for start, ends in sorted(moments.items())]


def _is_step(first, second):
    return abs(first - second) in (1, 2)


def is_prepared(before, start, key):
    """True if the moment before contains the tone or one that is a step from it."""
    if before is None or before[1] < start - REST:
        return False
    return any(old == key or _is_step(old, key) for old in before[2])


def is_resolved(score, after, quaver, note):
    """True if a tone moves on by step, or a later chord contains it."""
    start, end, key = note
    if after and after[0] <= end + REST and any(_is_step(key, new) for new in after[2]):
        return True
    if after and [*after[2]] == [key]:     # struck again: an anticipation
        return is_resolved(score, None, quaver, (after[0], after[1], key))
    ends = np.arange(quaver + 1, end + 1.01)
    return any(key % 12 in _tones(score, at) for at in ends if at < score.length)


def _tones(score, quaver):
    chord, _ = score.setting_at(quaver)
    return {*chord.classes, chord.bass}


def dissonances(score):
    """(quaver, part name, key, prepared, resolved) of tones foreign to their chord on a pulse."""
    for part in score.parts.values():
        if not part.instrument.pitched:
            continue
        moments = _moments(score, part)
        for index, (start, _, ends) in enumerate(moments):
            before = moments[index - 1] if index else None
            after = moments[index + 1] if index + 1 < len(moments) else None
            first = int(np.ceil((start - LISTEN) / score.pulse))
            for key, end in ends.items():
                for pulse in range(first, int(np.ceil(end / score.pulse - .01))):
                    at = pulse * score.pulse
                    if key % 12 not in _tones(score, at):
                        yield (at, part.name, key, start < at - LISTEN
                               or is_prepared(before, start, key),
                               is_resolved(score, after, at, (start, end, key)))


def resolved_dissonances(score):
    """Foreign tones on a pulse that are prepared and resolved, or leapt to and resolved."""
    for quaver, name, key, prepared, resolved in dissonances(score):
        if resolved:
            yield Finding(quaver, f'{name} {NAMES[key % 12]} over '
                          f'{score.setting_at(quaver)[0].symbol}, ' +
                          ('prepared and resolved' if prepared else 'leapt to and resolved'))


def stray_dissonances(score):
    """Foreign tones on a pulse that do not move on by step into the harmony."""
    for quaver, name, key, prepared, resolved in dissonances(score):
        if not resolved:
            yield Finding(quaver, f'{name} {NAMES[key % 12]} over '
                          f'{score.setting_at(quaver)[0].symbol}, ' +
                          ('prepared but ' if prepared else 'neither prepared nor ') +
                          ('not resolved' if prepared else 'resolved'))


def clashes(score):
    """Semitones and minor ninths on a pulse that are neither in a chord nor resolved."""
    notes = pitched_notes(score)
    led = {(quaver, name, key) for quaver, name, key, _, resolved in dissonances(score)
           if resolved}
    for quaver in _pulses(score, 0, score.bars):
        sounding, tones = sorted(set(_sounding(notes, quaver))), _tones(score, quaver)
        rub = sorted({f'{n1} {NAMES[p1 % 12]} / {n2} {NAMES[p2 % 12]}' for p1, n1 in sounding
                      for p2, n2 in sounding if p2 - p1 in (1, 13)
                      and not {p1 % 12, p2 % 12} <= tones
                      and not led & {(quaver, n1, p1), (quaver, n2, p2)}})
        if rub:
            yield Finding(quaver, ', '.join(rub))


CHECKS = {'range': ranges, 'twice at once': struck_twice,
          'outer voices by pulse': outer_by_pulse, 'outer voices by note': outer_by_note,
          'tune and counter-melody': counter_parallels,
          'accompaniment': inner_parallels, 'resolved dissonances': resolved_dissonances,
          'stray dissonances': stray_dissonances, 'semitone on a pulse': clashes}
FAULTS = tuple(title for title in CHECKS if title != 'resolved dissonances')
