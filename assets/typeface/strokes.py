# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Reads glyphs.txt: pen strokes into cubic curves, composed glyphs into lists of parts.

Points are complex numbers in drawing units, angles in degrees counter-clockwise from the right.
"""
import cmath
import math
import re
from dataclasses import dataclass

import numpy as np

from outline import straight

PEN_ANGLE = 30.0
# A small figure written with a pen shrunk just as much would look pale beside the text.
PEN_SHRINK = 0.55
POINT = re.compile(r'(-?[\d.]+),(-?[\d.]+)(?:@(-?[\d.]+))?$')
PEN = re.compile(r'n(-?[\d.]+)(?:\*([\d.]+))?\|(.*)')
PART = re.compile(r'([\w.]+)(?:\*([\d.]+))?(?:@(-?[\d.]+),(-?[\d.]+))?$')
# The spline's speeds are bounded: beyond these a tight turn overshoots into a loop.
SLOWEST, FASTEST = 0.3, 2.2


@dataclass
class Stroke:
    """One movement of the pen: cubic segments, the nib's angle and its relative width."""
    segments: list
    angle: float
    width: float

    def moved(self, scale, shift):
        segments = [tuple(z * scale + shift for z in segment) for segment in self.segments]
        return Stroke(segments, self.angle, self.width * scale ** PEN_SHRINK)


@dataclass
class Part:
    """A glyph inside a composed glyph; an accent is centred on the first part, then shifted."""
    name: str
    scale: float
    shift: complex
    accent: bool


def normalised(angle):
    return (angle + math.pi) % (2 * math.pi) - math.pi


def turning_angles(chords, lengths, tangents):
    """Tangent angles relative to the chords (Hobby 1986: mock curvature continuous at knots)."""
    n = len(lengths) + 1
    phase = [cmath.phase(c) for c in chords]
    psi = [0] + [normalised(phase[i] - phase[i - 1]) for i in range(1, n - 1)] + [0]
    matrix, right = np.zeros((n, n)), np.zeros(n)
    for i in range(n):
        if tangents[i] is not None:
            matrix[i, i], right[i] = 1, normalised(tangents[i] - phase[min(i, n - 2)])
        elif i == 0:
            matrix[0, :2], right[0] = 1, -psi[1]
        elif i == n - 1:
            matrix[i, i - 1:] = 1
        else:
            before, after = lengths[i - 1], lengths[i]
            matrix[i, i - 1:i + 2] = 1 / before, 2 / before + 2 / after, 1 / after
            right[i] = -2 * psi[i] / before - psi[i + 1] / after
    return np.linalg.solve(matrix, right), psi


def speed(theta, phi):
    root5 = math.sqrt(5)
    alpha = (math.sqrt(2) * (math.sin(theta) - math.sin(phi) / 16)
             * (math.sin(phi) - math.sin(theta) / 16) * (math.cos(theta) - math.cos(phi)))
    below = 3 * (1 + (root5 - 1) / 2 * math.cos(theta) + (3 - root5) / 2 * math.cos(phi))
    return min(FASTEST, max(SLOWEST, (2 + alpha) / below))


def hobby(points, tangents):
    """Cubic segments through the points; a tangent is an angle in radians or None (free)."""
    if len(points) == 2 and tangents == [None, None]:
        return [straight(*points)]
    chords = [b - a for a, b in zip(points, points[1:])]
    theta, psi = turning_angles(chords, [abs(c) for c in chords], tangents)
    segments, last = [], len(chords) - 1
    for i, chord in enumerate(chords):
        start = theta[i]
        end = theta[i + 1] if i == last else normalised(theta[i + 1] + psi[i + 1])
        a, b = points[i], points[i + 1]
        segments.append((a, a + chord * cmath.exp(1j * start) * speed(start, -end),
                         b - chord * cmath.exp(1j * end) * speed(-end, start), b))
    return segments


def curve(points, tangents):
    """A run of '..' joins; a fixed tangent inside it makes two independent curves."""
    segments, start = [], 0
    for i in range(1, len(points)):
        if i == len(points) - 1 or tangents[i] is not None:
            segments += hobby(points[start:i + 1], tangents[start:i + 1])
            start = i
    return segments


def path(text):
    fields = re.split(r'\s*(\.\.|--)\s*', text.strip())
    matches = [POINT.match(field) for field in fields[0::2]]
    if None in matches:
        raise ValueError(f'unreadable point in "{text}"')
    joins = fields[1::2]
    points = [complex(float(m[1]), float(m[2])) for m in matches]
    tangents = [math.radians(float(m[3])) if m[3] else None for m in matches]
    segments, i = [], 0
    while i < len(joins):
        if joins[i] == '--':
            segments.append(straight(points[i], points[i + 1]))
            i += 1
            continue
        end = i
        while end < len(joins) and joins[end] == '..':
            end += 1
        if tangents[i] is None and i > 0:
            # A curve leaves a straight line without a corner.
            tangents[i] = cmath.phase(points[i] - points[i - 1])
        segments += curve(points[i:end + 1], tangents[i:end + 1])
        i = end
    return segments


def read_stroke(text):
    angle, width = PEN_ANGLE, 1.0
    pen = PEN.match(text)
    if pen:
        angle, width, text = float(pen[1]), float(pen[2] or 1), pen[3]
    return Stroke(path(text), angle, width)


def read_part(text, accent):
    m = PART.match(text)
    if not m:
        raise ValueError(f'unreadable part "{text}"')
    shift = complex(float(m[3]), float(m[4])) if m[3] else 0j
    return Part(m[1], float(m[2] or 1), shift, accent)


def read_parts(text):
    fields = re.split(r'\s+([+^])\s+', text)
    signs = ['+'] + fields[1::2]
    return [read_part(field, sign == '^') for field, sign in zip(fields[0::2], signs)]


def read_glyphs(file):
    """Returns (drawn, composed): name -> list of Stroke, name -> list of Part, in file order."""
    drawn, composed = {}, {}
    for number, line in enumerate(file.read_text().splitlines(), 1):
        line = line.strip()
        if not line or line.startswith('#'):
            continue
        m = re.match(r'(\w+)\s*([|=])\s*(.+)', line)
        if not m or m[1] in drawn or m[1] in composed:
            raise ValueError(f'{file.name}:{number}: unreadable or repeated glyph')
        if m[2] == '|':
            drawn[m[1]] = [read_stroke(s.strip()) for s in m[3].split(';')]
        else:
            composed[m[1]] = read_parts(m[3].strip())
    return drawn, composed
