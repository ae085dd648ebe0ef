# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The game in a window on the desktop, with the keys of a person and a pilot at the same time.

Xephyr is an X server inside a window. On any desktop, its pixels are as exact as those of a virtual
display.
"""

import os
import re
import select
import signal
import subprocess
import threading
import time

import numpy
from Xlib import X, display
from Xlib.error import ConnectionClosedError, DisplayConnectionError
from Xlib.ext import xtest

from .stage import HEIGHT, WIDTH, Stage, StageError, stop_process

ALL_PLANES = 0xFFFFFFFF
# A desktop repeats a held key as a release with a press right after it. A release counts only if no
# press has followed within this time.
RELEASE_AFTER = 0.015  # seconds
CLOSING = 5  # seconds that the server of a closed window may take to end after the game


class WindowDisplay:
    """An X server in a window of the desktop."""

    def __init__(self, title):
        reader, writer = os.pipe()
        self.process = subprocess.Popen(
            ["Xephyr", "-displayfd", str(writer), "-screen", f"{WIDTH}x{HEIGHT}", "-title", title,
             "-nolisten", "tcp", "-noreset", "-no-host-grab"],
            pass_fds=[writer], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as number:
            self.name = ":" + number.readline().strip()
        if self.name == ":":
            raise StageError(f"no window can be opened on the X display {os.environ['DISPLAY']}")
        self.root = display.Display(self.name).screen().root
        self._copy_layout()

    def _copy_layout(self):
        """Gives the pilot's keyboard the layout of the person's keyboard."""
        said = subprocess.run(["setxkbmap", "-query"], capture_output=True, text=True, check=False)
        options = [word for name, value in re.findall(r"^(\w+): +(\S+)$", said.stdout, re.M)
                   for word in ("-" + name, value)]
        subprocess.run(["setxkbmap", "-display", self.name, *options], stderr=subprocess.DEVNULL,
                       check=False)

    def picture(self):
        # Deliberate: Pillow's screen grab is not used, because it crashes if the server ends.
        try:
            image = self.root.get_image(0, 0, WIDTH, HEIGHT, X.ZPixmap, ALL_PLANES)
        except ConnectionClosedError:
            raise StageError("the window was closed") from None
        return numpy.frombuffer(image.data, numpy.uint32).reshape(HEIGHT, WIDTH) & 0xFFFFFF

    def stop(self):
        stop_process(self.process, signal.SIGTERM)


class Person:
    """Passes the person's keys to the game through the keyboard that the pilot uses, too.

    With two keyboards, the window's server would announce a new keyboard to the game whenever the
    other player pressed a key. Besides, the desktop's key repetition would make the game lose keys
    that are held.
    """

    def __init__(self, name):
        environment = dict(os.environ, DISPLAY=name)
        said = subprocess.run(["xinput", "list"], env=environment, capture_output=True, text=True,
                              check=True).stdout
        device = re.search(r"Xephyr virtual keyboard\s+id=(\d+)", said).group(1)
        subprocess.run(["xinput", "float", device], env=environment, check=True)
        self.connection = display.Display(name)
        self.connection.change_keyboard_control(auto_repeat_mode=X.AutoRepeatModeOff)
        self.process = subprocess.Popen(["xinput", "test", device], env=environment,
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.down = set()
        self.releases = {}  # key: when its release counts
        threading.Thread(target=self._pass_on, daemon=True).start()

    def _pass_on(self):
        source, unread = self.process.stdout.fileno(), b""
        try:
            while True:
                if select.select([source], [], [], RELEASE_AFTER / 3)[0]:
                    text = os.read(source, 4096)
                    if not text:
                        return
                    *lines, unread = (unread + text).split(b"\n")
                    for line in lines:
                        self._hear(line.split())
                self._release()
        except (ConnectionClosedError, DisplayConnectionError, OSError):
            pass  # the window was closed; WindowDisplay.picture reports that

    def _hear(self, words):
        if len(words) < 3 or words[0] != b"key":
            return
        key = int(words[2])
        if words[1] == b"release":
            self.releases[key] = time.monotonic() + RELEASE_AFTER
            return
        self.releases.pop(key, None)
        if key not in self.down:
            self.down.add(key)
            self._send(X.KeyPress, key)

    def _release(self):
        now = time.monotonic()
        for key in [key for key, due in self.releases.items() if due <= now]:
            del self.releases[key]
            self.down.discard(key)
            self._send(X.KeyRelease, key)

    def _send(self, kind, key):
        xtest.fake_input(self.connection, kind, key)
        self.connection.flush()

    def stop(self):
        stop_process(self.process, signal.SIGTERM)


class Window(Stage):
    """The game in a window on the desktop, with sound."""

    def __init__(self, binary, root, title):
        super().__init__(binary, root)
        self.title = title
        self.person = None

    def _open_display(self):
        shown = WindowDisplay(self.title)
        self.person = Person(shown.name)
        return shown

    def _environment(self):
        environment = super()._environment()
        del environment["SDL_AUDIODRIVER"]
        if "SDL_AUDIODRIVER" in os.environ:
            environment["SDL_AUDIODRIVER"] = os.environ["SDL_AUDIODRIVER"]
        return environment

    def _do(self, command):
        try:
            super()._do(command)
        except BrokenPipeError:
            pass  # the window was closed

    def is_closed(self):
        """True when the person has closed the window, which also ends the game."""
        try:
            self.display.process.wait(0 if self.game.poll() == 0 else CLOSING)
            return True
        except subprocess.TimeoutExpired:
            return False

    def _clear(self):
        if self.person is not None:
            self.person.stop()
        super()._clear()
