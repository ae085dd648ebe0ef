# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Renders MIDI parts with the soundfont and folds them into a circle."""
import hashlib
import subprocess
import warnings

import numpy as np
from scipy.io import wavfile

from .performance import LEAD_SECONDS

SOUNDFONT = '/usr/share/sounds/sf2/MuseScore_General_Full.sf2'
RATE = 44100
SYNTH = ['fluidsynth', '-ni', '-q', '-R', '0', '-C', '0', '-g', '0.6', '-r', str(RATE),
         '-o', 'synth.polyphony=512', '-o', 'synth.cpu-cores=1', '-O', 'float', '-T', 'wav']


def render(midi, wav):
    """Renders unless the sound of exactly these notes is there already."""
    key = wav.with_suffix('.sha256')
    digest = hashlib.sha256(midi.read_bytes() + ' '.join(SYNTH).encode()).hexdigest()
    if wav.exists() and key.exists() and key.read_text() == digest:
        return
    key.unlink(missing_ok=True)  # an interrupted rendering must not count
    subprocess.run(SYNTH + ['-F', wav, SOUNDFONT, midi], check=True,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    key.write_text(digest)


def read(wav):
    """Samples of a stereo file, as floats."""
    with warnings.catch_warnings():
        # The synthesiser adds a chunk with its name, which the reader skips.
        warnings.simplefilter('ignore', wavfile.WavFileWarning)
        return wavfile.read(wav)[1]


def circle(samples, length):
    """What sounds past the end goes on at the beginning, and what is early at the end."""
    lead = round(LEAD_SECONDS * RATE)
    loop = np.zeros((length, 2), np.float32)
    loop[-lead:] = samples[:lead]
    for start in range(lead, len(samples), length):
        rest = samples[start:start + length]
        loop[:len(rest)] += rest
    return loop
