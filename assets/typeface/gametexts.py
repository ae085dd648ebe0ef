# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The texts that the game writes onto its screens, read from its sources."""
import re
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
CALL = re.compile(r'simpleText\(([^;]*),\s*(-?\d+)\);')


def screens():
    """Screen -> (line from the middle, text) pairs; a choice of texts gives a screen for each."""
    pages = {}
    for source in sorted((ROOT / 'src').glob('*.cpp')):
        calls = [(int(line), re.findall(r'"([^"]*)"', argument))
                 for argument, line in CALL.findall(source.read_text())]
        # simpleText's own definition writes no text of its own.
        calls = [(line, texts) for line, texts in calls if texts]
        variants = max((len(texts) for _, texts in calls), default=0)
        for variant in range(variants):
            name = source.stem + (str(variant + 1) if variants > 1 else '')
            pages[name] = [(line, texts[min(variant, len(texts) - 1)]) for line, texts in calls]
    return pages


def texts():
    return sorted({text for lines in screens().values() for _, text in lines})
