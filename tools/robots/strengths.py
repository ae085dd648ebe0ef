# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The strengths of the opponent in tools/partner: how often it decides and how well it aims."""

import math
import random
from collections import namedtuple

from .think import BRISK, Pilot, Wish

# interval: seconds from one decision to the next; error: standard deviation, in radians, of the
# pilot's error about its own heading; spread and patience: as in think.Style.
Strength = namedtuple("Strength", "interval error spread patience")
STRENGTHS = {
    "calm": Strength(interval=0.5, error=0.16, spread=0.0, patience=60),
    "brisk": Strength(interval=0.25, error=0.06, spread=0.02, patience=55),
    "fierce": Strength(interval=0.0, error=0.0, spread=0.06, patience=55),
}
MISJUDGED_FOR = 1.0  # seconds until the error changes


class Partner(Pilot):
    """A pilot with one of these strengths."""

    def __init__(self, player, strength, choice=random):
        super().__init__(player, BRISK._replace(spread=strength.spread,
                                                patience=strength.patience))
        self.strength = strength
        self.choice = choice
        self.error, self.error_until = 0.0, -math.inf
        self.decided = -math.inf

    def decide(self, chart, lag=0.04):
        passed = chart.time - self.decided
        if passed < self.strength.interval:
            return Wish(self.wish.keys, max(0.0, self.wish.turn - passed))
        self.decided = chart.time
        return super().decide(chart, lag)

    def _estimate_heading(self, time, me, lag):
        super()._estimate_heading(time, me, lag)
        if time > self.error_until:
            self.error = self.choice.gauss(0, self.strength.error)
            self.error_until = time + MISJUDGED_FOR
        self.heading += self.error
