# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The orchestra: presets of the soundfont, written ranges, and how each one speaks.

Samples take from 2 (a dulcimer) to over 400 ms (slow basses) to reach half of their level; soft
notes take longer, and keys differ.  attacks.txt holds that time for every key at three velocities,
as ../attacks measured it; notes start that much ahead of the beat, and are heard on it.  `early`
is the same for drums.
`vibrato` is in cents; `colour` is half of the dB by which the treble of the loudest dynamics is
over that of the softest.
"""
from dataclasses import dataclass, field, replace
from pathlib import Path
from statistics import median

import numpy as np

ATTACKS = Path(__file__).with_name('attacks.txt')
ATTACK_VELOCITIES = (50, 80, 110)
USUAL = ATTACK_VELOCITIES.index(80)

# General MIDI programs that are bowed or blown.
SUSTAINING = (20, 21, 22, 23, 40, 41, 42, 43, 48, 49, *range(56, 80), 109, 110)

# Key 48 of the taiko preset sounds at MIDI 34.18, and a key is half a semitone.
TAIKO_KEY, TAIKO_PITCH, TAIKO_KEYS_PER_SEMITONE = 48, 34.18, 2


@dataclass(frozen=True)
class Instrument:
    """bank and program of the preset; lowest and highest key; timing and tone."""
    bank: int
    program: int
    low: int
    high: int
    jitter: float = 5.0
    gate: float = 0.93
    highpass: float = 60.0
    bells: tuple = ()
    reverb: float = -9.0
    width: float = 1.0
    channel: int = 0
    early: float = 0.0
    attacks: tuple = ()
    vibrato: float = 0.0
    colour: float = 0.0
    strokes: dict = field(default_factory=dict)

    def lead(self, key, velocity):
        """Milliseconds by which a key is struck before it should be heard."""
        if not self.attacks:
            return self.early
        index = min(max(key, self.low), self.high) - self.low
        return float(np.interp(velocity, ATTACK_VELOCITIES, [row[index] for row in self.attacks]))

    @property
    def usual_lead(self):
        """The median of all keys at the middle velocity."""
        return median(self.attacks[USUAL]) if self.attacks else self.early

    @property
    def sustains(self):
        """True if a held note can swell: bowed and blown instruments."""
        return self.pitched and self.program in SUSTAINING

    @property
    def pitched(self):
        """False for drums, whose strokes are no part of the harmony."""
        return not self.strokes


def _drum(**more):
    return {'channel': 9, 'low': 0, 'high': 127, 'early': 0.0, 'jitter': 2.5, **more}


def taiko_key(pitch):
    """Key on which the taiko sample sounds a pitch."""
    return round(TAIKO_KEY + TAIKO_KEYS_PER_SEMITONE * (pitch - TAIKO_PITCH))


_PRESETS = {
    'piccolo': Instrument(0, 72, 74, 103, 6, .9, 400, (), -8, vibrato=12, colour=4),
    'recorder': Instrument(0, 74, 60, 98, 6, .95, 300, (), -8, vibrato=10, colour=6),
    'flute': Instrument(0, 73, 60, 96, 7, .95, 240, (), -7, vibrato=16, colour=8),
    'oboe': Instrument(0, 68, 58, 91, 7, .96, 220, ((3000, 1.0),), -7, vibrato=14, colour=21.5),
    'clarinet': Instrument(0, 71, 50, 89, 7, .96, 140, (), -8, vibrato=5, colour=8),
    'bassoon': Instrument(0, 70, 34, 72, 6, .9, 70, (), -10, vibrato=10, colour=8),
    'horns': Instrument(0, 60, 41, 77, 8, .97, 90, ((1500, 1.0),), -6, vibrato=5, colour=8.5),
    'trumpets': Instrument(0, 56, 55, 84, 6, .9, 160, (), -8, vibrato=8, colour=6),
    'trombones': Instrument(0, 57, 38, 72, 7, .93, 70, (), -8, vibrato=6, colour=6),
    'tuba': Instrument(0, 58, 26, 58, 6, .88, 36, (), -10, colour=6),
    'harp': Instrument(0, 46, 24, 103, 9, 1.6, 50, ((2500, 1.5),), -8, colour=2),
    'fiddle': Instrument(0, 110, 55, 98, 5, .93, 180, ((3000, 1.5), (450, -1.5)), -11, .9,
                         vibrato=14, colour=9),
    'violins': Instrument(20, 48, 55, 100, 6, .92, 170, colour=13),
    'violins2': Instrument(25, 48, 55, 96, 7, .92, 150, colour=9),
    'violas': Instrument(30, 48, 48, 84, 7, .92, 120, colour=8),
    'celli': Instrument(40, 48, 36, 76, 6, .92, 60, ((220, -1.5),), -10, colour=7),
    'basses': Instrument(50, 48, 28, 60, 6, .88, 36, (), -13, .8, colour=6),
    'slow violins': Instrument(20, 49, 55, 98, 8, .99, 170, colour=10),
    'slow violins2': Instrument(25, 49, 55, 96, 8, .99, 150, colour=8),
    'slow violas': Instrument(30, 49, 48, 84, 8, .99, 120, colour=8),
    'slow celli': Instrument(40, 49, 36, 76, 8, .99, 60, ((220, -1.0),), -9, colour=7),
    'slow basses': Instrument(50, 49, 28, 60, 8, .99, 36, (), -12, .8, colour=6),
    'pizzicato': Instrument(40, 45, 36, 76, 4, .9, 60, (), -12, colour=2),
    'violin pizzicato': Instrument(20, 45, 55, 96, 5, .9, 160, (), -10, colour=2),
    'dulcimer': Instrument(0, 15, 55, 96, 5, 1.2, 160, (), -10),
    'glockenspiel': Instrument(0, 9, 72, 108, 5, 2.0, 500, (), -8),
    'timpani': Instrument(0, 47, 36, 55, 3, 1.5, 40, (), -9, colour=3),
    'taiko': Instrument(0, 116, reverb=-11, width=.8, highpass=38, bells=((90, 1.5),),
                        strokes={'L': ('low', 14), 'X': ('high', 8), 'x': ('high', -14),
                                 'o': ('high', -34)}, **_drum(channel=0)),
    'snare': Instrument(0, 56, reverb=-11, width=.9, highpass=150, bells=((220, -2.0),),
                        strokes={'X': (50, 10), 'x': (50, -6), 'o': (50, -42), 'd': (48, -2),
                                 'R': (52, 22)}, **_drum()),
    'cymbals': Instrument(0, 58, reverb=-9, highpass=300, gate=8.0,
                          strokes={'X': (72, 10), 'x': (72, -18)}, **_drum()),
    'suspended cymbal': Instrument(0, 48, reverb=-7, highpass=300, gate=4.0,
                                   strokes={'X': (57, 6), 'x': (59, -6)}, **_drum()),
    'side drum': Instrument(0, 48, reverb=-8, highpass=150,
                            strokes={'X': (38, 10), 'x': (38, -10), 'o': (40, -34)}, **_drum()),
    'triangle': Instrument(0, 48, reverb=-7, highpass=800, gate=4.0,
                           strokes={'T': (81, 8), 't': (80, -10), 'B': (84, -4)}, **_drum()),
    'tambourine': Instrument(0, 48, reverb=-9, highpass=250, gate=1.5,
                             strokes={'b': (54, 4), 'o': (54, -24)}, **_drum()),
    'shaker': Instrument(0, 48, reverb=-8, highpass=500, gate=1.5,
                         strokes={'s': (82, 4), 'x': (69, -16)}, **_drum()),
    'surf': Instrument(0, 122, reverb=-12, highpass=120, gate=1.3,
                       strokes={'w': (60, 0)}, **_drum(channel=0, early=350.0, jitter=60)),
    'bass drum': Instrument(8, 116, reverb=-9, highpass=30,
                            strokes={'X': (36, 14), 'x': (36, -10)}, **_drum(channel=0)),
}


def _with_attacks(presets):
    text = ATTACKS.read_text(encoding='utf-8').replace('\n ', ' ')
    table = dict(line.split(' : ') for line in text.splitlines() if not line.startswith('#'))
    result = {}
    for name, instrument in presets.items():
        # Drums have no rows, and a new instrument has none until ../attacks has measured it.
        rows = [table.get(f'{name} {velocity}', '').split() for velocity in ATTACK_VELOCITIES]
        attacks = tuple(tuple(map(int, row)) for row in rows if row)
        result[name] = replace(instrument, attacks=attacks)
    return result


ORCHESTRA = _with_attacks(_PRESETS)
