# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""One picture of a piece: piano roll, spectrogram, level."""
import matplotlib
import numpy as np

from .loopmp3 import RATE
from .measure import level_curve

matplotlib.use('Agg')
from matplotlib import pyplot  # noqa: E402  (the backend comes first)


def _piano_roll(axes, score, clock):
    colours = pyplot.cm.tab20
    pitched = [p for p in score.parts.values() if p.notes]
    for index, part in enumerate(pitched):
        row = None if part.instrument.pitched else 12 + index % 8
        spans = [(clock(n.start), clock(min(score.length, n.end))) for n in part.notes]
        rows = [row or n.key for n in part.notes]
        axes.hlines(rows, [s for s, _ in spans], [e for _, e in spans],
                    color=colours(index % 20), lw=2, label=part.name)
    axes.legend(ncol=10, fontsize=8, loc='upper right')


def _mark_sections(axes, score, clock):
    for section in score.sections:
        at = clock(section.start * score.quavers)
        axes.axvline(at, color='k', lw=.8)
        axes.annotate(section.name, (at, 1.01), xycoords=('data', 'axes fraction'))


def draw(score, clock, samples, path):
    """Writes the picture of a piece and its decoded sound."""
    figure, (roll, spectrum, level) = pyplot.subplots(
        3, 1, figsize=(22, 18), sharex=True, height_ratios=(3, 2, 1))
    _piano_roll(roll, score, clock)
    spectrum.specgram(samples.mean(1), NFFT=2048, Fs=RATE, noverlap=1024, vmin=-150, vmax=-40)
    curve = level_curve(samples)
    level.plot(np.arange(len(curve)) * .4, curve)
    level.grid()
    level.set_ylim(-40, -8)
    for axes in (roll, spectrum, level):
        _mark_sections(axes, score, clock)
    roll.set_xlim(0, clock.total)
    figure.tight_layout()
    figure.savefig(path, dpi=60)
    pyplot.close(figure)
