# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""All statistics of a piece in one table, beside the ranges they should lie in."""
from dataclasses import dataclass

import numpy as np

from . import hearing, measure, mix, reading
from .loopmp3 import RATE

ALIGN = 60000               # samples that show where the loop begins in the file
SEARCH = 8000


@dataclass(frozen=True)
class Range:
    """Lowest and highest value, and whether a piece has to keep to it."""
    low: float
    high: float
    binding: bool

    def holds(self, value):
        """True if a value, rounded by the caller, lies in the range."""
        return self.low <= value <= self.high

    def __str__(self):
        low, high = ('' if np.isinf(edge) else f'{edge:g}' for edge in (self.low, self.high))
        return f'{low} to {high}' if low and high else f'from {low}' if low else \
            f'up to {high}' if high else ''


def _edges(text, binding):
    low, high = text.split()
    return Range(float(low) if low != '-' else -np.inf,
                 float(high) if high != '-' else np.inf, binding)


def ranges(path, piece):
    """{statistic: range} of a file for a piece."""
    kinds, found, binding = [], {}, True
    for line in path.read_text(encoding='utf-8').splitlines():
        name, *fields = [field.strip() for field in line.split(':')]
        if not line.strip() or line.startswith('#'):
            continue
        if not fields:
            binding = False
        elif len(fields) == 1:
            kinds += [piece in fields[0].split()]
        else:
            found[name] = _edges(fields[kinds.index(True)], binding)
    return found


def in_step(loop, samples):
    """The decoded file, turned so that it begins where the loop does."""
    part = loop[:ALIGN, 0]
    tail = np.concatenate([samples[-SEARCH:, 0], samples[:ALIGN + SEARCH, 0]])
    at = int(np.argmax(np.correlate(tail, part, 'valid'))) - SEARCH
    return np.roll(samples, -at, 0)[:len(loop)]


def of_score(score, clock):
    """{statistic: value} that the notes alone tell."""
    return {'syncopated, %': reading.syncopated(score),
            'tutti on beat 1, % of bars': reading.tutti_downbeats(score),
            'silent pulses': len(reading.silent_pulses(score)),
            'grand pauses': reading.grand_pauses(score),
            'foreign on a pulse, %': reading.foreign_on_pulse(score),
            'lines with one rhythm, %': reading.monotonous_lines(score),
            'longest wind line, s': reading.longest_wind_line(score, clock)[0],
            'home key, %': reading.home_share(score, clock),
            'most parts at once': reading.most_parts(score)[0],
            'chord changes a minute': reading.chord_changes(score, clock.total),
            'bars with one chord, %': reading.one_chord_bars(score)}


def of_recording(score, clock, path, samples):
    """{statistic: value} of the file as it sounds."""
    loud, extent, peak = measure.loudness(path)
    spread, swell = hearing.spread_and_swell(measure.loudness_curve(path))
    rough, rough_spread = hearing.roughness(samples)
    begins = hearing.onsets(samples)
    quavers = np.array([clock(quaver) for quaver in range(int(score.length) + 1)])
    bands = {f'{low / 1000:g}-{high / 1000:g}': db for low, high, db in measure.bands(samples)}
    return {'loudness, LUFS': loud, 'loudness range, LU': extent, 'true peak, dB': peak,
            'short-term deviation, LU': spread, 'swell, LU/s': swell,
            'depth of gaps, dB': hearing.gap_depth(samples),
            'spectral centroid, Hz': hearing.centroid(samples),
            '500-1000 Hz, dB': bands['0.5-1'], '2-4 kHz, dB': bands['2-4'],
            '4-8 kHz, dB': bands['4-8'], '8-11 kHz, dB': bands['8-11.025'],
            'spectral peaks': hearing.density(samples), 'roughness': rough,
            'roughness, deviation': rough_spread, 'onsets a second': len(begins) / clock.total,
            'straight windows, %': hearing.straight_windows(begins, clock.total, quavers),
            'repeated passages, %': hearing.repeated(samples),
            'sides against middle, dB': measure.width(samples)[0],
            'length, s': clock.total, 'size, bytes': path.stat().st_size}


def loudest_bars(score, clock, samples):
    """The loudest bar of every section, A-weighted."""
    heard = hearing.weighted(samples.mean(1))
    borders = [round(at / mix.RATE * RATE) for at in mix.bar_borders(score, clock)]
    power = np.array([(heard[a:b] ** 2).mean() for a, b in zip(borders, borders[1:])])
    return [section.start + int(np.argmax(power[section.start:section.start + section.bars]))
            for section in score.sections]


def by_section(score, clock, samples, energy):
    """(section, tune against rest in dB, highest bar nearest to the loudest, loudest bar)."""
    for section, loudest in zip(score.sections, loudest_bars(score, clock, samples)):
        highest = min(reading.highest_bars(score, section), key=lambda bar: abs(bar - loudest))
        yield (section, mix.tune_against_rest(score, energy, section),
               highest - section.start + 1, loudest - section.start + 1)


def table(values, wanted):
    """(line, True if it lies outside a binding range) for every statistic that has a range."""
    for name, span in wanted.items():
        value = values[name]
        outside = not span.holds(round(value, 3))
        mark = '' if not outside else '  <- outside' if span.binding else '  (outside)'
        yield f'    {name:30} {value:10.4g}   {span!s:18}{mark}'.rstrip(), outside and span.binding
