# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Statistics of a recording: swell, gaps, brightness, density, roughness, onsets, repetition."""
import numpy as np
from scipy.ndimage import uniform_filter1d
from scipy.signal import find_peaks, stft

from .loopmp3 import RATE
from .signal import a_weight

SHORT_TERM = 3.0            # seconds before which the short-term window is not full
GAP_BLOCK, GAP_WINDOW = .1, 2.0     # seconds
FLOOR = 1e-10
PEAK_DEPTH, PEAK_LIMIT = 25, 5000   # dB under the strongest peak; Hz
ROUGH_PEAKS, ROUGH_DEPTH, ROUGH_LOWEST = 30, .03, 30  # peaks; share of the strongest; Hz
ROUGH_SCALE = 12.0          # to the scale of the values in ranges.txt
ROUGH_WINDOW = 8.0          # seconds
ONSET_HOP, ONSET_HEIGHT = 256, .8   # samples; standard deviations over the mean of a second
LIKE = .93                  # correlation of two spectrograms that counts as a repetition
REPEAT_SECONDS = 4.0
ON_GRID, GRID_WINDOW, GRID_SHARE = .02, 10.0, .85    # seconds, seconds, share of onsets
GRID_SHIFTS = np.arange(-.02, .11, .02)  # seconds, for what decoders and attacks add


def weighted(samples, rate=RATE):
    """Samples (one channel) with A weighting."""
    frequency = np.fft.rfftfreq(len(samples), 1 / rate)
    return np.fft.irfft(np.fft.rfft(samples) * a_weight(frequency), len(samples))


def spread_and_swell(curve):
    """Standard deviation of the short-term loudness, and its mean change in a second, in LU."""
    times, _, short = curve
    short = short[times >= SHORT_TERM]
    second = round(1 / (times[1] - times[0]))
    return short.std(), np.abs(short[second:] - short[:-second]).mean()


def gap_depth(samples):
    """How far the level falls within 2 s under its highest there, in dB, on average."""
    block = int(GAP_BLOCK * RATE)
    mono = weighted(samples.mean(1))
    power = (mono[:len(mono) // block * block].reshape(-1, block) ** 2).mean(1)
    count = round(GAP_WINDOW / GAP_BLOCK)
    levels = 10 * np.log10(power[:len(power) // count * count].reshape(-1, count) + FLOOR)
    return (levels.max(1) - levels.min(1)).mean()


def centroid(samples):
    """Mean over time of the centre of the power spectrum, in Hz."""
    frequency, _, spectrum = stft(samples.mean(1), RATE, nperseg=2048, noverlap=1024)
    power = np.abs(spectrum) ** 2
    return ((power * frequency[:, None]).sum(0) / (power.sum(0) + 1e-12)).mean()


def density(samples):
    """Peaks in the spectrum, on average."""
    frequency, _, spectrum = stft(samples.mean(1), RATE, nperseg=8192, noverlap=4096)
    counts = []
    for frame in 20 * np.log10(np.abs(spectrum).T[::3] + 1e-9):
        peaks, _ = find_peaks(frame, height=frame.max() - PEAK_DEPTH)
        counts.append((frequency[peaks] < PEAK_LIMIT).sum())
    return np.mean(counts)


def _roughness(frequency, amplitude):
    """Beating of all pairs of peaks, weighted by their amplitudes, after Plomp and Levelt."""
    apart = np.abs(frequency[:, None] - frequency)
    lower = np.minimum(frequency[:, None], frequency)
    scaled = apart * .24 / (.0207 * lower + 18.96)
    beating = np.exp(-3.51 * scaled) - np.exp(-5.75 * scaled)
    return (amplitude[:, None] * amplitude * beating).sum() / amplitude.sum() ** 2


def roughness(samples):
    """Mean roughness, and the standard deviation of its means over 8 s."""
    frequency, times, spectrum = stft(samples.mean(1), RATE, nperseg=2048, noverlap=1024)
    values = []
    for frame in np.abs(spectrum).T:
        peaks, _ = find_peaks(frame, height=frame.max() * ROUGH_DEPTH)
        peaks = peaks[frequency[peaks] > ROUGH_LOWEST]
        peaks = peaks[np.argsort(frame[peaks])[-ROUGH_PEAKS:]]
        values.append(_roughness(frequency[peaks], frame[peaks]) if len(peaks) > 1 else 0)
    values = ROUGH_SCALE * np.array(values)
    count = int(ROUGH_WINDOW / (times[1] - times[0]))
    windows = values[:len(values) // count * count].reshape(-1, count).mean(1)
    return values.mean(), windows.std()


def onsets(samples):
    """Seconds at which something begins."""
    _, _, spectrum = stft(samples.mean(1), RATE, nperseg=1024, noverlap=1024 - ONSET_HOP)
    rising = np.maximum(0, np.diff(np.log1p(1000 * np.abs(spectrum)), axis=1)).sum(0)
    second = int(RATE / ONSET_HOP)
    novelty = rising - uniform_filter1d(rising, second)
    found, _ = find_peaks(novelty, height=ONSET_HEIGHT * novelty.std(), distance=second // 10)
    return (found + 1) * ONSET_HOP / RATE


def straight_windows(times, length, quavers):
    """Percent of 10-s windows with nearly all onsets on the written quavers (in seconds)."""
    return max(_straight(times - shift, length, quavers) for shift in GRID_SHIFTS)


def _straight(times, length, quavers):
    straight = []
    for start in np.arange(0, length - GRID_WINDOW, GRID_WINDOW / 2):
        inside = times[(times >= start) & (times < start + GRID_WINDOW)]
        off = np.array([np.abs(quavers - time).min() for time in inside])
        straight.append(len(off) > 0 and (off < ON_GRID).mean() > GRID_SHARE)
    return 100 * np.mean(straight)


def repeated(samples):
    """Percent of 4-s passages that come again nearly as they were."""
    _, times, spectrum = stft(samples.mean(1), RATE, nperseg=4096, noverlap=2048)
    bands = np.log1p(300 * np.abs(spectrum[8:512]).reshape(-1, 4, len(times)).mean(1))
    bands = bands - bands.mean(1, keepdims=True)
    count = int(REPEAT_SECONDS / (times[1] - times[0]))
    size = 1 << (len(times) + count).bit_length()
    spectra, power = np.fft.rfft(bands, size, axis=1), (bands ** 2).sum(0)
    energy = np.convolve(power, np.ones(count), 'valid')
    again = []
    for start in range(0, len(times) - count, count):
        probe = np.fft.rfft(bands[:, start:start + count], size, axis=1)
        alike = np.fft.irfft((spectra * np.conj(probe)).sum(0), size)[:len(energy)]
        alike /= np.sqrt(energy * energy[start]) + 1e-9
        alike[max(0, start - count):start + count] = 0
        again.append(alike.max() > LIKE)
    return 100 * np.mean(again)


def signal_to_error(loop, decoded, low, high):
    """dB by which a loop is over what encoding added to it, in a band; both are in step."""
    frequency = np.fft.rfftfreq(len(loop), 1 / RATE)
    band = (frequency >= low) & (frequency < high)
    wanted = np.abs(np.fft.rfft(loop)[band]) ** 2
    error = np.abs(np.fft.rfft(decoded - loop)[band]) ** 2
    return 10 * np.log10(wanted.sum() / error.sum())
