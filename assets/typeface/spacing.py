# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Optical spacing: side bearings and kerning from the white between the letters.

All lengths are font units. White is measured on scan lines over the height where a letter meets
its neighbours, and each scan line counts no deeper than DEPTH, as the eye does not look into the
bottom of an open c.
"""
import numpy as np
import psMat

from outline import polygon

# The game writes at one size, where a pixel is this many units: SDL_ttf rounds every advance and
# every kern to pixels, so all are whole pixels here and nothing is left to rounding.
PIXEL = 64
SCAN = 40
# Scan lines lie off the grid of the outlines' points, so that none runs through a point.
OFF_GRID = 0.37
DEPTH = 300
# Between two letters the eye looks a little deeper.
PAIR_DEPTH = 430
# Intended mean white on one side of a small letter; capitals stand a little wider.
WHITE = 202
CAPITAL_WHITE = 244
# Ink of neighbours comes no nearer than this.
NEAREST = 58
# A capital's arm and an ascender meet at one height, where a blunt end looks like a joint.
NEAREST_ASCENDER = 80
# Smaller faults are left alone: a kern of one whole pixel would overshoot them.
TOLERANCE = 0.55 * PIXEL
FIXED_WHITE = 120


class Profile:
    """Leftmost and rightmost ink per scan line (nan where there is none)."""

    def __init__(self, glyph, bottom, top):
        self.lines = np.arange(bottom, top, SCAN) + OFF_GRID
        self.left = np.full(len(self.lines), np.nan)
        self.right = self.left.copy()
        for contour in glyph.foreground:
            points = polygon(contour, SCAN)
            for p, q in zip(points, points[1:] + points[:1]):
                self._add(p, q)

    def _add(self, p, q):
        low, high = sorted((p.imag, q.imag))
        hit = np.nonzero((self.lines > low) & (self.lines <= high))[0]
        if len(hit):
            x = p.real + (self.lines[hit] - p.imag) * (q.real - p.real) / (q.imag - p.imag)
            self.left[hit] = np.fmin(self.left[hit], x)
            self.right[hit] = np.fmax(self.right[hit], x)

    def zone(self, bottom, top):
        return (self.lines >= bottom) & (self.lines < top)


def depth_mean(distance):
    return np.mean(np.minimum(np.nan_to_num(distance, nan=DEPTH), DEPTH))


def set_width(glyph, left_edge, right_edge, left, right):
    """Places the ink between the bearings, the advance rounded to whole pixels."""
    wanted = right_edge - left_edge + left + right
    width = max(PIXEL, round(wanted / PIXEL) * PIXEL)
    left += (width - wanted) / 2
    glyph.transform(psMat.translate(round(left - left_edge), 0))
    glyph.width = width


def space_optically(glyph, zone, white, least):
    """Bearings such that the mean white beside the letter is the same on both sides."""
    profile = Profile(glyph, *zone)
    left_edge, right_edge = np.nanmin(profile.left), np.nanmax(profile.right)
    left = max(least, white - depth_mean(profile.left - left_edge))
    right = max(least, white - depth_mean(right_edge - profile.right))
    set_width(glyph, left_edge, right_edge, left, right)


def space_evenly(glyph):
    left, _, right, _ = glyph.boundingBox()
    set_width(glyph, left, right, FIXED_WHITE, FIXED_WHITE)


class Pairs:
    """Finds kerns by comparing the white between two letters with the intended white."""

    def __init__(self, glyphs, bottom, top):
        self.profiles = {g.glyphname: Profile(g, bottom, top) for g in glyphs}
        self.widths = {g.glyphname: g.width for g in glyphs}

    def white(self, first, second, zone):
        a, b = self.profiles[first], self.profiles[second]
        outer = np.nan_to_num(self.widths[first] - a.right, nan=PAIR_DEPTH)
        inner = np.nan_to_num(b.left, nan=PAIR_DEPTH)
        each = np.minimum(outer, PAIR_DEPTH) + np.minimum(inner, PAIR_DEPTH)
        return np.mean(each[a.zone(*zone)])

    def intended(self, firsts, seconds, zone):
        """The white that straight and round letters, spaced by their bearings alone, have."""
        return np.mean([self.white(a, b, zone) for a in firsts for b in seconds])

    def kern(self, first, second, zone, intended, strength, apart, nearest=NEAREST):
        wanted = (intended - self.white(first, second, zone)) * strength + apart
        return self.clear(first, second, wanted if abs(wanted) > TOLERANCE else 0, nearest)

    def nearest(self, first, second):
        """Least horizontal distance, each scan line against its two neighbours as well."""
        a, b = self.profiles[first], self.profiles[second]
        outer = np.nan_to_num(self.widths[first] - a.right, nan=1e4)
        inner = np.nan_to_num(b.left, nan=1e4)
        return min(np.min(outer + inner), np.min(outer[1:] + inner[:-1]),
                   np.min(outer[:-1] + inner[1:]))

    def clear(self, first, second, wanted, nearest=NEAREST):
        """The wanted kern in whole pixels, never so tight that the letters touch."""
        room = self.nearest(first, second)
        kern = round(max(wanted, nearest - room) / PIXEL) * PIXEL
        if room + kern < nearest / 2:
            kern += PIXEL
        return int(kern)
