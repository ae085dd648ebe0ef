# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""What the system tests share: the game's pictures, and a way to start the real game."""

import contextlib
from pathlib import Path

import pytest

from robots.artwork import Artwork
from robots.screens import Guide
from robots.see import Lookout
from robots.stage import Stage
from robots.text import Writer

PROJECT = Path(__file__).resolve().parents[2]


def pytest_addoption(parser):
    parser.addoption("--binary", default=str(PROJECT / "build/test/morvane"))
    parser.addoption("--root", default=str(PROJECT), help="where the game is started")
    parser.addoption("--fixed-time", default=None, help="the library that stops its clock")
    parser.addoption("--recorder", default=None, help="the library that writes a session down")
    parser.addoption("--replay", default=None, help="the program that replays sessions")


@pytest.fixture(scope="session")
def root(request):
    return request.config.getoption("--root")


@pytest.fixture(scope="session")
def artwork(root):
    return Artwork(root)


@pytest.fixture(scope="session")
def lookout(artwork):
    return Lookout(artwork)


@pytest.fixture(scope="session")
def writer(root):
    return Writer(root)


@pytest.fixture
def play(request, root, artwork, writer, lookout):
    """Starts the game and leads it; afterwards it must have ended well, by what the test did."""
    options = request.config.option

    @contextlib.contextmanager
    def start(seed=1):
        with Stage(options.binary, root, seed, options.fixed_time) as stage:
            yield Guide(stage, artwork, writer, lookout)
            status, messages = stage.finish()
            assert messages == ""
            assert status == 0

    return start
