# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""What the commands share: where things are, and which pieces they are asked for."""
import argparse
from pathlib import Path

SCORES = Path(__file__).resolve().parents[1]
PRODUCTS = SCORES.parents[1] / 'data'
PICTURES = SCORES.parents[1] / 'docs' / 'music'
WORK = SCORES.parents[1] / 'build' / 'music'


def pieces(purpose):
    """Names of the pieces on the command line, or of all."""
    names = sorted(path.stem for path in SCORES.glob('music*.score'))
    parser = argparse.ArgumentParser(description=purpose)
    parser.add_argument('piece', nargs='*', metavar='PIECE', help=', '.join(names))
    wanted = parser.parse_args().piece
    unknown = set(wanted) - set(names)
    if unknown:
        parser.error(f'no score for {", ".join(sorted(unknown))}')
    return wanted or names


def score_path(name):
    """The path of a piece's score."""
    return SCORES / f'{name}.score'
