# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The typeface's own scripts and the tools are imported from where they lie."""
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / 'assets' / 'typeface'), str(ROOT / 'tools')]
