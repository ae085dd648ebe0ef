# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The ways out of the program. Each must end with status 0 and without a message."""

import pytest


@pytest.mark.parametrize("key", ["Escape", "q"])
def test_key_ends_from_the_menu(play, key):
    with play() as guide:
        guide.skip_intro()
        guide.stage.tap(key)


def test_closing_the_window_ends_from_the_intro(play):
    with play() as guide:
        guide.await_first_picture()
        guide.stage.close_window()


def test_closing_the_window_ends_from_the_menu(play):
    with play() as guide:
        guide.skip_intro()
        guide.stage.close_window()


def test_closing_the_window_ends_from_the_battle(play):
    with play() as guide:
        guide.skip_intro()
        guide.start_battle()
        guide.stage.close_window()
