# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""A piece: sections, chords, and the notes of every part, in quavers from the start."""
from dataclasses import dataclass, field

import numpy as np

from .harmony import lead_voices
from .instruments import ORCHESTRA

DEFAULT_REGISTER = (55, 76)  # of the three upper parts of the accompaniment


@dataclass(frozen=True)
class PartNote:
    """Start and length in quavers, MIDI key, loudness offset in velocity steps.

    gate is the share of its length that it is held, 0 for the instrument's own; written is
    true for a line of the score, false for accompaniment made from a figure; joins and joined
    tell of slurs to the next note and from the one before.
    """
    start: float
    length: float
    key: int
    push: float
    gate: float
    written: bool
    joins: bool = False
    joined: bool = False

    @property
    def end(self):
        """Quaver at which it ends on paper."""
        return self.start + self.length


@dataclass
class Part:
    """An instrument of the piece: level in dB, place from -1 (left) to 1, what it plays.

    dynamics holds one list of (quaver, level) corners for each statement about it.
    """
    name: str
    level: float
    pan: float
    notes: list = field(default_factory=list)
    dynamics: list = field(default_factory=list)

    @property
    def instrument(self):
        """How the part sounds."""
        return ORCHESTRA[self.name.replace('_', ' ')]


@dataclass
class Section:
    """A stretch of bars; tonic tunes its drums, register bounds its upper parts."""
    name: str
    start: int
    bars: int
    tonic: int
    register: tuple = DEFAULT_REGISTER


@dataclass
class Score:
    """What a score file says.

    quavers are those in a bar, pulse those in a pulse; tempi are (quaver, pulses a minute);
    chords are (quaver, chord), settings their four pitches each; tunes are (part, first bar,
    bar after the last); lilt says for every quaver of a pulse how much later than on paper it
    comes, in shares of the pulse.
    """
    name: str
    title: str = ''
    quavers: int = 8
    pulse: int = 2
    sharps: int = 0
    tonic: int = 0
    parts: dict = field(default_factory=dict)
    sections: list = field(default_factory=list)
    tempi: list = field(default_factory=list)
    chords: list = field(default_factory=list)
    settings: list = field(default_factory=list)
    tunes: list = field(default_factory=list)
    mixing: dict = field(default_factory=dict)
    lilt: tuple = ()

    @property
    def bars(self):
        """Length of the piece in bars."""
        return self.sections[-1].start + self.sections[-1].bars if self.sections else 0

    @property
    def length(self):
        """Length of the piece in quavers."""
        return self.bars * self.quavers

    def section_at(self, quaver):
        """Section that holds a quaver."""
        return [s for s in self.sections if s.start * self.quavers <= quaver + 1e-6][-1]

    def lead(self):
        """Finds the settings of the chords."""
        registers = [self.section_at(at).register for at, _ in self.chords]
        self.settings = lead_voices([chord for _, chord in self.chords], registers)

    def setting_at(self, quaver):
        """(chord, four-part setting) sounding at a quaver."""
        index = max(i for i, (at, _) in enumerate(self.chords) if at <= quaver + 1e-6)
        return self.chords[index][1], self.settings[index]

    def tempo_at(self, quaver):
        """Pulses a minute at a quaver."""
        return float(np.interp(quaver, *zip(*self.tempi)))
