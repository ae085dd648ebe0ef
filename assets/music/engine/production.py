# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""From a score to the file the game plays."""
import numpy as np

from . import loopmp3, measure, mix, scorefile
from .command import score_path

TARGET_LUFS, NEAR_ENOUGH, ATTEMPTS = -16.0, 0.05, 8
TAG = {'TALB': 'Morvane', 'TPE1': 'The Morvane makers',
       'TCOP': '2026 The Morvane makers, CC-BY-4.0'}


def _master(score, loop):
    """The loop as loud as it should be, at the game's rate."""
    loop, decibels = mix.tone(score, loop), 0.0
    for _ in range(ATTEMPTS):
        samples, least = mix.drive(loop, decibels)
        heard = measure.loudness_of(samples)
        if abs(heard - TARGET_LUFS) <= NEAR_ENOUGH:
            break
        decibels += TARGET_LUFS - heard
    print(f'  limiter at most {20 * np.log10(least):.1f} dB')
    return samples


def produce(name, folder):
    """The bytes of a piece; what lies between score and file stays in the folder."""
    score = scorefile.load(score_path(name))
    clock = mix.loop_clock(score)
    print(f'{name}: {score.title}, {score.bars} bars, {clock.total:.2f} s', flush=True)
    parts = mix.render_parts(score, clock, folder)
    loop, energy = mix.mix(score, clock, folder, parts)
    samples = _master(score, loop)
    np.save(folder / 'loop.npy', samples.astype(np.float32))
    np.savez(folder / 'energies.npz', **energy)
    quality = ['-V', f'{score.mixing["quality"]:g}', '--vbr-new']
    return loopmp3.cut(samples, quality, loopmp3.tag({'TIT2': score.title, **TAG}))
