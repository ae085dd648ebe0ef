# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Gives a score the timing, loudness and tone of people, and writes it as MIDI files."""
import random
from collections import defaultdict

import mido
import numpy as np

LEAD_SECONDS = 0.4       # room before the first beat for notes played early
# The file begins only a little before the first beat, so no note starts earlier than this.
FIRST_EARLY = .045
TAIL_SECONDS = 5.0
TICKS_PER_SECOND = 1920
TICKS_PER_BEAT, BEAT_US = 960, 500000
SOFTEST, LOUDEST = 34.0, 118.0
EXPRESSION = (60, 127)   # controller 11 follows the dynamics, so that held notes swell
EXPRESSION_SECONDS = .04
SWELL, SWELL_FROM, SWELL_FULL = 16.0, .5, 1.6   # velocity steps; seconds a note must last
HARDEST, KNEE = 122, 100  # velocities: above the knee, half as steep

SLUR_SECONDS, SLUR_SOFTER = .055, 8.0
VIBRATO_HERTZ, VIBRATO_STRAY = 5.4, .25
VIBRATO_AFTER, VIBRATO_FADE = .18, .35          # seconds
WHEEL_SECONDS, WHEEL_PER_CENT = .02, 8192 / 200

DRIFT_SECONDS = .004     # of each wave by which the whole ensemble hurries and drags together
DRIFT_PERIODS = (11.0, 6.1, 3.7)
PHRASE = 8               # bars
# Tempo over a phrase, in percent: it flows in the middle and yields at the joint.
BREATHING = ((0, 1, 2, 5, 7, 8), (-.4, 0, .6, .6, -.6, -1.0))
LEANING = .8             # share of a player's lateness that lasts from note to note


class Clock:
    """Quavers to seconds, scaled so that the piece lasts a given number of seconds.

    The tempo yields at the joints of phrases (not in the first section, whose times are fixed),
    the ensemble drifts a little, and quavers may lilt.
    """

    def __init__(self, score, seconds=None):
        self.score = score
        self.grid = np.arange(0, score.length + .125, .125)
        rate = np.array([60 / score.tempo_at(q) / score.pulse / _flow(score, q)
                         for q in self.grid])
        steps = np.diff(self.grid) * (rate[1:] + rate[:-1]) / 2
        self.times = np.concatenate([[0], np.cumsum(steps)])
        self.total = float(self.times[-1])
        if seconds:
            self.times *= seconds / self.total
            self.total = seconds
        self.times += _drift(score, self.times, self.total)

    def __call__(self, quaver):
        return float(np.interp(_lilted(self.score, quaver), self.grid, self.times))


def _flow(score, quaver):
    section = score.section_at(min(quaver, score.length - .01))
    if section is score.sections[0]:
        return 1.0
    place = (quaver / score.quavers - section.start) % PHRASE
    return 1 + np.interp(place, *BREATHING) / 100


def _drift(score, times, total):
    """Slow waves that fit the loop and begin at zero."""
    chance, drift = random.Random(score.name), np.zeros_like(times)
    for period in DRIFT_PERIODS:
        turns = round(total / period)
        phase = chance.random() * 2 * np.pi
        drift += DRIFT_SECONDS * (np.sin(2 * np.pi * turns * times / total + phase)
                                  - np.sin(phase))
    return drift


def _lilted(score, quaver):
    if not score.lilt:
        return quaver
    pulse, place = divmod(quaver, score.pulse)
    late = np.interp(place, range(score.pulse + 1), (*score.lilt, 0.0))
    return pulse * score.pulse + place + late * score.pulse


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


def phrase_push(score, quaver):
    """Eight bars rise twice, the second time higher, and come to rest."""
    bar = (quaver / score.quavers - score.section_at(quaver).start) % PHRASE
    return float(np.interp(bar, (0, 2.4, 4, 6.4, 7.5, 8), (-3, 2, -2, 5, 0, -5)))


def _intended(score, part, note):
    """Velocity of a note before chance and the limits."""
    velocity = level_at(part, note.start) + note.push + metric_push(score, note.start)
    return velocity + phrase_push(score, note.start) - SLUR_SOFTER * note.joined


def _lead(score, part, note):
    """Milliseconds by which a note is struck before it should be heard."""
    return part.instrument.lead(note.key, _intended(score, part, note))


def _sounding(score, part, clock, note):
    """Seconds at which a note is struck and released, as far as the score says."""
    early = _lead(score, part, note) / 1000
    return clock(note.start) - early, clock(min(score.length, note.end)) - early


def _message(kind, part, **values):
    return mido.Message(kind, channel=part.instrument.channel, **values)


def _setup(part):
    bank = 0 if part.instrument.channel == 9 else part.instrument.bank
    return [(0, 0, _message('control_change', part, control=0, value=bank)),
            (0, 1, _message('program_change', part, program=part.instrument.program)),
            (0, 2, _message('control_change', part, control=7, value=110))]


def _tick(seconds):
    return int((seconds + LEAD_SECONDS) * TICKS_PER_SECOND)


def _swells(score, part, clock):
    """Velocity steps by which held notes rise and fall, every EXPRESSION_SECONDS."""
    times = np.arange(0, clock.total, EXPRESSION_SECONDS)
    swell = np.zeros_like(times)
    if not part.instrument.sustains:
        return times, swell
    for note in part.notes:
        begin, finish = _sounding(score, part, clock, note)
        if finish - begin > SWELL_FROM:
            depth = SWELL * min(1, (finish - begin) / SWELL_FULL)
            inside = (times >= begin) & (times < finish)
            share = (times[inside] - begin) / (finish - begin)
            swell[inside] = depth * (np.sin(np.pi * share ** .8) - .6)
    return times, swell


def _expression(score, part, clock):
    result, last = [], None
    times, swells = _swells(score, part, clock)
    for time, swell in zip(times, swells):
        quaver = float(np.interp(time, clock.times, clock.grid))
        level = level_at(part, quaver) + phrase_push(score, quaver) + swell
        share = (level - SOFTEST) / (LOUDEST - SOFTEST)
        value = round(EXPRESSION[0] + (EXPRESSION[1] - EXPRESSION[0]) * min(1, max(0, share)))
        if value != last:
            tick = _tick(time) if time else 0
            result.append((tick, 3, _message('control_change', part, control=11, value=value)))
            last = value
    return result


def is_single_line(part):
    """True if a part never holds two written notes at once for longer than a slur."""
    notes = sorted((n for n in part.notes if n.written), key=lambda n: n.start)
    return all(a.end <= b.start + 1e-6 for a, b in zip(notes, notes[1:]))


def _vibrato(score, part, clock):
    """Pitch wheel: every long note of a single line begins straight and then trembles."""
    chance, result = random.Random(score.name + part.name + 'vibrato'), []
    if not part.instrument.vibrato or not is_single_line(part):
        return result
    for note in sorted((n for n in part.notes if n.written), key=lambda n: n.start):
        begin, finish = _sounding(score, part, clock, note)
        length = finish - begin
        hertz = VIBRATO_HERTZ + chance.uniform(-VIBRATO_STRAY, VIBRATO_STRAY)
        depth = part.instrument.vibrato * WHEEL_PER_CENT
        for time in np.arange(VIBRATO_AFTER, length - WHEEL_SECONDS, WHEEL_SECONDS):
            share = min(1, (time - VIBRATO_AFTER) / VIBRATO_FADE)
            bend = depth * share * np.sin(2 * np.pi * hertz * (time - VIBRATO_AFTER))
            result.append((_tick(begin + time), 2,
                           _message('pitchwheel', part, pitch=round(bend))))
        if length > VIBRATO_AFTER:
            result.append((_tick(begin + length), 2, _message('pitchwheel', part, pitch=0)))
    return result


def _velocity(score, part, note, chance):
    velocity = _intended(score, part, note) + chance.gauss(0, 3)
    if velocity > KNEE:
        velocity = KNEE + (velocity - KNEE) / 2
    return int(max(8, min(HARDEST, round(velocity))))


def _played_notes(score, part, clock):
    """(on, off, key, velocity) in ticks, no key struck again while it sounds."""
    chance, sounding, result = random.Random(score.name + part.name), {}, []
    instrument, lean = part.instrument, 0.0
    moments = defaultdict(list)
    for note in sorted(part.notes, key=lambda n: (n.start, n.key)):
        moments[note.start].append(note)
    for start, notes in moments.items():
        lean = LEANING * lean + (1 - LEANING ** 2) ** .5 * chance.gauss(0, instrument.jitter)
        for note in notes:
            lead = _lead(score, part, note)
            late = (lean + chance.gauss(-lead, instrument.jitter / 4)) / 1000
            on = _tick(max(clock(start) + late, -FIRST_EARLY))
            # A key that is struck very early is held on, or fast notes would have holes.
            late += max(0.0, lead - instrument.usual_lead) / 1000
            held = note.length * (1 if note.joins else note.gate or instrument.gate)
            end = clock(min(score.length, start + held)) + late
            off = max(_tick(end + SLUR_SECONDS * note.joins), on + 60)
            before = sounding.get(note.key)
            if before and before[1] > on - 8:
                before[1] = max(before[0] + 1, on - 8)
            sounding[note.key] = [on, off, note.key, _velocity(score, part, note, chance)]
            result.append(sounding[note.key])
    return result


def write_midi(score, part, clock, path):
    """One part as a MIDI file whose ticks are a fixed share of a second."""
    queue = _setup(part) + _expression(score, part, clock) + _vibrato(score, part, clock)
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
