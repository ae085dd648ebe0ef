# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The menu with its focus, and the help and credits screens that open from it."""

import time

from robots.artwork import BUTTON_HEIGHT, BUTTON_WIDTH, difference
from robots.screens import CREDITS_BUTTON, HELP_BUTTON, PARKED, QUIT

LEFT, RIGHT, WHEEL_UP, WHEEL_DOWN = 1, 3, 4, 5
BUTTONS = range(4)


def test_keys_and_wheel_move_the_focus_round_the_buttons(play):
    with play() as guide:
        guide.skip_intro()
        for button in (0, 1, 2, 3, 0):
            guide.stage.tap("Down")
            guide.await_menu(button)
        for button in (3, 2):
            guide.stage.tap("Up")
            guide.await_menu(button)
        for wheel, button in ((WHEEL_UP, 1), (WHEEL_DOWN, 2)):
            guide.stage.click(wheel)
            guide.await_menu(button)
        guide.stage.tap("Escape")


def test_pointer_moves_and_removes_the_focus(play):
    with play() as guide:
        guide.skip_intro()
        for button in BUTTONS:
            x, y = guide.artwork.button_places[button]
            # In the last row and column of the button, where the arrow covers the next one.
            guide.stage.point(x + BUTTON_WIDTH - 1, y + BUTTON_HEIGHT - 1)
            guide.stage.wait_for(lambda picture: focused_button(guide, picture) == button,
                                 f"focus {button} under the pointer")
        guide.stage.point(*PARKED)
        guide.await_menu()
        guide.stage.tap("Escape")


def focused_button(guide, picture):
    """The one button that looks highlighted while all others look normal, or None."""
    highlighted = [button for button in BUTTONS if looks(guide, picture, button, button)]
    normal = [button for button in BUTTONS if looks(guide, picture, button, None)]
    return highlighted[0] if len(highlighted) == 1 and len(normal) == 3 else None


def looks(guide, picture, button, focus):
    """True when the left half of the button, clear of the pointer, looks like that."""
    place = half_button(guide, button)
    return difference(picture[place], guide.menu_picture(focus)[place]) < 1


def half_button(guide, button):
    x, y = guide.artwork.button_places[button]
    return slice(y, y + BUTTON_HEIGHT), slice(x, x + BUTTON_WIDTH // 2)


def test_help_and_credits_open_by_key_and_leave_by_key(play):
    with play() as guide:
        guide.skip_intro()
        for key in ("Escape", "Return", "space"):
            guide.choose(HELP_BUTTON)
            guide.await_help()
            guide.stage.tap(key)
            guide.await_menu()
        guide.choose(CREDITS_BUTTON)
        guide.await_credits()
        guide.stage.tap("Escape")
        guide.await_menu()
        guide.stage.tap("Escape")


def test_help_and_credits_open_by_mouse_and_leave_by_mouse(play):
    with play() as guide:
        guide.skip_intro()
        open_by_mouse(guide, HELP_BUTTON)
        guide.stage.point(*PARKED)
        guide.await_help()
        guide.stage.click(RIGHT)
        guide.await_menu()
        open_by_mouse(guide, CREDITS_BUTTON)
        guide.stage.point(*PARKED)
        guide.await_credits()
        guide.stage.click(LEFT)
        guide.await_menu()
        guide.stage.tap("Escape")


def open_by_mouse(guide, button):
    guide.point_at(button)
    guide.stage.wait_for(lambda picture: looks(guide, picture, button, button), "focus")
    guide.stage.click(LEFT)


def test_first_click_without_focus_only_focuses(play):
    with play() as guide:
        guide.skip_intro()
        guide.stage.click(RIGHT)
        guide.stage.click(LEFT)
        guide.await_menu(0)
        # Only the left button chooses: a battle does not begin.
        guide.stage.click(RIGHT)
        time.sleep(0.2)
        guide.await_menu(0)
        guide.stage.click(LEFT)
        guide.await_battle()
        guide.stage.tap("Escape")
        guide.await_menu()
        guide.stage.tap("Escape")


def test_battle_waits_for_the_release_of_the_key(play):
    with play() as guide:
        guide.skip_intro()
        guide.focus(0)
        guide.stage.press("space")
        time.sleep(0.2)
        guide.await_menu(0)
        guide.stage.release("space")
        guide.await_battle()
        guide.stage.tap("Escape")
        guide.await_menu()
        guide.stage.tap("Escape")


def test_quit_button_ends_by_mouse(play):
    with play() as guide:
        guide.skip_intro()
        open_by_mouse(guide, QUIT)
