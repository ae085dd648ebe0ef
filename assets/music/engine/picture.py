# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""One picture of a piece: piano roll with its form, spectrogram, loudness."""
import matplotlib
from PIL import Image

from .loopmp3 import RATE
from .mix import section_borders, sounding_parts

matplotlib.use('Agg')
from matplotlib import pyplot  # noqa: E402  (the backend comes first)

# General MIDI's programs come in families of eight; the fiddle stands with the folk instruments.
FAMILIES = (('strings', (*range(40, 45), 48, 49, 110), '#3b78b5'),
            ('plucked, bells', (*range(8, 16), 45, 46), '#2f9e6b'),
            ('timpani', (47,), '#8a8a8a'),
            ('brass', range(56, 64), '#e0902a'),
            ('woodwind', range(64, 80), '#9a5fc0'))
TUNE = '#b01515'
SHORT_TERM = 3.0          # seconds before which the window is not full
COLOURS = 128             # keeps the file small; the spectrogram needs no more


def _family(instrument):
    return next((name, colour) for name, programs, colour in FAMILIES
                if instrument.program in programs)


def _carries_tune(score, part, note):
    return note.written and any(name == part.name and first <= note.start / score.quavers < last
                                for name, first, last in score.tunes)


def _spans(score, clock, notes):
    return ([clock(note.start) for note in notes],
            [clock(min(score.length, note.end)) for note in notes])


def _piano_roll(axes, score, clock):
    tune = []
    for part in sounding_parts(score):
        if part.instrument.pitched:
            name, colour = _family(part.instrument)
            axes.hlines([note.key for note in part.notes],
                        *_spans(score, clock, part.notes), color=colour, lw=2, label=name)
            tune += [note for note in part.notes if _carries_tune(score, part, note)]
    axes.hlines([note.key for note in tune], *_spans(score, clock, tune), color=TUNE, lw=2.5,
                label='tune')
    handles = dict(zip(*axes.get_legend_handles_labels()[::-1]))
    axes.legend(handles.values(), handles.keys(), ncol=6, loc='upper left', framealpha=.9)
    axes.set_ylim(22, 112)
    axes.set_yticks(range(24, 109, 12), [f'C{octave}' for octave in range(1, 9)])
    axes.set_ylabel('pitch')
    axes.grid(axis='y', alpha=.3)


def _drums(axes, score, clock):
    drums = [part for part in sounding_parts(score) if not part.instrument.pitched]
    for row, part in enumerate(drums):
        axes.plot([clock(note.start) for note in part.notes], [row] * len(part.notes), 'k|', ms=6)
    axes.set_yticks(range(len(drums)), [part.name for part in drums])
    axes.set_ylim(-.7, len(drums) - .3)


def _spectrogram(axes, samples):
    axes.specgram(samples.mean(1), NFFT=2048, Fs=RATE, noverlap=1024, vmin=-140, vmax=-45,
                  cmap='magma')
    axes.set_yticks(range(0, 11000, 2000), [f'{kilohertz}' for kilohertz in range(0, 11, 2)])
    axes.set_ylabel('kHz')


def _loudness(axes, curve):
    times, momentary, short = curve
    axes.plot(times, momentary, color='#9bb7d4', lw=.8, label='momentary (0.4 s)')
    full = times >= SHORT_TERM
    axes.plot(times[full], short[full], color='#1c3f66', lw=1.6, label='short-term (3 s)')
    axes.axhline(-16, color='#b01515', lw=1, ls='--', label='whole piece')
    axes.set_ylim(-36, -6)
    axes.set_ylabel('LUFS')
    axes.set_xlabel('seconds')
    axes.legend(ncol=3, loc='lower right')
    axes.grid(alpha=.3)


def _mark_sections(axes, score, clock, named):
    for section, at in zip(score.sections, section_borders(score, clock)):
        axes.axvline(at, color='k', lw=.7)
        if named:
            axes.annotate(f'{section.name} {section.bars}', (at, 1.015),
                          xycoords=('data', 'axes fraction'))


def _save(figure, path):
    figure.savefig(path, dpi=85)
    with Image.open(path) as picture:
        small = picture.convert('RGB').quantize(COLOURS, Image.Quantize.MAXCOVERAGE,
                                                dither=Image.Dither.NONE)
    small.save(path, optimize=True)


def draw(score, clock, samples, curve, path):
    """Writes the picture of a piece, of its decoded sound and of (times, LUFS, LUFS)."""
    figure, panels = pyplot.subplots(4, 1, figsize=(16, 13), sharex=True,
                                     height_ratios=(5, 1.6, 3, 2))
    figure.suptitle(f'{score.title} ({score.name})')
    _piano_roll(panels[0], score, clock)
    _drums(panels[1], score, clock)
    _spectrogram(panels[2], samples)
    _loudness(panels[3], curve)
    for axes in panels:
        _mark_sections(axes, score, clock, axes is panels[0])
    panels[0].set_xlim(0, clock.total)
    figure.tight_layout()
    _save(figure, path)
    pyplot.close(figure)
