# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Foam along a painted ship's waterline.

To change: `bow_wave` is the water under her stem; thick, trail and the colours are in `waterline`.
"""
import numpy as np

from common.noise import fbm, smoothstep
from common.palette import linear
from painting.brush import lay


def waterline(c, pose, seed):
    """Foam along the hull, the wave under her bow, and the torn water behind her stern."""
    line = pose.waterline()
    (x0, y0), x1 = line[0], line[-1, 0]
    ahead = 1 if x1 > x0 else -1
    h, w = c.shape[:2]
    y, x = np.mgrid[0:h, 0:w].astype(float)
    n, fine = fbm(h, w, seed, 1.2), fbm(h, w, seed + 7, .9)
    order = np.argsort(line[:, 0])
    level = np.interp(x, line[order, 0], line[order, 1])
    along = np.clip((x - x0) / (x1 - x0), -.5, 1.5)      # 0 at the stern, 1 at the stem
    below = y - level - 1.2 * n
    thick = 1.6 + 2.6 * np.clip((along - .55) / .45, 0, 1) ** 2
    foam = np.exp(-(np.clip(below - 1, 0, None) / thick) ** 2) * (below > -1.8)
    foam = foam * np.clip(.42 + .34 * n + .30 * fine, 0, 1) * (along > 0) * (along < 1)
    astern = (x0 - x) * ahead
    trail = np.exp(-((y - y0 - 1.5 - .03 * astern - n) / (1.8 + .05 * np.abs(astern))) ** 2)
    trail = trail * (astern > -3) * np.exp(-np.clip(astern, 0, None) / 38)
    trail = trail * np.clip(.30 + .35 * n + .3 * fine, 0, 1)
    gone = (x1 + 5 * ahead - x) * ahead                  # pixels behind the stem
    wave, height = bow_wave(gone, y - level, n, fine)
    foam = np.maximum.reduce([foam * .9, wave, trail * .8])
    # The sun stands behind her: the crest's rim glows, its near side lies in violet shade.
    lit = linear('8d7388') + (linear('ffe9cc') - linear('8d7388')) * height[..., None]
    return lay(c, lit, np.clip(foam, 0, .95))


def bow_wave(gone, below, n, fine):
    """(cover, light) of the water that the stem throws up: a broken crest, torn into spray."""
    crest = 13 * np.exp(-((gone - 6) / 13) ** 2) + 4.2 * np.exp(-((gone - 38) / 20) ** 2)
    crest = crest * (.80 + .30 * n) + 1.6 * fine
    above = -below
    body = np.clip((crest - above) / 2.2, 0, 1)
    body = body * np.exp(-(np.clip(below, 0, None) / (4.5 + 1.5 * n)) ** 2)
    body = body * np.clip((gone + 10) / 6, 0, 1) * np.clip(1 - gone / 70, 0, 1) ** .7
    body = body * np.clip(.86 + .30 * n + .30 * fine - .006 * gone, 0, 1)
    spray = smoothstep(fine + .5 * n, .9, 1.7) * np.exp(-((above - 1.3 * crest) / 7) ** 2)
    spray = spray * np.exp(-((gone - 4) / 17) ** 2) * (above > 0)
    height = np.clip(.30 + .55 * above / np.maximum(crest, 2) + .16 * fine, 0, 1)
    return np.clip(np.maximum(body, .85 * spray), 0, 1), np.maximum(height, spray)
