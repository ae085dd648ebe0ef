# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Player 2's panel: navy, a moon on a buckler, crest after the words.

To change: colour, crest and words in the one call below; the layout is in plate.py.
"""
from common.raster import to_solid
from panels.emblems import moon, roundel
from panels.plate import panel


def make(_work):
    return to_solid(
        panel(60, 4, 312, (17, 300), 'navy', ('hp2_light', 'hp2_dark'),
              (243, 300, roundel, moon), 'Player 2'))
