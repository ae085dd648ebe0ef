# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Collects the parts of a painted ship and writes them as POV-Ray source.

Axes of a ship: x forwards, y up, z to port, in metres; the waterline is y = 0.
"""
import numpy as np


def vec(p):
    return '<%.3f,%.3f,%.3f>' % tuple(p)


def join(rows, form):
    return '%d,%s' % (len(rows), ','.join(form % tuple(r) for r in rows))


class Solid:
    def __init__(self):
        self.parts = []

    def declare(self, name):
        return '#declare %s = union{\n%s\n}\n' % (name, '\n'.join(self.parts))

    def sheet(self, grid, texture, shadow=True):
        """Smooth surface over a (rows, columns, 3) grid, textured by its rows and columns."""
        grid = np.asarray(grid, float)
        rows, columns = grid.shape[:2]
        facing = np.cross(np.gradient(grid, axis=0), np.gradient(grid, axis=1))
        facing /= np.maximum(np.linalg.norm(facing, axis=2, keepdims=True), 1e-9)
        v, u = np.meshgrid(np.linspace(1, 0, rows), np.linspace(0, 1, columns), indexing='ij')
        first = (np.arange(rows - 1)[:, None] * columns + np.arange(columns - 1)).ravel()
        below = first + columns
        faces = np.concatenate([np.stack([first, first + 1, below], 1),
                                np.stack([first + 1, below + 1, below], 1)])
        self.parts.append(
            'mesh2{vertex_vectors{%s} normal_vectors{%s} uv_vectors{%s} face_indices{%s} '
            'uv_mapping texture{%s}%s}' % (
                join(grid.reshape(-1, 3), '<%.3f,%.3f,%.3f>'),
                join(facing.reshape(-1, 3), '<%.4f,%.4f,%.4f>'),
                join(np.stack([u.ravel(), v.ravel()], 1), '<%.4f,%.4f>'),
                join(faces, '<%d,%d,%d>'), texture, '' if shadow else ' no_shadow'))

    def rod(self, a, b, thick, texture, end=None):
        """A round spar or rope between two points; `end` is its radius at the second."""
        if np.linalg.norm(np.subtract(a, b)) < 1e-3:
            return
        self.parts.append('cone{%s,%.3f,%s,%.3f texture{%s}}' % (
            vec(a), thick, vec(b), thick if end is None else end, texture))

    def path(self, points, thick, texture):
        """A bent timber or a hanging rope through many points."""
        for a, b in zip(points, points[1:]):
            self.rod(a, b, thick, texture)

    def ball(self, centre, radii, texture):
        self.parts.append('sphere{0,1 scale %s translate %s texture{%s}}' % (
            vec(radii), vec(centre), texture))

    def block(self, low, high, texture):
        low, high = np.minimum(low, high), np.maximum(low, high)
        self.parts.append('box{%s,%s texture{%s}}' % (vec(low), vec(high), texture))

    def face(self, outline, texture):
        """A flat piece, given by its outline."""
        outline = list(outline) + [outline[0]]
        self.parts.append('polygon{%s texture{%s}}' % (
            join(outline, '<%.3f,%.3f,%.3f>'), texture))
