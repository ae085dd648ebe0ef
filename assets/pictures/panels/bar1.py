# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Player 1's panel: crimson, a sun on a shield, crest before the words."""
from panels.emblems import shield, sun
from panels.plate import panel


def make(_work):
    return panel(40, 0, 308, (15, 298), 'crimson', (15, 72, shield, sun), 'Player 1')
