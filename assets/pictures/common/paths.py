# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Where things are, independent of the working directory."""
from pathlib import Path

SOURCES = Path(__file__).resolve().parent.parent
ROOT = SOURCES.parent.parent
DATA = ROOT / 'data'
WORK = ROOT / 'build' / 'pictures'
TYPEFACE = DATA / 'papyrus.ttf'
