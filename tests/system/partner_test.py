# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The partner, in a window that fills a virtual desktop; a script presses the person's keys."""

import math
import os
import subprocess
import time

import pytest
from Xlib import display

from robots.chart import Chart
from robots.press import KEYS
from robots.screens import NEW_GAME, Guide
from robots.see import Lookout
from robots.stage import Stage

PARTNER = "tools/partner"
PATIENCE = 120  # seconds; a busy machine may take long
SAILED = 60  # pixels
TURNED = 25  # changes of the ship's picture; a busy machine does not show them all


@pytest.fixture
def sit_down(root, tmp_path, artwork, writer):
    """Starts the partner on a desktop of its own. The game fills it, pixel by pixel."""

    def start(*arguments):
        script = tmp_path / "partner"
        script.write_text(f"#!/bin/sh\nexec {PARTNER} {' '.join(arguments)} >{tmp_path}/said\n")
        script.chmod(0o755)
        stage = Stage(script, root)
        return stage, Guide(stage, artwork, writer, Lookout(artwork))

    return start


def begin_battle(guide):
    guide.stage.wait_for(lambda picture: (picture != 0).sum() > 2000, "the intro", PATIENCE)
    guide.stage.tap("x")
    guide.await_menu()
    guide.seek(NEW_GAME)
    guide.stage.tap("Return")
    guide.await_battle()


def watch(guide, condition, what):
    """Looks until the condition holds for the chart of the battle."""
    chart = Chart(guide.lookout)

    def holds(picture):
        halves = guide.lookout.read(picture)
        if halves is not None:
            chart.update(time.monotonic(), halves)
        return chart.is_complete and condition(chart)

    guide.stage.wait_for(holds, what, PATIENCE)


def has_sailed(player):
    starts = []

    def condition(chart):
        starts.append(chart.ships[player].place)
        return math.dist(starts[0], starts[-1]) > SAILED

    return condition


@pytest.mark.parametrize("side, strength", [("left", "fierce"), ("right", "calm")])
def test_partner_sails_and_fires_while_the_person_sails(sit_down, tmp_path, side, strength):
    person = ("left", "right").index(side)
    stage, guide = sit_down(side, strength)
    with stage:
        begin_battle(guide)
        watch(guide, has_sailed(1 - person), "the partner's ship under way")
        watch(guide, lambda chart: chart.ships[1 - person].dial < 30, "a shot of the partner's")
        for key in ("forward", "left"):
            stage.press(KEYS[person][key])
        watch(guide, has_sailed(person), "the person's ship under way")
        # Held, because the battle never sees a key that goes down and up within one frame.
        stage.press(KEYS[person]["fire"])
        watch(guide, lambda chart: chart.ships[person].dial < 30, "a shot of the person's")
        for key in ("forward", "left", "fire"):
            stage.release(KEYS[person][key])
        stage.tap("Escape")
        guide.await_menu()
        stage.tap("q")
        assert stage.finish(PATIENCE) == (0, "")
    said = (tmp_path / "said").read_text().splitlines()
    assert f"You sail the {side} ship" in said[-1] and strength in said[-1]


def test_held_key_stays_held_although_the_desktop_repeats_it(sit_down):
    stage, guide = sit_down("right", "calm")
    with stage:
        begin_battle(guide)
        stage.press("Right")
        phases = []

        def turned(chart):
            phases.append(chart.ships[1].phase)
            return sum(a != b for a, b in zip(phases, phases[1:])) > TURNED

        watch(guide, turned, "the person's ship turning on")
        # Every key that is lost and found again would show as a pause after the first few turns.
        stage.release("Right")
        stage.tap("Escape")
        guide.await_menu()
        stage.tap("q")
        assert stage.finish(PATIENCE) == (0, "")


def test_closing_the_window_ends_the_game(sit_down):
    stage, guide = sit_down("left", "brisk")
    with stage:
        begin_battle(guide)
        close_window(stage.display.name)
        assert stage.finish(PATIENCE) == (0, "")


def close_window(name):
    """Does what a window manager does: Xephyr's window does not offer to close by itself."""
    desktop = display.Display(name)
    for window in desktop.screen().root.query_tree().children:
        if window.get_wm_name():
            window.kill_client()
    desktop.sync()
    desktop.close()


def start_without_desktop(*arguments, **changes):
    environment = {name: value for name, value in os.environ.items()
                   if name not in ("DISPLAY", "WAYLAND_DISPLAY")}
    return subprocess.run([PARTNER, *arguments], env={**environment, **changes}, check=False,
                          capture_output=True, text=True, timeout=300)


def test_without_a_display_the_partner_says_so():
    result = start_without_desktop()
    assert result.returncode == 1
    assert "no X display" in result.stderr
    result = start_without_desktop(WAYLAND_DISPLAY="wayland-0")
    assert "Xwayland" in result.stderr


def test_a_display_that_cannot_be_opened_is_named():
    result = start_without_desktop(DISPLAY=":4711")
    assert result.returncode == 1
    assert "no window can be opened on the X display :4711" in result.stderr
    assert "Traceback" not in result.stderr


def test_unknown_words_are_answered_with_the_usage():
    result = start_without_desktop("middle")
    assert result.returncode == 2
    assert result.stderr.startswith("Usage: tools/partner")
