# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Gives a score the timing and loudness of people, and writes it as MIDI files."""
import random

import mido
import numpy as np

LEAD_SECONDS = 0.4       # room before the first beat for notes played early
TAIL_SECONDS = 5.0
TICKS_PER_SECOND = 1920
TICKS_PER_BEAT, BEAT_US = 960, 500000
SOFTEST, LOUDEST = 34.0, 118.0
EXPRESSION = (92, 127)   # controller 11 follows the dynamics, so that held notes swell
EXPRESSION_STEP = 0.5    # quavers


class Clock:
    """Quavers to seconds, scaled so that the piece lasts a given number of seconds."""

    def __init__(self, score, seconds=None):
        self.grid = np.arange(0, score.length + .125, .125)
        rate = np.array([60 / score.tempo_at(q) / score.pulse for q in self.grid])
        steps = np.diff(self.grid) * (rate[1:] + rate[:-1]) / 2
        self.times = np.concatenate([[0], np.cumsum(steps)])
        self.total = float(self.times[-1])
        if seconds:
            self.times *= seconds / self.total
            self.total = seconds

    def __call__(self, quaver):
        return float(np.interp(quaver, self.grid, self.times))


def level_at(part, quaver):
    """Dynamic level of a part: the last statement that has begun, ramped within it."""
    begun = [corners for corners in part.dynamics if corners[0][0] <= quaver + 1e-6]
    if not begun:
        return 80.0
    latest = max(corners[0][0] for corners in begun)
    quavers, levels = zip(*[c for c in begun if c[0][0] == latest][-1])
    return float(np.interp(quaver, quavers, levels))


def metric_push(score, quaver):
    """Weight of a place in the bar."""
    place = quaver % score.quavers
    if place < 1e-6:
        return 7.0
    if abs(place - score.quavers / 2) < 1e-6 and score.quavers % 4 == 0:
        return 3.0
    return 0.0 if place % score.pulse < 1e-6 else -6.0


def phrase_push(score, quaver, bars=4):
    """A four-bar phrase leans towards its third bar."""
    place = quaver / (bars * score.quavers) % 1
    return 5.0 * (1 - abs(2 * place - 1.2)) - 2.0


def _message(kind, part, **values):
    return mido.Message(kind, channel=part.instrument.channel, **values)


def _setup(part):
    bank = 0 if part.instrument.channel == 9 else part.instrument.bank
    return [(0, 0, _message('control_change', part, control=0, value=bank)),
            (0, 1, _message('program_change', part, program=part.instrument.program)),
            (0, 2, _message('control_change', part, control=7, value=110))]


def _expression(score, part, clock):
    result, last = [], None
    for quaver in np.arange(0, score.length, EXPRESSION_STEP):
        share = (level_at(part, quaver) - SOFTEST) / (LOUDEST - SOFTEST)
        value = round(EXPRESSION[0] + (EXPRESSION[1] - EXPRESSION[0]) * min(1, max(0, share)))
        if value != last:
            tick = int((clock(quaver) + LEAD_SECONDS) * TICKS_PER_SECOND) if quaver else 0
            result.append((tick, 3, _message('control_change', part, control=11, value=value)))
            last = value
    return result


def _played_notes(score, part, clock):
    """(on, off, key, velocity) in ticks, no key struck again while it sounds."""
    chance, sounding, result = random.Random(score.name + part.name), {}, []
    instrument = part.instrument
    for note in sorted(part.notes, key=lambda n: (n.start, n.key)):
        late = chance.gauss(-instrument.early, instrument.jitter) / 1000
        on = int((clock(note.start) + LEAD_SECONDS + late) * TICKS_PER_SECOND)
        held = note.length * (note.gate or instrument.gate)
        end = clock(min(score.length, note.start + held))
        off = max(int((end + LEAD_SECONDS + late) * TICKS_PER_SECOND), on + 60)
        velocity = level_at(part, note.start) + note.push + metric_push(score, note.start)
        velocity += phrase_push(score, note.start) + chance.gauss(0, 4)
        before = sounding.get(note.key)
        if before and before[1] > on - 8:
            before[1] = max(before[0] + 1, on - 8)
        sounding[note.key] = [on, off, note.key, int(max(8, min(127, round(velocity))))]
        result.append(sounding[note.key])
    return result


def write_midi(score, part, clock, path):
    """One part as a MIDI file whose ticks are a fixed share of a second."""
    queue = _setup(part) + _expression(score, part, clock)
    for on, off, key, velocity in _played_notes(score, part, clock):
        queue.append((off, 4, _message('note_off', part, note=key, velocity=0)))
        queue.append((on, 5, _message('note_on', part, note=key, velocity=velocity)))
    end = int((clock.total + LEAD_SECONDS + TAIL_SECONDS) * TICKS_PER_SECOND)
    queue.append((end, 9, _message('control_change', part, control=1, value=0)))
    track, now = mido.MidiTrack([mido.MetaMessage('set_tempo', tempo=BEAT_US)]), 0
    for tick, _, message in sorted(queue, key=lambda event: event[:2]):
        track.append(message.copy(time=tick - now))
        now = tick
    mido.MidiFile(type=0, ticks_per_beat=TICKS_PER_BEAT, tracks=[track]).save(path)
