# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The quill: sweeps a broad nib along strokes and roughens the edge as papyrus does."""
import cmath
import math
import random

import fontforge
import psMat

from outline import Edge, direction, pieces_of, segments_of

NIB_WIDTH = 98.0
NIB_THICKNESS = 26.0
# Drawing units; above 6 the edge reads as damage instead of papyrus.
ROUGHNESS = 4.6
# Length of edge between two displaced points, in drawing units.
GRAIN = 28.0
# Points nearer than this would cross when displaced.
CROWDED = 9.0
# A sharper break in the edge's direction is a corner, anything less is rounded.
CORNER = math.radians(28)


def nib(angle, factor):
    """The nib's outline: a flat bar with the corners worn off."""
    half, thick, wear = NIB_WIDTH * factor / 2, NIB_THICKNESS * math.sqrt(factor) / 2, 0.42
    corners = []
    for sx, sy in ((1, 1), (-1, 1), (-1, -1), (1, -1)):
        worn = [(sx * half, sy * thick * (1 - wear * 1.6)), (sx * (half - thick * .9), sy * thick)]
        corners += worn if sx == sy else worn[::-1]
    bar = fontforge.contour()
    bar.moveTo(*corners[-1])
    for corner in corners[-2::-1]:
        bar.lineTo(*corner)
    bar.closed = True
    bar.transform(psMat.rotate(math.radians(angle)))
    return bar


def trace(stroke):
    line = fontforge.contour()
    start = stroke.segments[0][0]
    line.moveTo(start.real, start.imag)
    for _, b, c, d in stroke.segments:
        line.cubicTo(*[(z.real, z.imag) for z in (b, c, d)])
    layer = fontforge.layer()
    layer += line
    return layer


class Quill:
    """Turns strokes into edges. It writes in a font of its own, whose curves are cubic."""

    def __init__(self):
        self.paper = fontforge.font().createChar(-1, 'paper')

    def ink(self, strokes):
        """The smooth edges of the strokes, united; outer edges run clockwise."""
        layer = fontforge.layer()
        for stroke in strokes:
            self.paper.foreground = trace(stroke)
            self.paper.stroke('convex', nib(stroke.angle, stroke.width))
            for contour in self.paper.foreground:
                layer += contour
        self.paper.foreground = layer
        self.paper.removeOverlap()
        self.paper.simplify(1.2)
        self.paper.correctDirection()
        return [sampled(contour) for contour in self.paper.foreground]

    def write(self, strokes, seed):
        rnd = random.Random(seed)
        return [Edge(displaced(edge.points, rnd), edge.corners) for edge in self.ink(strokes)]


def sampled(contour):
    segments = segments_of(contour)
    points, corners = [], []
    for before, segment in zip(segments[-1:] + segments[:-1], segments):
        bend = direction(*segment) - direction(*before[::-1]) - math.pi
        sharp = abs(cmath.phase(cmath.exp(1j * bend))) > CORNER
        for i, z in enumerate(pieces_of(segment, GRAIN)):
            points.append(z)
            corners.append(sharp and i == 0)
    return thinned(Edge(points, corners))


def thinned(edge):
    """Drops points that crowd their neighbour; of such a pair a corner stays."""
    points, corners = [], []
    for z, corner in zip(edge.points, edge.corners):
        if points and abs(z - points[-1]) < CROWDED:
            if corner and not corners[-1]:
                points[-1], corners[-1] = z, True
        else:
            points.append(z)
            corners.append(corner)
    if len(points) > 3 and abs(points[0] - points[-1]) < CROWDED:
        corners[0] = corners[0] or corners.pop()
        points.pop()
    return Edge(points, corners)


def slow_wave(n, rnd):
    """n values of a closed wave that turns about once in four points."""
    knots = [rnd.gauss(0, 1) for _ in range(max(3, n // 4))]
    wave = []
    for i in range(n):
        place = i * len(knots) / n
        k, t = int(place), place % 1
        wave.append(knots[k % len(knots)] * (1 - t) + knots[(k + 1) % len(knots)] * t)
    return wave


def displaced(points, rnd):
    n = len(points)
    swell, grit = slow_wave(n, rnd), [rnd.gauss(0, 1) for _ in range(n)]
    out = []
    for i, z in enumerate(points):
        along = points[(i + 1) % n] - points[i - 1]
        if abs(along) > 1e-6:
            z += along / abs(along) * 1j * ROUGHNESS * (swell[i] * .9 + grit[i] * .35)
        out.append(z)
    return out
