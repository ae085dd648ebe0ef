# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""From rendered parts to one loop at the game's rate."""
from concurrent.futures import ThreadPoolExecutor

import numpy as np
from scipy.fft import irfft, next_fast_len, rfft, rfftfreq

from . import reading, signal
from .loopmp3 import FRAME, RATE as GAME_RATE
from .performance import Clock, level_at, write_midi
from .synthesis import RATE, circle, read, render

REFERENCE = -22.0          # RMS in dB of a part at level 0 while it plays
ACTIVE = 0.06              # share of its loudest moment from which a part counts as playing
CEILING = signal.gain(-2.8)  # leaves room for what encoding adds
RIDE_FLOOR = -60.0           # dB below which the fader is not moved
RIDE_SECONDS, RIDE_SMOOTH = 4.0, 2.0
WORKERS = 2
COLOUR_CORNER = 1500.0     # Hz from which a part is brighter the louder it plays
SOFT_DARKER, LOUD_BRIGHTER = 1.4, .6    # shares of the part's colour
DARKEST, BRIGHTEST = 50.0, 108.0
COLOUR_SECONDS = .05
TILT_CORNER, MIDDLE = 900.0, 700.0     # Hz


def _transforms_fast(number):
    """True if a Fourier transform of this length needs no large factors."""
    for factor in (2, 3, 5, 7, 11, 13, 17, 19, 23, 29):
        while number % factor == 0:
            number //= factor
    return number == 1


def loop_clock(score):
    """The score's clock, stretched to a number of frames that transforms fast and is even.

    An even number keeps every end of a round off the mixer's buffer borders: see loopmp3.
    """
    wanted = Clock(score).total * GAME_RATE / FRAME
    fast = [n for n in range(int(wanted * .97), int(wanted * 1.03))
            if n % 2 == 0 and _transforms_fast(n)]
    frames = min(fast, key=lambda n: abs(n - wanted))
    return Clock(score, frames * FRAME / GAME_RATE)


def section_borders(score, clock):
    """Seconds at which the sections begin, and the end."""
    bars = [section.start for section in score.sections] + [score.bars]
    return [clock(bar * score.quavers) for bar in bars]


def sounding_parts(score):
    """Parts that have something to play."""
    return [part for part in score.parts.values() if part.notes]


def render_parts(score, clock, folder):
    """MIDI and sound of every part in a folder."""
    folder.mkdir(parents=True, exist_ok=True)
    parts = sounding_parts(score)
    for part in parts:
        write_midi(score, part, clock, folder / f'{part.name}.mid')
    with ThreadPoolExecutor(WORKERS) as pool:
        list(pool.map(lambda p: render(folder / f'{p.name}.mid', folder / f'{p.name}.wav'), parts))
    return parts


def _steady_level(samples):
    """RMS over the moments in which a part plays."""
    block = RATE // 10
    loud = np.sqrt((samples ** 2).mean(1))
    peaks = loud[:len(loud) // block * block].reshape(-1, block).max(1)
    return np.sqrt((peaks[peaks > peaks.max() * ACTIVE] ** 2).mean())


def _brightness(part, clock, count):
    """For every sample, from 0 to 1 with the part's dynamics."""
    times = np.arange(0, clock.total, COLOUR_SECONDS)
    levels = [level_at(part, float(np.interp(t, clock.times, clock.grid))) for t in times]
    share = np.clip((np.array(levels) - DARKEST) / (BRIGHTEST - DARKEST), 0, 1)
    return np.interp(np.arange(count) / RATE, times, share).astype(np.float32)[:, None]


def colour(part, clock, samples, *responses):
    """Equalises a part, and crossfades a dark and a bright copy by its dynamics."""
    depth = part.instrument.colour
    if not depth:
        return signal.equalise(samples, *responses)
    shelves = (signal.shelf(COLOUR_CORNER, part_of * depth)
               for part_of in (-SOFT_DARKER, LOUD_BRIGHTER))
    dark, bright = signal.equalised(samples, *((shelf, *responses) for shelf in shelves))
    share = _brightness(part, clock, len(samples))
    return dark * (1 - share) + bright * share


def _treat(part, clock, samples):
    instrument = part.instrument
    samples = colour(part, clock, samples, signal.highpass(instrument.highpass),
                     *(signal.bell(*b) for b in instrument.bells))
    wanted = signal.gain(REFERENCE + part.level) * 2
    return signal.place(samples, part.pan, instrument.width) * wanted / _steady_level(samples)


def _stems(score, clock, folder, parts):
    """(part, samples) as they go into the mix, before the hall."""
    length = round(clock.total * RATE)
    for part in parts:
        yield part, _treat(part, clock, circle(read(folder / f'{part.name}.wav'), length))


def bar_borders(score, clock):
    """Samples at which the bars begin, and the end."""
    return [round(clock(bar * score.quavers) * RATE) for bar in range(score.bars + 1)]


def _bar_energy(samples):
    """Energy of a bar, plain and A-weighted."""
    count = next_fast_len(len(samples))
    power = (np.abs(rfft(samples, count, axis=0)) ** 2).sum(1) * 2 / count
    return (samples ** 2).sum(), (power * signal.a_weight(rfftfreq(count, 1 / RATE)) ** 2).sum()


def mix(score, clock, folder, parts):
    """The unmastered loop; every part's energy in each bar, plain and A-weighted, before the hall.

    The energies are {part: array of two rows}.
    """
    dry = np.zeros((round(clock.total * RATE), 2))
    send, energy = np.zeros_like(dry), {}
    borders = bar_borders(score, clock)
    for part, samples in _stems(score, clock, folder, parts):
        dry += samples
        send += samples * signal.gain(part.instrument.reverb)
        energy[part.name] = np.transpose([_bar_energy(samples[first:last])
                                          for first, last in zip(borders, borders[1:])])
    hall = signal.hall(score.mixing.get('hall', 1.9))
    wet = signal.reverberate(signal.equalise(send, signal.highpass(140),
                                             signal.lowpass(7500, 1)), hall)
    return dry + wet, energy


def balance(score, energy):
    """{part: dB of the stems' energy in every section, and in the whole piece}."""
    spans = [(s.start, s.start + s.bars) for s in score.sections] + [(0, score.bars)]
    parts = {name: np.array([plain[a:b].sum() for a, b in spans])
             for name, (plain, _) in energy.items()}
    total = sum(parts.values())
    return {name: 10 * np.log10(part / total + 1e-9) for name, part in parts.items()}


def tune_against_rest(score, energy, section):
    """dB by which the parts with the tune outweigh all others while it sounds, A-weighted."""
    bars, carriers = reading.tune_bars(score, section), reading.carriers(score, section)
    front = sum(heard[bars].sum() for name, (_, heard) in energy.items() if name in carriers)
    whole = sum(heard[bars].sum() for _, heard in energy.values())
    return 10 * np.log10(front / (whole - front + 1e-9))


def _ride(samples, ratio):
    """Narrows the range between soft and loud passages as a slow hand on the fader does.

    It follows seconds, not beats: accents and the order of the sections by loudness stay.
    """
    return signal.compress(samples, RIDE_FLOOR, ratio, RIDE_SECONDS, RIDE_SMOOTH)


def tone(score, samples):
    """Equalises and levels the whole; -16 dB RMS comes out."""
    samples = signal.equalise(samples, signal.highpass(36), signal.bell(300, -1.2),
                              signal.shelf(TILT_CORNER, score.mixing.get('tilt', 0.0)),
                              signal.bell(MIDDLE, score.mixing.get('middle', 0.0)),
                              signal.shelf(4500, score.mixing.get('treble', 4.0)),
                              signal.band_limit(10650))
    samples = _ride(samples, score.mixing.get('ride', 1.0))
    samples = samples / np.sqrt((samples ** 2).mean()) * signal.gain(-16)
    return signal.compress(samples, -13, score.mixing.get('ratio', 1.4))


def drive(samples, decibels):
    """Amplifies into the limiter. Returns the loop at half the rate and the least gain."""
    samples, least = signal.limit(samples * signal.gain(decibels), CEILING)
    spectrum = rfft(samples, axis=0)[:len(samples) // 4 + 1]
    return irfft(spectrum, len(samples) // 2, axis=0) / 2, least
