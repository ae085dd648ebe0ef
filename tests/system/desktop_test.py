# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The game on a desktop as players have it: larger than the game, with a window manager.

The classic library shows its 800 x 600 pixels in the middle of the display, the compatibility
library scales them to its height.
"""

import os
import signal
import subprocess
import time

import numpy
import pytest
from PIL import Image
from Xlib import X, XK
from Xlib.display import Display
from Xlib.ext import xtest

from xserver import virtual_display

WIDTH, HEIGHT = 1920, 1080
GAME = (800, 600)
PATIENCE = 30  # seconds, for anything that is to happen
DESKTOP = (40, 90, 60)  # the colour of the empty desktop
SEED = 5
HELP_BUTTON, BATTLE_BUTTON = 1, 0
BUTTON_HEIGHT = 43
GAP = numpy.s_[5:495, 396:404]  # black in a battle, between the viewports
LEFT_VIEWPORT = numpy.s_[10:490, 10:390]


class Desktop:
    """A display with a window manager."""

    def __init__(self, name, scratch):
        self.environment = dict(os.environ, DISPLAY=name, XDG_CONFIG_HOME=str(scratch),
                                XDG_CACHE_HOME=str(scratch), XDG_DATA_HOME=str(scratch))
        self.environment.pop("WAYLAND_DISPLAY", None)
        self.display = Display(name)
        self.root = self.display.screen().root
        with open(scratch / "manager", "wb") as log:
            self.manager = subprocess.Popen(["openbox", "--sm-disable"], env=self.environment,
                                            stdout=log, stderr=log)

    def show(self):
        """Waits for the window manager and paints the empty desktop."""
        supporting = self.display.intern_atom("_NET_SUPPORTING_WM_CHECK")
        await_that(lambda: self.root.get_full_property(supporting, X.AnyPropertyType),
                   "the window manager is running")
        self.root.change_attributes(
            background_pixel=DESKTOP[0] << 16 | DESKTOP[1] << 8 | DESKTOP[2])
        self.root.clear_area()
        await_that(lambda: (self.picture() == DESKTOP).all(), "the desktop is shown")

    def open_window(self, x, y, width, height):
        """Another program's window, which takes the focus."""
        window = self.root.create_window(x, y, width, height, 0, X.CopyFromParent)
        window.map()
        self.display.sync()
        await_that(lambda: window.get_attributes().map_state == X.IsViewable, "a window is shown")
        window.configure(stack_mode=X.Above)
        self.focus(window)
        return window

    def focus(self, window):
        window.set_input_focus(X.RevertToParent, X.CurrentTime)
        self.display.sync()

    def picture(self):
        image = self.root.get_image(0, 0, WIDTH, HEIGHT, X.ZPixmap, 0xffffffff)
        pixels = numpy.frombuffer(image.data, numpy.uint8).reshape(HEIGHT, WIDTH, 4)
        return pixels[:, :, 2::-1].astype(int)

    def key(self, name, down):
        code = self.display.keysym_to_keycode(XK.string_to_keysym(name))
        xtest.fake_input(self.display, X.KeyPress if down else X.KeyRelease, code)
        self.display.sync()

    def tap(self, name):
        self.key(name, True)
        time.sleep(0.1)
        self.key(name, False)

    def point(self, x, y):
        xtest.fake_input(self.display, X.MotionNotify, x=round(x), y=round(y))
        self.display.sync()

    def click(self):
        xtest.fake_input(self.display, X.ButtonPress, 1)
        self.display.sync()
        time.sleep(0.1)
        xtest.fake_input(self.display, X.ButtonRelease, 1)
        self.display.sync()

    def close(self):
        self.display.close()
        self.manager.terminate()
        self.manager.wait()


def await_that(condition, what):
    end = time.monotonic() + PATIENCE
    while not condition():
        assert time.monotonic() < end, f"waited in vain until {what}"
        time.sleep(0.1)


class Game:
    """The game on a desktop, and where its pixels are."""

    def __init__(self, desktop, options, is_compat, scratch):
        self.desktop, self.options = desktop, options
        scale = HEIGHT / GAME[1] if is_compat else 1
        self.scale = scale
        self.width, self.height = round(GAME[0] * scale), round(GAME[1] * scale)
        self.left, self.top = (WIDTH - self.width) // 2, (HEIGHT - self.height) // 2
        data = os.path.join(options.root, "data")
        self.painting = numpy.asarray(
            Image.open(os.path.join(data, "pozadie-lode3.png")).convert("RGB")).astype(int)
        with Image.open(os.path.join(data, "logo.png")) as logo, \
                Image.open(os.path.join(data, "menu.png")) as panel:
            self.middle_of_buttons = logo.height + panel.height // 2
        environment = dict(desktop.environment, SDL_VIDEODRIVER="x11", SDL_AUDIODRIVER="dummy",
                           SDL_RENDER_DRIVER="software", SDL_FRAMEBUFFER_ACCELERATION="0",
                           LD_PRELOAD=options.fixed_time, MORVANE_FIXED_TIME=str(SEED))
        self.messages = scratch / "messages"
        self.environment = environment
        self.process = None

    def start(self):
        with open(self.messages, "wb") as log:
            self.process = subprocess.Popen([self.options.binary], cwd=self.options.root,
                                            env=self.environment, stdout=log, stderr=log)

    def picture(self):
        """The game's own 800 x 600 pixels as they are shown."""
        shown = self.desktop.picture()
        rows = (self.top + (numpy.arange(GAME[1]) + 0.5) * self.scale).astype(int)
        columns = (self.left + (numpy.arange(GAME[0]) + 0.5) * self.scale).astype(int)
        return shown[numpy.ix_(rows, columns)]

    def border(self):
        """What is shown around the game."""
        shown = self.desktop.picture()
        shown[self.top:self.top + self.height, self.left:self.left + self.width] = 0
        return shown

    def shows_menu(self):
        corner = numpy.s_[560:595, 5:60]  # the painting, clear of logo and panel
        return abs(self.picture()[corner] - self.painting[corner]).mean() < 4

    def shows_text(self):
        picture = self.picture()
        return (picture == 0).all(axis=2).mean() > 0.9 and (picture > 200).any()

    def shows_battle(self):
        picture = self.picture()
        return picture[GAP].max() == 0 and picture[LEFT_VIEWPORT].max(axis=2).min() > 0

    def point_at_button(self, number):
        y = self.middle_of_buttons + (number - 2) * BUTTON_HEIGHT + BUTTON_HEIGHT // 2
        self.desktop.point(self.left + 400 * self.scale, self.top + y * self.scale)

    def skip_intro(self):
        await_that(self._skipped, "the menu is shown")

    def _skipped(self):
        self.desktop.tap("x")
        time.sleep(0.5)
        return self.shows_menu()

    def start_battle(self):
        self.point_at_button(BATTLE_BUTTON)
        time.sleep(0.3)
        self.desktop.click()
        await_that(self.shows_battle, "a battle is shown")

    def sails(self):
        """Whether the left viewport, which follows ship 1, changes within half a second."""
        before = self.picture()[LEFT_VIEWPORT]
        time.sleep(0.5)
        return (self.picture()[LEFT_VIEWPORT] != before).any()

    def finish(self):
        """Ends the game from the menu; its exit status and messages."""
        self.desktop.tap("Escape")
        status = self.process.wait(PATIENCE)
        return status, self.messages.read_text()

    def kill(self):
        if self.process is not None and self.process.poll() is None:
            self.process.send_signal(signal.SIGKILL)
            self.process.wait()


@pytest.fixture(name="desktop")
def make_desktop(tmp_path):
    with virtual_display(f"{WIDTH}x{HEIGHT}") as name:
        desktop = Desktop(name, tmp_path)
        try:
            desktop.show()
            yield desktop
        finally:
            desktop.close()


@pytest.fixture(name="game")
def make_game(desktop, request, tmp_path):
    game = Game(desktop, request.config.option, "sdl12-compat" in os.environ.get(
        "LD_LIBRARY_PATH", ""), tmp_path)
    yield game
    game.kill()


def test_fills_the_display_and_leaves_it_as_it_was(desktop, game):
    game.start()
    game.skip_intro()
    assert game.border().max() == 0
    assert game.finish() == (0, "")
    await_that(lambda: (desktop.picture() == DESKTOP).all(), "the desktop is as it was before")
    geometry = desktop.root.get_geometry()
    assert (geometry.width, geometry.height) == (WIDTH, HEIGHT)
    other = desktop.open_window(10, 10, 50, 40)
    assert desktop.display.get_input_focus().focus.id == other.id


def test_the_pointer_hits_the_buttons(desktop, game):
    game.start()
    game.skip_intro()
    for number in (3, HELP_BUTTON):
        top = game.middle_of_buttons + (number - 2) * BUTTON_HEIGHT
        button = slice(top, top + BUTTON_HEIGHT)
        before = game.picture()[button]
        game.point_at_button(number)
        await_that(lambda: (abs(game.picture()[button] - before) > 8).any(),
                   f"button {number} lights up")
    desktop.click()
    await_that(game.shows_text, "the help screen is shown")
    assert game.border().max() == 0
    desktop.tap("Escape")
    await_that(game.shows_menu, "the menu is shown again")
    assert game.finish() == (0, "")


def test_a_battle_plays(desktop, game):
    game.start()
    game.skip_intro()
    game.start_battle()
    assert game.border().max() == 0
    await_that(lambda: not game.sails(), "both ships lie still")
    desktop.key("w", True)
    await_that(game.sails, "ship 1 sails")
    desktop.key("w", False)
    await_that(lambda: not game.sails(), "ship 1 has come to rest")
    desktop.tap("Escape")
    await_that(game.shows_menu, "the menu is shown again")
    assert game.finish() == (0, "")


# The classic library leaves the full screen while another window has the focus.
def test_keys_do_not_stay_pressed_when_another_window_takes_the_focus(desktop, game):
    game.start()
    game.skip_intro()
    game.start_battle()
    for key in ("w", "a"):
        desktop.key(key, True)
    await_that(game.sails, "ship 1 sails")
    other = desktop.open_window(10, 10, 50, 40)
    for key in ("w", "a"):
        desktop.key(key, False)
    time.sleep(1)
    other.destroy()
    desktop.display.sync()
    await_that(game.shows_battle, "the battle fills the display again")
    await_that(lambda: game.border().max() == 0, "nothing else is shown")
    await_that(lambda: not game.sails(), "ship 1 has come to rest")
    desktop.key("w", True)
    await_that(game.sails, "ship 1 sails again")
    desktop.key("w", False)
    desktop.tap("Escape")
    await_that(game.shows_menu, "the menu is shown again")
    assert game.finish() == (0, "")
