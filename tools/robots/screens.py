# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Finds the way through the screens around the battle: recognises them and presses their keys."""

import contextlib
import time
from functools import lru_cache

from .artwork import BUTTON_HEIGHT, BUTTON_WIDTH, difference, likeness
from .stage import NeverSeen
from .text import CREDITS_TITLE, HELP, game_over

NEW_GAME, HELP_BUTTON, CREDITS_BUTTON, QUIT = range(4)
# The least share of equal pixels at which two pictures count as the same; blending may differ.
SAME = 0.9995
MORE_THAN_A_POINTER = 2000  # pixels that are not black, so that the game must have drawn them
# Where the invisible pointer rests without focusing a button: at the lower edge of the display.
PARKED = (397, 598)


class Guide:
    """Leads the game from screen to screen. Every step waits until its screen is seen."""

    def __init__(self, stage, artwork, writer, lookout):
        self.stage = stage
        self.artwork = artwork
        self.writer = writer
        self.lookout = lookout
        self.menu_picture = lru_cache(maxsize=None)(artwork.menu)
        self.text_picture = lru_cache(maxsize=None)(writer.screen)

    def shows_menu(self, picture, focus=None):
        return is_same(picture, self.menu_picture(focus))

    def shows_text(self, picture, lines):
        return is_same(picture, self.text_picture(lines))

    def await_first_picture(self):
        """Waits for the intro and moves the pointer to a place where it focuses no button."""
        self.stage.wait_for(lambda picture: (picture != 0).sum() > MORE_THAN_A_POINTER,
                            "the first picture", 40)
        # Classic SDL 1.2 has moved the pointer to the middle, onto the menu's buttons.
        self.stage.point(*PARKED)

    def await_menu(self, focus=None):
        self.stage.wait_for(lambda picture: self.shows_menu(picture, focus),
                            f"the menu with focus {focus}")

    def await_text(self, lines):
        self.stage.wait_for(lambda picture: self.shows_text(picture, lines), lines[0][1])

    def await_help(self):
        self.await_text(HELP)

    def await_credits(self):
        self.stage.wait_for(self.shows_credits, "the credits")

    def shows_credits(self, picture):
        """True for the expected title line with three lines of names below it on black."""
        title = self.text_picture((CREDITS_TITLE,))
        height = self.writer.write("X").shape[0]
        end = 300 - height // 2 - height
        names = [picture[300 - height // 2 + height * line:][:height] for line in (0, 1, 2)]
        return (is_same(picture[:end], title[:end])
                and all((name == 0xFFFFFF).sum() > 50 for name in names)
                and difference(picture[500:], title[500:]) < 1)

    def await_game_over(self, winners=(1, 2)):
        """Waits until one of the winners is named, and returns that winner."""
        return self.stage.wait_for(lambda picture: next(
            (winner for winner in winners if self.shows_text(picture, game_over(winner))), None),
            f"one of {winners} named as the winner")

    def await_battle(self):
        self.stage.wait_for(self.lookout.is_battle, "the battle")

    def skip_intro(self):
        self.await_first_picture()
        self.stage.tap("x")
        self.await_menu()

    def focus(self, button):
        """Focuses a button, step by step, in a menu that has no focus yet."""
        for step in range(button + 1):
            self.stage.tap("Down")
            self.await_menu(step)

    def choose(self, button):
        self.focus(button)
        self.stage.tap("Return")

    def seek(self, button, timeout=20):
        """Focuses a button, wherever the focus is and even if a key press gets lost."""
        deadline = time.monotonic() + timeout
        while self.focus_shown(self.stage.picture()) != button:
            if time.monotonic() > deadline:
                raise NeverSeen(f"never seen in {timeout} s: the menu with focus {button}")
            before = self.focus_shown(self.stage.picture())
            self.stage.tap("Down")
            with contextlib.suppress(NeverSeen):
                self.stage.wait_for(
                    lambda picture, before=before:
                    self.focus_shown(picture) not in (before, "fading"), "a change of focus", 3)

    def focus_shown(self, picture):
        """The focused button of a menu, None for a menu without a focus, or "fading"."""
        for focus in (None, 0, 1, 2, 3):
            if self.shows_menu(picture, focus):
                return focus
        return "fading"

    def recognise(self, picture):
        """The name of the screen that a picture shows, or None if the screen is not at rest."""
        if self.focus_shown(picture) != "fading":
            return "menu"
        if self.lookout.is_battle(picture):
            return "battle"
        if self.shows_text(picture, HELP):
            return "help"
        if self.shows_credits(picture):
            return "credits"
        for winner in (1, 2):
            if self.shows_text(picture, game_over(winner)):
                return f"game over {winner}"
        return None

    def start_battle(self):
        self.choose(NEW_GAME)
        self.await_battle()

    def point_at(self, button):
        x, y = self.artwork.button_places[button]
        self.stage.point(x + BUTTON_WIDTH // 2, y + BUTTON_HEIGHT // 2)


def is_same(picture, expected):
    """True when all but a few pixels agree. A coarse comparison first rejects most others fast."""
    few = slice(None, None, 8)
    return (likeness(picture[few, few], expected[few, few]) > 0.99
            and likeness(picture, expected) >= SAME)
