# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Reads a score file; docs/music.md explains the statements."""
from . import arrange
from .harmony import parse_chord
from .instruments import ORCHESTRA
from .notation import ScoreError, parse_notes, pitch_class, split_bars
from .score import Part, PartNote, Score, Section
from .statements import statements

MARKS = {'ppp': 34, 'pp': 44, 'p': 56, 'mp': 68, 'mf': 80, 'f': 94, 'ff': 108, 'fff': 118}
NUMBERS = ('at', 'for', 'up', 'gate', 'push')


# Accompaniment needs the chords of the whole piece, so it waits until all are read.
LATER = ('comp', 'roll')


class ScoreFile:
    """Fills a score; `here` is the section that a statement stands in."""

    def __init__(self, name, text):
        self.score, self.here, later = Score(name), None, []
        for statement in statements(text):
            if statement[1] in LATER:
                later.append((self.here, statement))
            else:
                self._obey(*statement)
        self.score.lead()
        for self.here, statement in later:
            self._obey(*statement)

    def _obey(self, number, keyword, words, tail):
        action = getattr(self, '_' + keyword, None)
        try:
            if not action:
                raise ScoreError('no such statement')
            action(words, tail)
        except (ScoreError, KeyError, IndexError, ValueError) as error:
            place = f'{self.score.name}.score:{number}: {keyword}'
            raise ScoreError(f'{place}: {error}') from error

    # The head of the file

    def _title(self, _, tail):
        self.score.title = tail

    def _metre(self, words, _):
        self.score.quavers, self.score.pulse = int(words[0]), int(words[1])

    def _key(self, words, _):
        self.score.tonic, self.score.sharps = pitch_class(words[0]), int(words[1])

    def _mixing(self, words, _):
        self.score.mixing = {k: float(v) for k, v in (w.split('=') for w in words)}

    def _lilt(self, words, _):
        if len(words) != self.score.pulse:
            raise ScoreError(f'{len(words)} shares for {self.score.pulse} quavers')
        self.score.lilt = tuple(float(word) for word in words)

    def _part(self, words, _):
        name, level, pan = words
        if name.replace('_', ' ') not in ORCHESTRA:
            raise ScoreError(f'no instrument {name!r}')
        self.score.parts[name] = Part(name, float(level), float(pan))

    def _corners(self, tail):
        start = self.here.start if self.here else 0
        words = tail.split()
        return [((float(bar) - 1 + start) * self.score.quavers,
                 float(MARKS.get(value, value))) for bar, value in zip(words[::2], words[1::2])]

    def _tempo(self, _, tail):
        self.score.tempi += self._corners(tail)

    # Sections

    def _section(self, words, _):
        self.here = Section(words[0], self.score.bars, int(words[1]), self.score.tonic)
        self.score.sections.append(self.here)

    def _home(self, words, _):
        self.here.tonic = pitch_class(words[0])

    def _voices(self, words, _):
        self.here.register = (int(words[0]), int(words[1]))

    def _chords(self, _, tail):
        bars = split_bars(tail)
        if len(bars) != self.here.bars:
            raise ScoreError(f'{len(bars)} bars of chords in {self.here.bars} bars')
        for index, symbols in enumerate(bar.split() for bar in bars):
            for place, symbol in enumerate(symbols):
                at = (self.here.start + index + place / len(symbols)) * self.score.quavers
                self.score.chords.append((at, parse_chord(symbol)))

    # What the parts play

    def _options(self, words):
        """(part names, options, first bar, bars) of the words before a colon."""
        names, options, queue = [], {}, list(words)
        while queue:
            word = queue.pop(0)
            if word in NUMBERS:
                options[word] = float(queue.pop(0))
            elif word == 'tied':
                options[word] = True
            elif word in self.score.parts:
                names.append(word)
            else:
                raise ScoreError(f'no part {word!r}')
        first = options.pop('at', 1)
        count = options.pop('for', self.here.bars - first + 1)
        if first + count - 1 > self.here.bars:
            raise ScoreError(f'runs past the end of section {self.here.name}')
        return names, options, self.here.start + first - 1, count

    def _play(self, words, tail):
        names, options, bar, room = self._options(words)
        notes, bars = parse_notes(tail, self.score.sharps, self.score.quavers)
        if bars > room:
            raise ScoreError(f'{bars} bars where {room:g} are left')
        for name in names:
            self.score.parts[name].notes += [
                PartNote(bar * self.score.quavers + n.start, n.length,
                         n.pitch + int(options.get('up', 0)), n.push + options.get('push', 0.0),
                         n.gate or options.get('gate', 0.0), True, n.joins, n.joined)
                for n in notes]
        return names[0], int(bar), int(bar) + bars

    def _tune(self, words, tail):
        self.score.tunes.append(self._play(words, tail))

    def _comp(self, words, tail):
        names, options, bar, count = self._options(words)
        bars = range(int(bar), int(bar + count))
        arrange.accompany(self.score, names, bars, split_bars(tail), self._manner(options))

    def _roll(self, words, tail):
        names, options, bar, count = self._options(words)
        quavers = self.score.quavers
        arrange.roll(self.score, names, bar * quavers, count * quavers, tail.strip(),
                     self._manner(options))

    @staticmethod
    def _manner(options):
        return arrange.Manner(**{**options, 'up': int(options.get('up', 0))})

    def _dyn(self, words, tail):
        names = list(self.score.parts) if words == ['all'] else self._options(words)[0]
        for name in names:
            self.score.parts[name].dynamics.append(self._corners(tail))


def load(path):
    """The score of a file."""
    return ScoreFile(path.stem, path.read_text(encoding='utf-8')).score
