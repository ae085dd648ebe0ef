# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""A whole session under Valgrind and ThreadSanitizer: no misused memory and no data race.

From the intro through the menu, help, credits and a battle to the end, with music. The long form
sees the intro out and sails for half a minute.
"""

import re
import shutil
from dataclasses import dataclass
from pathlib import Path

import pytest

import gamerun
from gamerun import KEYS, choose, tap
from calls_test import faults_of_releases

SLIP = 3   # what valgrind ends with after an error
RACE = 66  # the same of the thread sanitizer
PATIENCE = 800
SUPPRESSIONS = Path(__file__).resolve().parents[1] / "valgrind.supp"


@dataclass(frozen=True)
class Length:
    """How long the parts of a session are, in frames, and how much is heard of each track."""
    intro: str
    battle: int
    heard: int


SHORT = Length("frames=4 " + tap("f5"), 12, 8192)
LONG = Length("frames=605 ", 1800, 100000)


def session(length):
    battle = f"down={KEYS['w']} down={KEYS['up']} down={KEYS['a']} " + tap("space") + tap("return")
    heard = f"heard={length.heard} "
    return (length.intro + heard + "frames=3 " + choose(1) + "frames=2 " + tap("escape") +
            choose(2) + "frames=2 " + tap("escape") + choose(0) + "frames=2 " + heard + battle +
            f"frames={length.battle} " + heard + tap("escape") + "frames=3 " + heard + "quit")


@pytest.fixture(name="playing")
def a_session(request, game, real_data, tmp_path):
    """Plays it under a watcher; afterwards everything must have been given back."""
    options = request.config.option
    length = LONG if options.long else SHORT

    def play(binary, launcher, **settings):
        outcome = gamerun.play(binary, game.watch, real_data, session(length), launcher=launcher,
                               patience=PATIENCE, MORVANE_QUICK=1, MORVANE_FIXED_TIME=1,
                               **gamerun.with_ear(tmp_path / "ear"), **settings)
        screens = {call.arguments.partition(" ")[2] for call in outcome.calls
                   if call.function == "TTF_RenderText_Blended"}
        assert {"'Enjoy!'", "'This program was made by:'"} <= screens
        assert "surface:1300x1300" in {call.result for call in outcome.calls}
        assert faults_of_releases(outcome.calls) == []
        return outcome

    return play


@pytest.mark.skipif(not shutil.which("valgrind"), reason="needs valgrind")
def test_no_slip_of_memory(playing, game, report, tmp_path):
    log = tmp_path / "memcheck"
    outcome = playing(game.binary, f"valgrind --error-exitcode={SLIP} --leak-check=full "
                      f"--errors-for-leak-kinds=definite,possible --suppressions={SUPPRESSIONS} "
                      f"--log-file={log}")
    found = log.read_text("utf-8")
    errors = re.search(r"ERROR SUMMARY: (\d+) errors", found)[1]
    report("memcheck.errors", errors)
    assert (outcome.status, errors) == (0, "0"), found


def test_no_race_between_threads(request, playing, report):
    binary = request.config.option.thread_binary
    if not binary:
        pytest.skip("needs the game built for it")
    # Addresses that change from run to run can lie where the sanitizer has its own. SDL 2 takes two
    # of its locks in both orders, always on the main thread; the game has no lock to get stuck on.
    outcome = playing(Path(binary).resolve(), "setarch --addr-no-randomize",
                      TSAN_OPTIONS=f"exitcode={RACE}:report_signal_unsafe=0:"
                                   "detect_deadlocks=0")
    races = outcome.messages.count("WARNING: ThreadSanitizer")
    report("threads.races", races)
    assert (outcome.status, races) == (0, 0), outcome.messages
