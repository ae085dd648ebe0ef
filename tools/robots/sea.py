# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The battlefield that results from a seed of the random generator. Pilots do not know it."""

import ctypes

from .chart import overlap
from .see import SHIP, WORLD

BARRIER_TYPES = (0,) + (1,) * 3 + (2,) * 9


class Random:
    """The C library's own generator, with a state separate from that of this process."""

    def __init__(self, seed):
        self.library = ctypes.CDLL(None)
        self.library.initstate.restype = ctypes.c_void_p
        self.library.setstate.argtypes = [ctypes.c_void_p]
        self.library.setstate.restype = ctypes.c_void_p
        self.library.random.restype = ctypes.c_long
        # 128 bytes select the generator that rand() and random() use after srand().
        self.state = ctypes.create_string_buffer(128)
        before = self.library.initstate(ctypes.c_uint(seed), self.state, 128)
        self.library.setstate(before)

    def below(self, bound):
        before = self.library.setstate(ctypes.addressof(self.state))
        value = self.library.random() % bound
        self.library.setstate(before)
        return value


class Sea:
    """Barriers as (x, y, w, h), start places and headings of the first battle after srand(seed)."""

    def __init__(self, seed, artwork):
        self.seed = seed
        self.artwork = artwork
        self.random = Random(seed)
        self.random.below(2)  # picks the music
        self.barriers = []
        for kind in BARRIER_TYPES:
            self.barriers.append(self._place_barrier(artwork.barriers[kind].shape))
        self.starts, self.headings = [], []
        for _ in (1, 2):
            self.headings.append(self.random.below(20) / 5)
            self.starts.append(self.place_ship())
        (x1, y1), (x2, y2) = self.starts
        if x1 == x2 or y1 == y2:
            self.starts[1] = self.place_ship()

    def _place_barrier(self, shape):
        h, w = shape[:2]
        while True:
            x = self.random.below(WORLD - w)
            y = self.random.below(WORLD - h)
            if not any(overlap((x, y, w, h), other) for other in self.barriers):
                return x, y, w, h

    def place_ship(self):
        """The next random place of a ship, as a teleport picks it."""
        while True:
            x = self.random.below(7) * 100 + 100
            y = self.random.below(7) * 100 + 100
            if self.is_free(x, y):
                return x, y

    def is_free(self, x, y, margin=0):
        wide = (x - margin, y - margin, SHIP + 2 * margin, SHIP + 2 * margin)
        return not any(overlap(wide, barrier) for barrier in self.barriers)
