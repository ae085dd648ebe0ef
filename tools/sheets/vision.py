# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Simulates colour blindness, and measures how different two pictures look."""

import numpy

# Machado, Oliveira and Fernandes, "A Physiologically-based Model for Simulation of Color Vision
# Deficiency", IEEE TVCG 15(6), 2009: the matrices of severity 1.0, for linear RGB.
DEFICIENCIES = {
    "protanopia": ((0.152286, 1.052583, -0.204868),
                   (0.114503, 0.786281, 0.099216),
                   (-0.003882, -0.048116, 1.051998)),
    "deuteranopia": ((0.367322, 0.860646, -0.227968),
                     (0.280085, 0.672501, 0.047413),
                     (-0.011820, 0.042940, 0.968881)),
    "tritanopia": ((1.255528, -0.076749, -0.178779),
                   (-0.078411, 0.930809, 0.147602),
                   (0.004733, 0.691367, 0.303900)),
}
# IEC 61966-2-1, D65.
XYZ = numpy.array(((0.4124, 0.3576, 0.1805), (0.2126, 0.7152, 0.0722), (0.0193, 0.1192, 0.9505)))
LUMINANCE = XYZ[1]


def linear(pixels):
    value = numpy.asarray(pixels, float)[..., :3] / 255
    return numpy.where(value <= 0.04045, value / 12.92, ((value + 0.055) / 1.055) ** 2.4)


def coded(light):
    light = numpy.clip(light, 0, 1)
    value = numpy.where(light <= 0.0031308, light * 12.92, 1.055 * light ** (1 / 2.4) - 0.055)
    return (value * 255 + 0.5).astype(numpy.uint8)


def simulate(pixels, deficiency):
    """The picture as people with this deficiency see it; unchanged for None."""
    if deficiency is None:
        return numpy.asarray(pixels)[..., :3].astype(numpy.uint8)
    return coded(linear(pixels) @ numpy.array(DEFICIENCIES[deficiency]).T)


def luminance(pixels):
    return linear(pixels) @ LUMINANCE


def contrast(one, other):
    """The WCAG 2 contrast ratio of two relative luminances."""
    return (numpy.maximum(one, other) + 0.05) / (numpy.minimum(one, other) + 0.05)


def lab(pixels):
    """CIE 1976 L*a*b*, relative to the display's white."""
    white = XYZ.sum(1)
    ratio = linear(pixels) @ XYZ.T / white
    root = numpy.where(ratio > (6 / 29) ** 3, numpy.cbrt(ratio),
                       ratio / (3 * (6 / 29) ** 2) + 4 / 29)
    x, y, z = numpy.moveaxis(root, -1, 0)
    return numpy.stack([116 * y - 16, 500 * (x - y), 200 * (y - z)], -1)


def difference(one, other, where):
    """The mean colour difference and mean lightness difference within part of two pictures."""
    apart = (lab(one) - lab(other))[where]
    return float(numpy.linalg.norm(apart, axis=-1).mean()), float(abs(apart[:, 0]).mean())
