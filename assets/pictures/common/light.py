# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Light: the one sun of the battle, and the conversions between sRGB and linear light.

To change: SUN for sea and islands (with SunDir in the scenes), LAMP for panels and letters.
"""
import numpy as np

# Towards the sun, picture axes (x right, y down, z to the viewer): upper left, 58 degrees up.
SUN = np.array([-.60, -.60, 1.35])
SUN = SUN / np.linalg.norm(SUN)
# Panels are lit from the same side but lower, which brings out shallow relief.
LAMP = np.array([-.52, -.60, .61])
LAMP = LAMP / np.linalg.norm(LAMP)


def srgb_to_linear(value):
    value = np.asarray(value, float)
    return np.where(value <= .04045, value / 12.92, ((value + .055) / 1.055) ** 2.4)


def linear_to_srgb(value):
    value = np.clip(value, 0, None)
    return np.where(value <= .0031308, value * 12.92, 1.055 * value ** (1 / 2.4) - .055)


def normals(height):
    """Unit normals of a height map whose heights are in its own pixels."""
    gy, gx = np.gradient(height)
    n = np.dstack([-gx, -gy, np.ones_like(height)])
    return n / np.linalg.norm(n, axis=2, keepdims=True)


def halfway(direction):
    """Halfway vector between a light direction and the viewer."""
    h = direction + np.array([0, 0, 1.])
    return h / np.linalg.norm(h)
