# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Seeded noise. Every field is periodic, because it comes out of an inverse FFT.

The result depends on the array size as well as on the seed: choose seeds at the final size.
"""
from functools import lru_cache

import numpy as np


def _field(amplitude, shape, seed):
    r = np.random.RandomState(seed)
    phases = r.normal(size=shape) + 1j * r.normal(size=shape)
    f = np.fft.ifft2(amplitude * phases).real
    return f / f.std()


def _wave_numbers(shape):
    ky = np.fft.fftfreq(shape[0]) * shape[0]
    kx = np.fft.fftfreq(shape[1]) * shape[1]
    return np.meshgrid(kx, ky)


@lru_cache(maxsize=24)
def _tile(seed, slope, sx, sy, lowest, size):
    kx, ky = _wave_numbers((size, size))
    k = np.hypot(kx * sx, ky * sy)
    k[0, 0] = 1e9
    amplitude = k ** -slope
    amplitude[k < lowest] = 0
    return _field(amplitude, (size, size), seed)


def fbm(h, w, seed, slope=1.7, sx=1., sy=1., lowest=2, size=1024):
    """Fractal noise of unit deviation; sx, sy above 1 stretch it along that axis."""
    y, x = np.mgrid[0:h, 0:w]
    return _tile(seed, slope, sx, sy, lowest, size)[y % size, x % size]


def band(shape, scale, slope, longest, shortest, seed):
    """Noise with wavelengths from shortest to longest, in pixels, at scale cells per pixel."""
    fy = np.fft.fftfreq(shape[0]) * scale
    fx = np.fft.fftfreq(shape[1]) * scale
    k = np.hypot(*np.meshgrid(fx, fy))
    k[0, 0] = 1
    wave = 1 / k
    amplitude = np.where((wave < longest) & (wave > shortest), wave ** slope, 0)
    amplitude[0, 0] = 0
    return _field(amplitude, shape, seed)


def waves(size, period, slope, heading, spread, shortest, longest, seed):
    """Directional periodic field on size x size cells for a tile of `period` picture pixels."""
    kx, ky = _wave_numbers((size, size))
    k = np.hypot(kx, ky)
    k[0, 0] = 1e-9
    wave = period / k
    amplitude = np.where((wave > shortest) & (wave < longest), wave ** slope, 0.)
    along = np.abs(np.cos(np.arctan2(ky, kx) - heading))
    return _field(amplitude * (spread + (1 - spread) * along ** 3), (size, size), seed)


def smoothstep(x, a, b):
    t = np.clip((x - a) / (b - a), 0, 1)
    return t * t * (3 - 2 * t)
