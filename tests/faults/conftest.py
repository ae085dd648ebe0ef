# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The fixtures of the fault tests: the program, the library that watches it, a data directory."""

import fcntl
import shutil
from dataclasses import dataclass
from pathlib import Path

import pytest

import gamerun
import smalldata

PROJECT = Path(__file__).resolve().parents[2]
DATA = PROJECT / "data"


def pytest_addoption(parser):
    parser.addoption("--binary", default=str(PROJECT / "build/test/morvane"))
    parser.addoption("--watch", required=True, help="the library that watches the calls")
    parser.addoption("--counts", help="a file to add counts to, as lines of name and value")
    parser.addoption("--sdl", help="the SDL library it must be: classic or compat")
    parser.addoption("--thread-binary", help="the program built with the thread sanitizer")
    parser.addoption("--long", action="store_true", help="play the long session")
    parser.addoption("--share", type=int, default=1, help="run one case of so many broken files")


@dataclass
class Game:
    """The program under test."""
    binary: str
    watch: str

    def play(self, root, script, **settings):
        return gamerun.play(self.binary, self.watch, root, script, MORVANE_QUICK=1, **settings)


@pytest.fixture(scope="session", autouse=True)
def library_asked_for(request):
    """Checks that the SDL library is the one in the tests' names."""
    options = request.config.option
    if options.sdl:
        assert gamerun.sdl_library(options.binary) == options.sdl


@pytest.fixture(scope="session", name="game")
def game_under_test(request):
    options = request.config.option
    # The loader would look for a relative name in the directory the game starts in.
    return Game(str(Path(options.binary).resolve()), str(Path(options.watch).resolve()))


@pytest.fixture(scope="session", name="root")
def directory_to_start_in(tmp_path_factory):
    """Holds a whole data directory of small files."""
    root = tmp_path_factory.mktemp("root")
    smalldata.make(root / "data", PROJECT / "tests/support/data")
    return root


@pytest.fixture(scope="session", name="report")
def counts(request):
    """Prints a count, and keeps it for later reports."""
    options = request.config.option

    def add(name, value):
        full_name = f"faults.{name}.{gamerun.sdl_library(options.binary)}"
        print(full_name, value)
        if options.counts:
            keep_count(Path(options.counts), full_name, value)

    return add


def keep_count(file, name, value):
    """Replaces the count of an earlier run. Several tests may do this at the same time."""
    with open(file, "a+", encoding="utf-8") as stream:
        fcntl.flock(stream, fcntl.LOCK_EX)
        stream.seek(0)
        kept = [line for line in stream if line.split()[0] != name]
        stream.truncate(0)
        stream.writelines(sorted([*kept, f"{name} {value}\n"]))


@pytest.fixture(scope="session", name="real_data")
def the_games_own_data(tmp_path_factory):
    root = tmp_path_factory.mktemp("real")
    shutil.copytree(DATA, root / "data")
    return root
