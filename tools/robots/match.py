# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Runs a duel of two pilots from picture to picture, and keeps statistics."""

import time

import numpy

from .chart import Chart, HITS, UNDER_WAY
from .press import Fingers, Hands
from .stage import LOOK_INTERVAL, StageError
from .think import EVEN, Pilot

# The battle is over after this many pictures in a row that do not show it. A single such picture
# may just show half a frame.
BATTLE_IS_OVER = 5
# Seconds after which an unchanged picture counts as a new one, because ships may be at rest.
REPEAT = 0.1
LOOKS_APART = 0.035  # seconds at least between two looks; more would cost time and gain little
DELAY = 0.02  # seconds until the effect of a key shows on the display


class Match:
    """Looks at the display, lets the pilots decide, and presses their keys. A pilot may be None."""

    def __init__(self, stage, lookout, styles=EVEN):
        self.stage = stage
        self.lookout = lookout
        self.chart = Chart(lookout)
        self.pilots = [style and Pilot(player, style) for player, style in enumerate(styles)]
        self.hands = [Hands(stage, player) for player in (0, 1)]
        self.watchers = []  # called with each new picture of the battle
        self.statistics = Statistics()
        self.without_battle = 0
        self.last = None
        self.lag = 0.04  # seconds from a picture to the keys that answer it, on average

    @property
    def is_over(self):
        return self.without_battle >= BATTLE_IS_OVER

    def step(self):
        """Looks once; returns True when there was a new picture of the battle."""
        time.sleep(max(0.0, min(LOOKS_APART, self.chart.time + LOOKS_APART - time.monotonic())))
        picture = self.stage.picture()
        if self.stage.game.poll() is not None:
            raise StageError("the game ended in battle: " + self.stage.messages())
        now = time.monotonic()
        same = self.last is not None and numpy.array_equal(picture, self.last)
        if same and now - self.chart.time < REPEAT:
            time.sleep(LOOK_INTERVAL)
            return False
        self.last = picture
        halves = self.lookout.read(picture)
        if halves is None:
            self.without_battle += 1
            time.sleep(LOOK_INTERVAL)
            return False
        self.without_battle = 0
        self.chart.update(now, halves)
        self.statistics.note(self.chart)
        for pilot, hands in zip(self.pilots, self.hands):
            if pilot is not None:
                hands.wish(pilot.decide(self.chart, self.lag))
        self.lag += (time.monotonic() - now - self.lag + DELAY) / 8
        for watcher in self.watchers:
            watcher(picture)
        return True

    def run(self, timeout, until=lambda: False):
        """Fights until the battle is over, until() is true, or the time is up."""
        deadline = time.monotonic() + timeout
        with Fingers(self.hands):
            while not self.is_over and not until() and time.monotonic() < deadline:
                self.step()


class Statistics:
    """Statistics of a duel, from what was seen."""

    def __init__(self):
        self.began = self.now = None
        self.under_way = [0.0, 0.0]  # seconds
        self.hits = [0, 0]  # scored
        self.moving_hits = 0  # scored by a ship that was under way when it fired
        self.pictures = 0

    def note(self, chart):
        if not chart.is_complete:
            return
        if self.began is None:
            self.began = self.now = chart.time
        for player, ship in enumerate(chart.ships):
            if ship.speed >= UNDER_WAY:
                self.under_way[player] += chart.time - self.now
            scored = chart.ships[1 - player].hits - self.hits[player]
            self.hits[player] += scored
            self.moving_hits += scored * (ship.fired_at >= UNDER_WAY)
        self.now = chart.time
        self.pictures += 1

    def summary(self, winner=None):
        """The results as a dictionary. The last hit is never seen, but the winner has it."""
        seconds = max(0.001, (self.now or 0) - (self.began or 0))
        return {"winner": winner, "seconds": round(seconds, 1),
                "hits": [HITS if winner == player + 1 else hits
                         for player, hits in enumerate(self.hits)],
                "hits counted": sum(self.hits), "moving hits": self.moving_hits,
                "under way": [round(share / seconds, 3) for share in self.under_way],
                "pictures per second": round(self.pictures / seconds, 1)}
