# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Plays the real game by a script, with a library preloaded that watches its library calls.

callwatch.cpp describes that library, script.h the steps of a script.
"""

import ctypes
import os
import re
import shlex
import subprocess
import tempfile
from dataclasses import dataclass
from pathlib import Path

# Seconds. Long enough that a busy machine does not look like a game that hangs.
PATIENCE = 300
# A quick run spends most of its time waiting for the sound device to close.
AT_ONCE = 6

# SDL's numbers of the keys.
KEYS = {"return": 13, "escape": 27, "space": 32, "up": 273, "down": 274, "left": 276, "a": 97,
        "q": 113, "tab": 9, "w": 119, "f5": 286}


@dataclass(frozen=True)
class Call:
    """A line of the journal."""
    function: str
    arguments: str
    result: str
    failed: bool
    marks: tuple

    @staticmethod
    def read(line):
        call, _, result = line.partition(" -> ")
        _, function, *words = call.split(" ")
        marks = tuple(word[5:] for word in words if word.startswith("mark:"))
        words = [word for word in words if word != "FAILS" and not word.startswith("mark:")]
        return Call(function, " ".join(words), result, call.endswith(" FAILS"), marks)

    def __str__(self):
        return f"{self.function} {self.arguments}".strip()


@dataclass(frozen=True)
class Outcome:
    """How a run ended: its status, negative for a signal, None for one that had to be ended."""
    status: int
    messages: str
    calls: list

    def marks(self):
        """The sample frames that had been heard at each mark of the script."""
        pairs = [mark.rsplit(":", 1) for call in self.calls for mark in call.marks]
        return {name: int(heard) for name, heard in pairs}


def tap(key):
    return f"down={KEYS[key]} up={KEYS[key]} frames=1 "


def choose(entry):
    """From a fresh main menu to one of its entries, counted from 0, and into it."""
    return tap("down") * (entry + 1) + tap("return")


def sdl_library(binary):
    """Which SDL library the program runs on here, by the way each names its file."""
    loaded = subprocess.run(["ldd", binary], check=True, capture_output=True, encoding="utf-8")
    file = re.search(r"libSDL-1\.2\.so\.0 => (\S+)", loaded.stdout)[1]
    return "compat" if ".so.1.2." in Path(file).resolve().name else "classic"


def seed_of_track(track):
    """A seed with which the first battle plays that track."""
    library = ctypes.CDLL(None)
    for seed in range(100):
        library.srand(seed)
        if 2 + library.rand() % 2 == track:
            return seed
    raise AssertionError("no seed")


def with_ear(pipe):
    """Settings with which the script decides how much sound is made; see hearing.h."""
    if not pipe.exists():
        os.mkfifo(pipe)
    return {"SDL_AUDIODRIVER": "disk", "SDL_DISKAUDIOFILE": pipe, "SDL_DISKAUDIODELAY": 0,
            "MORVANE_EAR": pipe}


def environment_of(watch, journal, script, settings):
    environment = {**os.environ, "LD_PRELOAD": str(watch), "MORVANE_CALLS": str(journal),
                   "MORVANE_SCRIPT": script, "SDL_VIDEODRIVER": "dummy"}
    environment.setdefault("SDL_AUDIODRIVER", "dummy")
    # The watch has to come before the libraries, and so before the sanitizer's own.
    environment["ASAN_OPTIONS"] = "verify_asan_link_order=0"
    return {**environment, **{name: str(value) for name, value in settings.items()}}


def play(binary, watch, root, script, launcher="", patience=PATIENCE, **settings):
    """Runs the game in a directory to its end; settings are further environment variables."""
    with tempfile.TemporaryDirectory(prefix="morvane-") as folder:
        journal = Path(folder) / "calls"
        environment = environment_of(watch, journal, script, settings)
        command = [*shlex.split(launcher), str(binary)]
        with subprocess.Popen(command, cwd=root, env=environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT) as process:
            try:
                output = process.communicate(timeout=patience)[0]
                status = process.returncode
            except subprocess.TimeoutExpired:
                process.kill()
                output, status = process.communicate()[0], None
        lines = journal.read_text("utf-8").splitlines() if journal.exists() else []
    return Outcome(status, output.decode("utf-8", "replace"),
                   [Call.read(line) for line in lines])
