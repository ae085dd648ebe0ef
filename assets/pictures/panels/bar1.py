# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Player 1's panel: crimson, a sun on a shield, crest before the words.

To change: colour, crest and words in the one call below; the layout is in plate.py.
"""
from common.raster import to_solid
from panels.emblems import shield, sun
from panels.plate import panel


def make(_work):
    return to_solid(
        panel(40, 0, 308, (15, 298), 'crimson', ('hp_light', 'hp_dark'),
              (15, 72, shield, sun), 'Player 1'))
