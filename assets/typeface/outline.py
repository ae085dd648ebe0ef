# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Edges of ink as points and as FontForge contours."""
import cmath
from dataclasses import dataclass

import fontforge


@dataclass
class Edge:
    """A closed edge: complex points, and for each whether the edge has a corner there."""
    points: list
    corners: list


def straight(a, b):
    return (a, a + (b - a) / 3, b - (b - a) / 3, b)


def raised(a, control, b):
    """A quadratic segment as a cubic one."""
    return (a, a + (control - a) * 2 / 3, b + (control - b) * 2 / 3, b)


def segments_of(contour):
    """The contour, cubic or quadratic, as cubic segments (a, b, c, d) of complex points."""
    points = list(contour)
    first = next(i for i, p in enumerate(points) if p.on_curve)
    points = points[first:] + points[:first + 1]
    start, controls, out = None, [], []
    for p in points:
        z = complex(p.x, p.y)
        if not p.on_curve:
            controls.append(z)
            continue
        if start is not None:
            out += joined(start, controls, z)
        start, controls = z, []
    return out


def joined(a, controls, b):
    if not controls:
        return [straight(a, b)] if a != b else []
    if len(controls) == 2:
        return [(a, *controls, b)]
    return [raised(a, controls[0], b)]


def point_at(segment, t):
    a, b, c, d = segment
    s = 1 - t
    return s ** 3 * a + 3 * t * s * s * b + 3 * t * t * s * c + t ** 3 * d


def pieces_of(segment, step):
    length = sum(abs(q - p) for p, q in zip(segment, segment[1:]))
    count = max(1, int(length / step))
    return [point_at(segment, k / count) for k in range(count)]


def polygon(contour, step):
    return [z for segment in segments_of(contour) for z in pieces_of(segment, step)]


def direction(*points):
    """Direction from the first point to the first of the others that differs from it."""
    for z in points[1:]:
        if abs(z - points[0]) > 1e-6:
            return cmath.phase(z - points[0])
    return 0.0


def box(edges):
    """(left, bottom, right, top) of the edges' points."""
    points = [z for edge in edges for z in edge.points]
    return (min(z.real for z in points), min(z.imag for z in points),
            max(z.real for z in points), max(z.imag for z in points))


def smooth_contour(edge, scale):
    """A TrueType contour: corners lie on it, the points between are its quadratic controls."""
    points = [complex(round(z.real * scale), round(z.imag * scale)) for z in edge.points]
    n = len(points)

    def middle(i):
        return (points[i] + points[(i + 1) % n]) / 2

    first = next((i for i in range(n) if edge.corners[i]), None)
    start, order = (middle(n - 1), 0) if first is None else (points[first], first + 1)
    contour = fontforge.contour()
    contour.is_quadratic = True
    contour.moveTo(start.real, start.imag)
    for k in range(n if first is None else n - 1):
        i = (order + k) % n
        if edge.corners[i]:
            if edge.corners[i - 1]:
                contour.lineTo(points[i].real, points[i].imag)
            continue
        after = (i + 1) % n
        end = points[after] if edge.corners[after] else middle(i)
        contour.quadraticTo((points[i].real, points[i].imag), (end.real, end.imag))
    contour.closed = True
    return contour
