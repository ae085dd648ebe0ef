# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Emblems drawn from geometry: compass rose, crests, anchor, rope.

There is one function per emblem; the caller gives all sizes.
"""
import numpy as np


def rose(canvas, x, y, radius):
    """Compass rose of sixteen points: (mask, height in cells, dark halves, edges of the arms).

    Every arm's clockwise half is the dark one.
    """
    dx, dy = canvas.x - x, canvas.y - y
    r, angle = np.hypot(dx, dy), np.arctan2(dx, -dy)
    height = np.zeros(canvas.shape)
    mask, dark, edges = (np.zeros(canvas.shape, bool) for _ in range(3))
    for points, reach, turn, width in ((8, .62, np.pi / 8, .10), (4, .80, np.pi / 4, .16),
                                       (4, 1., 0., .22)):
        length, step = radius * reach, 2 * np.pi / points
        off = (angle - turn + step / 2) % step - step / 2
        along, across = r * np.cos(off), r * np.abs(np.sin(off))
        half = width * length
        taper = np.clip(np.where(along < half, along / half, (length - along) / (length - half)),
                        0, 1)
        inside = (across < half * taper) & (along < length)
        height = np.where(inside, ((half * taper - across) * .8 + reach * 3) * canvas.scale, height)
        dark = np.where(inside, off > 0, dark)
        edges = np.where(inside, half * taper - across < .7, edges)
        mask |= inside
    return mask.astype(float), height, dark, edges


def ring(canvas, x, y, radius, width):
    return canvas.soft(width / 2 - np.abs(canvas.radius(x, y) - radius))


def sun(canvas, x, y, radius, rays=12):
    """Sun with straight rays: disc and points apart, so that it reads when small."""
    dx, dy = canvas.x - x, canvas.y - y
    r, angle = np.hypot(dx, dy), np.arctan2(dx, -dy)
    step = 2 * np.pi / rays
    a = np.abs((angle + step / 2) % step - step / 2) * r
    taper = np.clip((radius - r) / (radius * .42), 0, 1)
    points = canvas.soft(radius * .17 * taper - a) * (r > radius * .58) * (r < radius)
    return np.maximum(canvas.soft(radius * .50 - r), points)


def moon(canvas, x, y, radius):
    """Crescent open to the right, with a star of four points in its arms."""
    body = canvas.soft(np.minimum(radius - canvas.radius(x, y),
                                  canvas.radius(x + radius * .48, y) - radius * .78))
    dx, dy = np.abs(canvas.x - x - radius * .52), np.abs(canvas.y - y)
    star = canvas.soft((radius * .40 - dx - dy - 6 * dx * dy / radius) * .6)
    return np.maximum(body, star)


def shield(canvas, x, y, w, h):
    """Heater shield: flat head, curved flanks meeting in a point."""
    t = np.linspace(0, 1, 24)
    side = [(w / 2 * np.cos(q * np.pi / 2) ** .62, h * (.42 + .58 * q) - h / 2) for q in t]
    points = [(w / 2, -h / 2)] + side
    return canvas.polygon([(x + px, y + py) for px, py in points] +
                          [(x - px, y + py) for px, py in points[::-1]])


def roundel(canvas, x, y, w, h):
    """Round buckler."""
    r = min(w, h) / 2
    return canvas.soft(r - canvas.radius(x, y))


def arc(x, y, rx, ry, start, end, count=40):
    """Points of an elliptical arc; angles in degrees, 0 to the right, growing downwards."""
    t = np.radians(np.linspace(start, end, count))
    return list(zip(x + rx * np.cos(t), y + ry * np.sin(t)))


def anchor(canvas, x, y, size, weight=1.):
    """Admiralty anchor of the given height."""
    s = size / 100
    w = 8 * s * weight
    m = canvas.stroke([(x, y - 34 * s), (x, y + 46 * s)], w)
    m = np.maximum(m, canvas.stroke([(x - 22 * s, y - 24 * s), (x + 22 * s, y - 24 * s)], w))
    for side in (-1, 1):
        m = np.maximum(m, canvas.stroke([(x + side * 22 * s, y - 24 * s)] * 2, w * 1.5))
        tip = (x + side * 37 * s, y + 10 * s)
        fluke = [(tip[0] + side * 3 * s, tip[1] - 6 * s), (tip[0] - side * 13 * s, tip[1] + 12 * s),
                 (tip[0] + side * 6 * s, tip[1] + 15 * s)]
        m = np.maximum(m, canvas.polygon(fluke))
    m = np.maximum(m, canvas.stroke(arc(x, y + 8 * s, 36 * s, 38 * s, 5, 175), w * 1.05))
    return np.maximum(m, ring(canvas, x, y - 42 * s, 7 * s, w * .6))
