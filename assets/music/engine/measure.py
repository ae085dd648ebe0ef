# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Figures of a finished MP3: loudness, true peak, bands."""
import re
import subprocess

import numpy as np

from .loopmp3 import RATE

BANDS = (20, 60, 120, 250, 500, 1000, 2000, 4000, 8000, 11025)


def decode(path):
    """Stereo samples of an MP3 as floats."""
    raw = subprocess.run(['ffmpeg', '-v', 'error', '-i', path, '-f', 'f32le', '-ac', '2', '-'],
                         check=True, stdout=subprocess.PIPE).stdout
    return np.frombuffer(raw, '<f4').reshape(-1, 2).astype(np.float64)


def _summary(source, options='', data=None):
    text = subprocess.run(['ffmpeg', '-hide_banner', '-nostats', *source, '-af',
                           'ebur128' + options, '-f', 'null', '-'], check=True, input=data,
                          stderr=subprocess.PIPE).stderr.decode()
    return text[text.rindex('Summary:'):]


def _figure(summary, name):
    return float(re.search(rf'{name}:\s+(-?[\d.]+|-inf)', summary).group(1))


def loudness(path):
    """Integrated loudness (LUFS), loudness range (LU) and true peak (dB) of a file."""
    summary = _summary(['-i', path], '=peak=true')
    return tuple(_figure(summary, name) for name in ('I', 'LRA', 'Peak'))


def loudness_of(samples):
    """Integrated loudness (LUFS) of samples at the game's rate."""
    source = ['-f', 'f32le', '-ar', str(RATE), '-ac', '2', '-i', 'pipe:0']
    return _figure(_summary(source, data=samples.astype('<f4').tobytes()), 'I')


def bands(samples):
    """[(low, high, dB relative to the whole)] of the mono sum."""
    power = np.abs(np.fft.rfft(samples.mean(1))) ** 2
    frequency = np.fft.rfftfreq(len(samples), 1 / RATE)
    total = power.sum()
    return [(low, high, 10 * np.log10(
        power[(frequency >= low) & (frequency < high)].sum() / total + 1e-12))
        for low, high in zip(BANDS, BANDS[1:])]


def width(samples):
    """Energy of the sides against the middle in dB, and correlation of left and right."""
    left, right = samples.T
    sides = 10 * np.log10(((left - right) ** 2).sum() / ((left + right) ** 2).sum() + 1e-9)
    return sides, (left * right).sum() / np.sqrt((left ** 2).sum() * (right ** 2).sum())


def loudness_curve(path):
    """Seconds, momentary and short-term loudness (LUFS) of a file."""
    text = subprocess.run(['ffmpeg', '-v', 'error', '-i', path, '-af',
                           'ebur128=metadata=1,ametadata=print:file=-', '-f', 'null', '-'],
                          check=True, stdout=subprocess.PIPE).stdout.decode()
    found = re.findall(r'pts_time:(\S+)\s.*?\.M=(\S+)\s.*?\.S=(\S+)', text, re.DOTALL)
    return np.array(found, float).T
