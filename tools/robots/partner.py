# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Lets one pilot play against a person, in a window on the desktop. Started by tools/partner."""

import math
import sys
import time
from pathlib import Path

from .artwork import Artwork
from .match import Match
from .see import Lookout
from .stage import StageError
from .strengths import STRENGTHS, Partner
from .window import Window

PROJECT = Path(__file__).resolve().parents[2]
SIDES = {"left": "A, D, W, Tab or Space, Z", "right": "arrow keys, Enter, Delete"}
BETWEEN_BATTLES = 0.05  # seconds between two looks


def accompany(window, lookout, player, strength):
    """Plays one side in every battle that the person begins, until the game ends."""
    while window.game.poll() is None:
        if not lookout.is_battle(window.picture()):
            time.sleep(BETWEEN_BATTLES)
            continue
        match = Match(window, lookout, (None, None))
        match.pilots[player] = Partner(player, STRENGTHS[strength])
        match.run(math.inf)


def play(side, strength):
    player = 1 - list(SIDES).index(side)
    lookout = Lookout(Artwork(PROJECT))
    print(f"You sail the {side} ship ({SIDES[side]}) against a {strength} opponent. Choose the top "
          "button of the menu to begin.", flush=True)
    title = f"Morvane: you sail the {side} ship against a {strength} opponent"
    with Window(PROJECT / "build/play/morvane", PROJECT, title) as window:
        try:
            accompany(window, lookout, player, strength)
        except StageError:
            pass  # the game ended in the middle of a battle
        if window.is_closed():
            return 0
        status = window.game.wait()
        if status != 0:
            sys.stderr.write(window.messages())
        return 1 if status else 0


def main():
    try:
        return play(*sys.argv[1:])
    except StageError as problem:
        print(f"The opponent cannot play: {problem}.", file=sys.stderr)
        return 1


if __name__ == "__main__":
    sys.exit(main())
