# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Measures the seam of a loop in what SDL_mixer really plays."""
import os
import subprocess
import time

import numpy as np

from .loopmp3 import RATE

WINDOW = 12000           # samples compared around the loop's border, near the start of the file
QUIET = 2e-3
PATIENCE = 900           # seconds after which the player gives up


def build_player(source, target):
    """Compiles the player against the installed libraries."""
    flags = subprocess.run(['sdl-config', '--cflags', '--libs'], check=True,
                           stdout=subprocess.PIPE).stdout.decode().split()
    subprocess.run(['cc', '-o', target, source, *flags, '-lSDL_mixer'], check=True)


def record(player, piece, raw, seconds):
    """That many seconds of what the mixer plays, as floats, faster than real time."""
    raw.unlink(missing_ok=True)
    environment = dict(os.environ, SDL_VIDEODRIVER='dummy', SDL_AUDIODRIVER='disk',
                       SDL_DISKAUDIOFILE=str(raw), SDL_DISKAUDIODELAY='1')
    wanted = int(seconds * RATE) * 4
    process = subprocess.Popen([player, piece, str(PATIENCE * 1000)], env=environment,
                               stderr=subprocess.DEVNULL)
    while process.poll() is None and not (raw.exists() and raw.stat().st_size >= wanted):
        time.sleep(.1)
    process.terminate()
    process.wait()
    data = np.fromfile(raw, '<i2')
    if len(data) * 2 < wanted:
        raise SystemExit(f'{piece}: no whole round was played in {PATIENCE} s')
    return data[:len(data) // 2 * 2].reshape(-1, 2) / 32768


def _lag(part, whole):
    size = 1 << (len(whole) + len(part)).bit_length()
    product = np.fft.rfft(whole, size) * np.conj(np.fft.rfft(part, size))
    return int(np.argmax(np.fft.irfft(product, size)[:len(whole) - len(part)]))


def _longest_run(flags):
    longest = run = 0
    for flag in flags:
        run = run + 1 if flag else 0
        longest = max(longest, run)
    return longest


def _error(heard, wanted):
    return 10 * np.log10(((heard - wanted) ** 2).sum() / (wanted ** 2).sum() + 1e-12)


def seam(played, loop, stream):
    """Gap in samples, longest near-silence, errors in dB around the seam.

    `loop` is the loop before encoding, `stream` the file's frames decoded twice without a break:
    against the stream the seam's own error shows, against the loop the encoder's, to be
    seen beside the median of all windows.
    """
    heard, source = played[:, 0], loop[:, 0]
    count, probe = len(source), 2 * RATE
    # Only near the beginning: a later, louder passage with the same notes would match better.
    known, beginning = source[probe:probe + 60000], probe + 100000
    start = _lag(known, heard[:beginning]) - probe
    first = start + probe
    second = _lag(heard[first:first + 60000], heard[first + count - 20000:first + count + 80000])
    unbroken = _lag(known, stream[:beginning, 0]) - probe + count
    around = heard[start + count - WINDOW // 2:start + count + WINDOW // 2]
    wanted = np.concatenate([source[-WINDOW // 2:], source[:WINDOW // 2]])
    errors = [_error(heard[start + at:start + at + WINDOW], source[at:at + WINDOW])
              for at in range(WINDOW, count - WINDOW, WINDOW)]
    return {'gap': second - 20000, 'silence ms': _longest_run(np.abs(around) < QUIET) / RATE * 1000,
            'added dB': _error(around, stream[unbroken - WINDOW // 2:unbroken + WINDOW // 2, 0]),
            'encoder dB': _error(around, wanted), 'median encoder dB': np.median(errors)}
