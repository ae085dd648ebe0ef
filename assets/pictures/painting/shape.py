# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The painted ship's lines: widths and heights along her, t from 0 at the stern to 1 at the bow.

To change: `sheer` bends every plank and band of paint, `half` is her plan and her sections.
"""
import numpy as np

STERN, BOW, BEAM = -23.5, 23., 6.3
KEEL = -2.
STEPS = ((.34, -1.9), (.80, 1.5))       # of the rail: quarterdeck and forecastle
PORTS = np.linspace(.16, .86, 9)
PORT_LINE = .60                         # of the sheer's height


def smooth(t, a, b):
    q = np.clip((t - a) / (b - a), 0, 1)
    return q * q * (3 - 2 * q)


def along(t):
    return STERN + (BOW - STERN) * t


def station(x):
    return (x - STERN) / (BOW - STERN)


def sheer(t):
    """Height of the upper deck's edge: lowest amidships, sweeping up to both ends."""
    s = t - .54
    return 5.9 + np.where(s < 0, 10.5 * s * s, 8.5 * s * s)


def rail(t):
    high = 1.25 + 1.9 * (1 - smooth(t, .33, .345)) + 1.3 * smooth(t, .795, .81)
    return sheer(t) + high + .9 * (1 - smooth(t, .12, .13))


def half(t, y):
    """Half breadth at a height: fine at the water fore and aft, leaning in above the guns."""
    v = y / sheer(t)
    fore = np.clip((t - .62) / .38, 0, 1)
    full = BEAM * np.clip(1 - fore ** 2.6, 0, 1) ** .62
    fine = BEAM * .96 * np.clip(1 - np.clip((t - .50) / .50, 0, 1) ** 1.9, 0, 1) ** .9
    full = full * (.80 + .20 * np.sin(np.pi / 2 * np.clip(t / .40, 0, 1)))
    fine = fine * (.30 + .70 * np.sin(np.pi / 2 * np.clip(t / .36, 0, 1)))
    widest = smooth(v, -.35, .42)
    inward = 1 - .16 * np.clip((v - .5) / .8, 0, 1.3) ** 1.3 * (1 - .55 * fore)
    return (fine + (full - fine) * widest) * inward


def stem(y):
    """How far the bow reaches forward at a height."""
    return -2.6 * (1 - smooth(y, -2., 7.5)) + .5 * smooth(y, 5, 9)


def place(t, y, s, out=0.):
    """A point of the ship's side, `out` metres off the planks; s is +1 to port."""
    rake = stem(y) * smooth(t, .78, 1.) - .16 * np.clip(y, 0, 12) * (1 - smooth(t, 0, .03))
    return np.stack(np.broadcast_arrays(along(t) + rake, y, s * (half(t, y) + out)), -1)
