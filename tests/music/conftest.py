# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The fixtures of the music tests: the player, the game's mix in a file, and the known tracks."""

import functools
import re
import shutil
from dataclasses import dataclass
from pathlib import Path

import numpy
import pytest

import gamerun
import listening
import mixrecording
import smalldata

PROJECT = Path(__file__).resolve().parents[2]
SAMPLES = PROJECT / "tests/support/data"
DATA = {"tones": PROJECT / "tests/music/tones", "pieces": PROJECT / "data"}
HEARD = 20  # seconds of each track, longer than any test plays it


def pytest_addoption(parser):
    parser.addoption("--binary", default=str(PROJECT / "build/test/morvane"))
    parser.addoption("--watch", help="the library that is preloaded")
    parser.addoption("--player", help="only plays a file through the mixer")
    parser.addoption("--sdl", help="the SDL library it must be: classic or compat")


@pytest.fixture(scope="session", name="recording")
def recording_of_the_player(request):
    """Records what the player plays of a file; see mixrecording.record."""
    player = request.config.option.player
    if player is None:
        pytest.skip("needs the player, --player")
    return functools.partial(mixrecording.record, player)


@dataclass
class Game:
    """The game in a data directory whose tracks are known."""
    binary: str
    watch: str
    root: Path
    tracks: dict
    rate: int

    def play(self, script, **settings):
        """Plays a script with steps seconds=N of sound, too; returns the outcome and the mix."""
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


@pytest.fixture(scope="module", name="game", params=DATA)
def game_with_tracks(request, recording, tmp_path_factory):
    options, root = request.config.option, tmp_path_factory.mktemp(request.param)
    assert options.sdl in (None, gamerun.sdl_library(options.binary))
    smalldata.make(root / "data", SAMPLES)
    for name in smalldata.TRACKS:
        shutil.copy(DATA[request.param] / name, root / "data" / name)
    tracks = {}
    for number, name in enumerate(smalldata.TRACKS, 1):
        sound, rate, _ = recording(root / "data" / name, HEARD, delay="1", silent=listening.SILENT)
        tracks[number] = sound[:, 0]
    binary, watch = (str(Path(file).resolve()) for file in (options.binary, options.watch))
    return Game(binary, watch, root, tracks, rate)
