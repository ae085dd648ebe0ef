# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""What SDL_mixer plays without the game, written into a file by SDL's disk driver.

Nothing here depends on how fast that goes.
"""

import os
import subprocess
import time
from pathlib import Path

import numpy

RATE = 22050    # at which the mixer is opened
PATIENCE = 900  # seconds


def loaded_libraries(process):
    """The SDL libraries that a process has loaded, under their real names."""
    maps = Path(f"/proc/{process.pid}/maps").read_text().split()
    return {Path(word) for word in maps if "/libSDL-1.2.so" in word}


def output_rate(libraries):
    """The compatibility library opens the device at a rate of its own and converts."""
    return 44100 if any(".so.1.2." in library.name for library in libraries) else RATE


def first_sounds(raw, count, silent):
    """That many samples from the first sound on, or None if there are not so many yet."""
    if not raw.exists() or raw.stat().st_size < count * 4:
        return None
    samples = numpy.fromfile(raw, "<i2")
    samples = samples[:len(samples) // 2 * 2].reshape(-1, 2) / 32768
    # The mixer writes silence until the music begins, which takes long on a busy machine.
    sounding = (numpy.abs(samples) > silent).any(axis=1)
    start = int(sounding.argmax()) if sounding.any() else len(samples)
    return samples[start:start + count] if start + count <= len(samples) else None


def record(player, piece, seconds, *halt, delay="0", silent=0):
    """What the mixer plays from the first sound on, its rate and the SDL libraries in use."""
    raw, libraries, sound = piece.with_suffix(".raw"), set(), None
    environment = {**os.environ, "SDL_VIDEODRIVER": "dummy", "SDL_AUDIODRIVER": "disk",
                   "SDL_DISKAUDIOFILE": str(raw), "SDL_DISKAUDIODELAY": delay}
    with subprocess.Popen([player, piece, str(PATIENCE * 1000), *halt], env=environment,
                          stderr=subprocess.PIPE) as process:
        while process.poll() is None and sound is None:
            time.sleep(.05)
            libraries = libraries or loaded_libraries(process)
            rate = output_rate(libraries)
            sound = first_sounds(raw, int(seconds * rate), silent) if libraries else None
        process.kill()
        complaint = process.stderr.read().decode()
    raw.unlink(missing_ok=True)
    assert sound is not None, complaint
    return sound, rate, libraries
