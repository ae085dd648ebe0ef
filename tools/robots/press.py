# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Holds the keys of one player as the pilot wishes."""

import threading
import time

KEYS = (
    {"left": "a", "right": "d", "forward": "w", "fire": "Tab", "fire2": "space", "teleport": "z"},
    {"left": "Left", "right": "Right", "forward": "Up", "fire": "Return", "fire2": "Return",
     "teleport": "Delete"},
)
# Seconds from a release to the next press: the game ignores a press in the frame of the release.
APART = 0.04
# Seconds for which a fire key stays down, so that at least one frame of the game sees it.
SHORTEST = 0.05


class Hands:
    """Keeps the keys that are down equal to those that the pilot wishes to hold."""

    def __init__(self, stage, player):
        self.stage = stage
        self.keys = KEYS[player]
        self.wanted = frozenset()
        self.turn_until = 0.0
        self.pressed = {}  # key: when
        self.released = {}
        self.lock = threading.Lock()

    def wish(self, wish):
        """Accepts the pilot's wish. move() carries it out, here and whenever it is called."""
        with self.lock:
            self.wanted = wish.keys
            self.turn_until = time.monotonic() + wish.turn
        self.move()

    def move(self):
        """Presses and releases the keys that are due. Call it often."""
        with self.lock:
            self._move()

    def _move(self):
        now = time.monotonic()
        keys = {self.keys[action] for action in self.wanted
                if action not in ("left", "right") or now < self.turn_until}
        for key in [key for key in self.pressed if key not in keys]:
            if now - self.pressed[key] >= (SHORTEST if key not in self._helm() else 0):
                del self.pressed[key]
                self.released[key] = now
                self.stage.release(key)
        for key in keys - set(self.pressed):
            if now - self.released.get(key, 0.0) >= APART:
                self.pressed[key] = now
                self.stage.press(key)

    def _helm(self):
        return self.keys["left"], self.keys["right"]

    def let_go(self):
        """Releases every key."""
        with self.lock:
            self.wanted = frozenset()
            for key in list(self.pressed):
                del self.pressed[key]
                self.stage.release(key)


class Fingers:
    """Calls move() of the hands all the time, so that turns end on time however long a look takes.

    A context manager: the keys are released at its end.
    """

    PAUSE = 0.008  # seconds

    def __init__(self, hands):
        self.hands = hands
        self.done = threading.Event()
        self.thread = threading.Thread(target=self._move, daemon=True)

    def __enter__(self):
        self.thread.start()
        return self

    def __exit__(self, *_):
        self.done.set()
        self.thread.join()
        for hands in self.hands:
            hands.let_go()

    def _move(self):
        while not self.done.wait(self.PAUSE):
            for hands in self.hands:
                hands.move()
