# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""What the tests of sound share: the game's mix in a file, and what each track sounds like."""

import os
import re
import shutil
import subprocess
import time
from dataclasses import dataclass
from pathlib import Path

import numpy
import pytest

import gamerun
import listening
import smalldata

PROJECT = Path(__file__).resolve().parents[2]
# The compatibility library opens the device as it likes and converts.
RATES = {"classic": listening.RATE, "compat": 44100}
SAMPLES = PROJECT / "tests/support/data"
DATA = {"tones": PROJECT / "tests/sound/data", "pieces": PROJECT / "data"}
HEARD = 20     # seconds of each track, longer than any test plays it
PATIENCE = 60  # seconds


def pytest_addoption(parser):
    parser.addoption("--binary", default=str(PROJECT / "build/test/morvane"))
    parser.addoption("--watch", required=True, help="the library that leads the game")
    parser.addoption("--player", required=True, help="plays a file through the mixer, no more")
    parser.addoption("--sdl", help="the SDL library it must be: classic or compat")


@pytest.fixture(scope="session", name="sdl")
def library_under_test(request):
    options = request.config.option
    library = gamerun.sdl_library(options.binary)
    assert options.sdl in (None, library)
    return library


def sound_of(raw):
    if not raw.exists():
        return []
    return listening.without_silence_before(listening.read_mix(raw))


def played(player, track, rate, folder):
    """What the mixer makes of a track without the game, from its first sound on."""
    raw = folder / "reference.raw"
    environment = {**os.environ, "SDL_VIDEODRIVER": "dummy",
                   "SDL_AUDIODRIVER": "disk", "SDL_DISKAUDIOFILE": str(raw),
                   "SDL_DISKAUDIODELAY": "1"}
    with subprocess.Popen([player, track, str(PATIENCE * 1000)], env=environment,
                          stderr=subprocess.PIPE) as process:
        # The mixer writes silence until the track is loaded, on a busy machine for long.
        sound = []
        while process.poll() is None and len(sound) < HEARD * rate:
            time.sleep(.05)
            sound = sound_of(raw)
        process.kill()
        complaint = process.stderr.read().decode()
    sound = sound_of(raw)
    raw.unlink()
    assert len(sound) >= HEARD * rate, complaint
    return sound[:HEARD * rate]


@dataclass
class Theatre:
    """The game in a data directory whose tracks are known."""
    binary: str
    watch: str
    root: Path
    tracks: dict
    rate: int

    def play(self, script, **settings):
        """How it went, and the mix. Steps of the script may also be seconds of sound."""
        script = re.sub(r"seconds=(\d+)", lambda step: f"heard={int(step[1]) * self.rate}", script)
        raw = self.root / "mix.raw"
        raw.unlink(missing_ok=True)
        ear = gamerun.with_ear(self.root / "ear")
        outcome = gamerun.play(self.binary, self.watch, self.root, script, MORVANE_QUICK=1,
                               MORVANE_MIX=raw, **{**ear, **settings})
        mix = listening.read_mix(raw) if raw.exists() else numpy.zeros(0)
        return outcome, mix

    def listen(self, script, **settings):
        """The stretches of tracks that are heard, the marks in samples of the mix, and the mix."""
        outcome, mix = self.play(script, **settings)
        assert outcome.status == 0, outcome.messages
        return listening.stretches(mix, self.tracks), outcome.marks(), mix


@pytest.fixture(scope="module", name="theatre", params=DATA)
def theatre_with_tracks(request, sdl, tmp_path_factory):
    options, root = request.config.option, tmp_path_factory.mktemp(request.param)
    smalldata.make(root / "data", SAMPLES)
    for name in smalldata.TRACKS:
        shutil.copy(DATA[request.param] / name, root / "data" / name)
    tracks = {number: played(options.player, root / "data" / name, RATES[sdl], root)
              for number, name in enumerate(smalldata.TRACKS, 1)}
    binary, watch = (str(Path(file).resolve()) for file in (options.binary, options.watch))
    return Theatre(binary, watch, root, tracks, RATES[sdl])
