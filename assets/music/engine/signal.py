# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Circular signal processing: nothing here knows where the loop begins."""
import numpy as np
from scipy.fft import irfft, rfft, rfftfreq
from scipy.ndimage import minimum_filter1d, uniform_filter1d
from scipy.signal import butter, sosfilt

from .synthesis import RATE

CURVE_POINTS = 1 << 15


def gain(decibels):
    """Amplitude factor."""
    return 10 ** (decibels / 20)


def highpass(corner, order=2):
    """Butterworth magnitude."""
    return lambda f: 1 / np.sqrt(1 + (corner / np.maximum(f, 1e-3)) ** (2 * order))


def lowpass(corner, order=2):
    """Butterworth magnitude."""
    return lambda f: 1 / np.sqrt(1 + (f / corner) ** (2 * order))


def bell(centre, decibels):
    """A boost or cut about an octave and a half wide."""
    return lambda f: 10 ** (decibels / 20 * np.exp(-np.log2(np.maximum(f, 1) / centre) ** 2))


def shelf(corner, decibels):
    """A treble shelf."""
    return lambda f: 10 ** (decibels / 20 / (1 + (corner / np.maximum(f, 1e-3)) ** 2))


def a_weight(frequency):
    """The amplitude factor of A weighting at a frequency in Hz."""
    f = np.maximum(frequency, 1.0) ** 2
    return 1.2589 * 12194 ** 2 * f * f / (
        (f + 20.6 ** 2) * np.sqrt((f + 107.7 ** 2) * (f + 737.9 ** 2)) * (f + 12194 ** 2))


def band_limit(edge, slope=60.0):
    """A steep low-pass, used before halving the sample rate."""
    return lambda f: 1 / (1 + np.exp(np.clip((f - edge) / slope, -60, 60)))


def equalise(samples, *responses):
    """Zero-phase filter given by magnitude responses."""
    return next(equalised(samples, responses))


def equalised(samples, *sets):
    """The same samples by several sets of responses."""
    # A few thousand points are plenty for curves this smooth.
    points = np.linspace(0, RATE / 2, CURVE_POINTS)
    spectrum, frequency = rfft(samples, axis=0), rfftfreq(len(samples), 1 / RATE)
    for responses in sets:
        curve = np.prod([response(points) for response in responses], axis=0)
        curve = np.interp(frequency, points, curve).astype(samples.dtype)
        yield irfft(spectrum * curve[:, None], len(samples), axis=0)


def place(samples, pan, width):
    """Constant-power pan of the middle, scaled sides."""
    middle, side = samples.mean(1), (samples[:, 0] - samples[:, 1]) / 2 * width
    left, right = np.cos((pan + 1) * np.pi / 4), np.sin((pan + 1) * np.pi / 4)
    return np.stack([middle * left * 2 ** .5 + side, middle * right * 2 ** .5 - side], 1)


# Low edge, high edge, share of the reverberation time, level: highs die first.
HALL_BANDS = ((60, 250, .9, .8), (250, 1000, 1., 1.), (1000, 3000, .85, .8), (3000, 8500, .6, .6))


def hall(seconds, before=.022, seed=7):
    """Impulse response of a hall: filtered noise that dies away, after early reflections."""
    chance = np.random.RandomState(seed)
    count, first = int(RATE * seconds * 1.15), int(before * RATE)
    time = np.arange(count) / RATE
    response = np.zeros((count + first, 2))
    for side in (0, 1):
        for low, high, share, level in HALL_BANDS:
            bandpass = butter(2, [low, high], 'band', fs=RATE, output='sos')
            noise = sosfilt(bandpass, chance.randn(count))
            decay = np.exp(-6.91 * time / (seconds * share)) * np.minimum(1, time / .012)
            response[first:, side] += noise * decay * level
        for index in range(9):
            at = int((.008 + .045 * chance.rand()) * RATE)
            response[at, side] += (.6 * chance.rand() + .2) * (-1) ** index * 8
    return response / np.sqrt((response ** 2).sum() / 2)


def reverberate(samples, response):
    """Circular convolution, each side with a little of the other."""
    crossed = samples * .8 + samples[:, ::-1] * .2
    padded = np.zeros_like(samples)
    padded[:len(response)] = response
    return irfft(rfft(crossed, axis=0) * rfft(padded, axis=0), len(samples), axis=0)


def compress(samples, threshold, ratio, window=.12, smooth=.08):
    """Gentle levelling by the power in a window."""
    power = uniform_filter1d((samples ** 2).mean(1), int(window * RATE), mode='wrap')
    reduction = -np.maximum(0, 10 * np.log10(power + 1e-9) - threshold) * (1 - 1 / ratio)
    return samples * gain(uniform_filter1d(reduction, int(smooth * RATE), mode='wrap'))[:, None]


def _release(wanted, coefficient):
    """Instant attack, slow release; the second round starts where the circle closes."""
    state, result = wanted[-1], wanted.copy()
    for _ in (0, 1):
        for index, value in enumerate(wanted):
            state = min(value, state + (value - state) * coefficient)
            result[index] = state
    return result


def limit(samples, ceiling, look=.004, release=.12, step=32):
    """Look-ahead peak limiter; returns the samples and the least gain it used."""
    window = int(look * RATE) * 2 + 1
    wanted = np.minimum(1, ceiling / np.maximum(np.abs(samples).max(1), 1e-9))
    wanted = minimum_filter1d(wanted, window, mode='wrap')
    blocks = len(wanted) // step
    coarse = wanted[:blocks * step].reshape(blocks, step).min(1)
    coarse = _release(coarse, 1 - np.exp(-step / (release * RATE)))
    fine = np.interp(np.arange(len(wanted)), np.arange(blocks) * step + step / 2, coarse,
                     period=len(wanted))
    smooth = uniform_filter1d(np.minimum(fine, wanted), window, mode='wrap')
    return samples * smooth[:, None], float(smooth.min())
