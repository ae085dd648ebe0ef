# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Writes a model as POV-Ray source. Axes: bow towards -x, y up; one unit is a sheet pixel."""
import numpy as np


def vector(a):
    return '<%.4f,%.4f,%.4f>' % tuple(a)


def smooth(t, a, b):
    x = min(1, max(0, (t - a) / (b - a)))
    return x * x * (3 - 2 * x)


class Model:
    """Collects objects; `source` wraps them into one declared union."""

    def __init__(self):
        self.objects = []

    def source(self, name):
        return '#declare %s = union{\n%s\n}\n' % (name, '\n'.join(self.objects))

    def raw(self, text):
        self.objects.append(text)

    def surface(self, grid, texture, uv=None, lift=0., mapped=True, extra=''):
        """Smooth mesh over a (m, n, 3) grid; `lift` tilts the shading normals upwards."""
        g = np.asarray(grid, float)
        m, n, _ = g.shape
        normal = np.cross(np.gradient(g, axis=0), np.gradient(g, axis=1))
        length = np.linalg.norm(normal, axis=2, keepdims=True)
        normal = normal / np.where(length < 1e-9, 1, length)
        if lift:
            normal = np.where(normal[..., 1:2] < 0, -normal, normal) * (1 - lift)
            normal = normal + np.array([0, lift, 0])
            normal = normal / np.linalg.norm(normal, axis=2, keepdims=True)
        if uv is None:
            uv = np.stack(np.meshgrid(np.linspace(0, 1, m), np.linspace(0, 1, n),
                                      indexing='ij'), 2)
        faces = []
        for i in range(m - 1):
            for j in range(n - 1):
                a = i * n + j
                faces += ['<%d,%d,%d>' % (a, a + 1, a + n), '<%d,%d,%d>' % (a + 1, a + n + 1,
                                                                            a + n)]
        self.raw('mesh2{ vertex_vectors{%s} normal_vectors{%s} uv_vectors{%s} '
                 'face_indices{%s} %s texture{%s} %s}' % (
                     counted([vector(a) for a in g.reshape(-1, 3)]),
                     counted([vector(a) for a in normal.reshape(-1, 3)]),
                     counted(['<%.4f,%.4f>' % tuple(a) for a in np.reshape(uv, (-1, 2))]),
                     counted(faces), 'uv_mapping' if mapped else '', texture, extra))

    def cylinder(self, a, b, r, texture):
        self.raw('cylinder{%s,%s,%.3f texture{%s}}' % (vector(a), vector(b), r, texture))

    def cone(self, a, ra, b, rb, texture):
        self.raw('cone{%s,%.3f,%s,%.3f texture{%s}}' % (vector(a), ra, vector(b), rb, texture))

    def box(self, a, b, texture):
        low, high = np.minimum(a, b), np.maximum(a, b)
        self.raw('box{%s,%s texture{%s}}' % (vector(low), vector(high), texture))

    def sphere(self, c, r, texture):
        self.raw('sphere{%s,%.3f texture{%s}}' % (vector(c), r, texture))

    def polygon(self, points, texture):
        points = list(points) + [points[0]]
        self.raw('polygon{%s texture{%s}}' % (counted([vector(p) for p in points]), texture))

    def sweep(self, points, r, texture, spline='b_spline'):
        knots = ','.join('%s,%.3f' % (vector(p), r) for p in points)
        self.raw('sphere_sweep{%s,%d,%s texture{%s}}' % (spline, len(points), knots, texture))


def counted(items):
    return '%d,%s' % (len(items), ','.join(items))
