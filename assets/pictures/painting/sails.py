# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The painted ship's sails and flags, filled by the wind.

To change: YARDS is the sail plan; `belly` and `creases` shape the cloth.
"""
import numpy as np

# For each mast: x, the height of its top, and (height, half length) of each yard, lowest first.
YARDS = {
    'fore': (12.5, 48.5, ((20.5, 11.5), (32.6, 9.6), (41.2, 6.7), (46.4, 4.6))),
    'main': (-3.2, 53., ((21.5, 13.4), (35.2, 10.6), (44.8, 7.4), (50.6, 5.1))),
    'mizzen': (-16., 41.5, ((19.5, 9.0), (28.8, 7.2), (36., 4.8))),
}
COURSE_FOOT = {'fore': 9.9, 'main': 10.6}
RAKE = {'fore': .0, 'main': .02, 'mizzen': .05}


class Wind:
    """Where the wind blows to, in the ship's axes, and how the yards are braced to it."""

    def __init__(self, blow, brace):
        self.blow = np.array([np.cos(np.radians(blow)), 0., np.sin(np.radians(blow))])
        self.side = np.sign(self.blow[2])
        self.brace = brace

    def axes(self, twist):
        """(along the yard to port, square to it and away from the wind)."""
        turn = np.radians(self.brace - twist)
        ahead = np.array([np.cos(turn), 0, self.side * np.sin(turn)])
        return np.array([-ahead[2], 0, ahead[0]]), ahead


def mast_at(name, y):
    return np.array([YARDS[name][0] - RAKE[name] * y, y, 0.])


def build(ship, wind, courses=True):
    for name, (_, _, yards) in YARDS.items():
        for k, (height, length) in enumerate(yards):
            across, ahead = wind.axes(3.5 * k)
            middle = mast_at(name, height) + .55 * ahead
            for end in (-1, 1):
                tip = middle + across * (length + .55) * end
                ship.rod(middle, tip, .27 - .035 * k, 'T_Yard', .12)
            if k == 0 and name == 'mizzen':
                continue
            if k == 0 and not courses:
                clewed_up(ship, name, wind)
            else:
                square(ship, name, k, wind)
    headsails(ship, wind)
    spanker(ship, wind)


def belly(a, b):
    """Depth of a sail's camber over its width and its height."""
    return (1 - np.abs(a) ** 2.3) * (1 - (1 - b) ** 1.9) * (1 - .42 * b ** 3.5)


def creases(a, b, seed):
    """Folds that run from the clews into the cloth, and a slow unevenness."""
    fold = 0.
    for end in (-1, 1):
        turn = np.arctan2(1.02 - b, np.abs(a - end) + .02)
        away = np.hypot(1.02 - b, (a - end) * .8)
        fold = fold + np.sin(turn * 13 + seed) * np.exp(-((away - .22) / .32) ** 2)
    slow = np.sin(a * 4.1 + seed) * np.sin(b * 4.6 + 2 * seed)
    return .30 * fold * np.clip(1.1 - np.abs(a), .15, 1) + .5 * slow * (1 - a * a) * b * (1 - b)


def square(ship, name, k, wind):
    _, _, yards = YARDS[name]
    height, length = yards[k]
    across, ahead = wind.axes(3.5 * k)
    if k:
        low, (below, ahead_below) = yards[k - 1][0] + .55, wind.axes(3.5 * (k - 1))
        spread = yards[k - 1][1] * .94
    else:
        low, below, ahead_below, spread = COURSE_FOOT[name], across, ahead, length * .93
    head, drop = length * .95, height - low
    arch = .17 * drop if k else .13 * drop
    b, a = np.meshgrid(np.linspace(0, 1, 40), np.linspace(-1, 1, 46), indexing='ij')
    seed = k + 2.3 * len(name)
    width = head + (spread - head) * b - .35 * np.sin(np.pi * b)
    y = height - .25 - b * (drop - .25) + arch * (1 - a * a) * b ** 4
    depth = .46 * drop ** .55 * spread ** .45 * belly(a, b) + .42 * creases(a, b, seed)
    # The yard below is braced a little less, which twists the sail.
    b3 = b[..., None]
    line, push = across * (1 - b3) + below * b3, ahead * (1 - b3) + ahead_below * b3
    mast = np.stack([YARDS[name][0] - RAKE[name] * y, y, 0 * y], -1)
    grid = mast + line * (a * width)[..., None] + push * (depth + .75)[..., None]
    ship.sheet(grid, 'T_Course' if k == 0 else 'T_Topsail')
    ship.path(grid[-1], .07, 'T_Rope')
    for edge in (grid[:, 0], grid[:, -1]):
        ship.path(edge[::3], .055, 'T_Rope')


def clewed_up(ship, name, wind):
    """A course hauled up to its yard, as before a fight: bunches of cloth between the gaskets."""
    height, length = YARDS[name][2][0]
    across, ahead = wind.axes(0)
    b, a = np.meshgrid(np.linspace(0, 1, 24), np.linspace(-1, 1, 120), indexing='ij')
    # Deep at the middle and at the clews, with a fold at every gasket.
    bunch = np.abs(np.sin(a * np.pi * 4)) ** .6
    drop = (1.5 + 1.1 * np.cos(a * np.pi) ** 2) * (.6 + .4 * bunch)
    depth = (.5 + .8 * bunch) * np.sin(np.pi * b ** .7)
    grid = mast_at(name, height) + across * (a * length * .95)[..., None]
    grid = grid + ahead * (depth + .6)[..., None]
    grid[..., 1] += -.1 - b * drop
    ship.sheet(grid, 'T_Course')
    ship.path(grid[-1], .07, 'T_Rope')


def three_sided(ship, tack, head, clew, wind, depth):
    """A headsail between its stay and its sheet.

    Deliberate: it throws no shadow. Thin cloth shines through, and the shadows of three sails on
    each other would draw hard triangles into them.
    """
    tack, head, clew = (np.array(p, float) for p in (tack, head, clew))
    a, b = np.meshgrid(np.linspace(.004, 1, 34), np.linspace(0, 1, 26), indexing='ij')
    a3, b3 = a[..., None], b[..., None]
    grid = head * (1 - a3) + (tack * (1 - b3) + clew * b3) * a3
    camber = np.sin(np.pi * b ** .8) * (1 - (1 - a) ** 2) * (1 - .55 * a ** 4)
    camber = camber + .10 * np.sin(9 * b + 3 * a) * a * (1 - a)
    lee = np.array([.25, 0, wind.side])
    grid = grid + lee * (depth * camber)[..., None]
    # The foot hangs in a curve below the straight line from tack to clew.
    grid[..., 1] -= .4 * np.sin(np.pi * b) * a ** 4
    ship.sheet(grid, 'T_Jib', shadow=False)
    for edge in (grid[:, 0], grid[:, -1], grid[-1]):
        ship.path(edge[::2], .06, 'T_Rope')


def headsails(ship, wind):
    s = wind.side
    # Their luffs lie on the stays, their heads well forward of the bellies of the square sails.
    three_sided(ship, (42.4, 21.4, 0), (20., 40.6, 0), (28.4, 18.8, 2.4 * s), wind, 1.7)
    three_sided(ship, (38.5, 19.0, 0), (19.5, 35.8, 0), (24.6, 15.2, 2.8 * s), wind, 1.7)
    three_sided(ship, (32.2, 15.4, 0), (18.5, 28.3, 0), (20.4, 12.4, 3. * s), wind, 1.4)


def gaff_end(wind):
    return np.array([-27.6, 28.6, 3.6 * wind.side])


def spanker(ship, wind):
    s = wind.side
    x = YARDS['mizzen'][0] - 1.
    throat, tack = np.array((x, 21.2, 0)), np.array((x + .3, 12.4, 0))
    peak, clew = gaff_end(wind) + (.8, -.5, 0), np.array((-29.4, 13.4, 5.2 * s))
    ship.rod(throat, gaff_end(wind), .24, 'T_Yard', .13)
    ship.rod(tack - (0, .3, 0), clew + (-1.2, .1, .3 * s), .26, 'T_Yard', .16)
    a, b = np.meshgrid(np.linspace(0, 1, 30), np.linspace(0, 1, 30), indexing='ij')
    a3, b3 = a[..., None], b[..., None]
    grid = (throat * (1 - b3) + peak * b3) * (1 - a3) + (tack * (1 - b3) + clew * b3) * a3
    camber = np.sin(np.pi * b ** .75) * (.35 + .65 * np.sin(np.pi * a ** .8))
    grid = grid + np.array([.2, 0, s]) * (2.1 * camber)[..., None]
    grid[..., 1] -= .5 * np.sin(np.pi * b) * a ** 4
    ship.sheet(grid, 'T_Jib')
    for edge in (grid[:, 0], grid[:, -1], grid[-1]):
        ship.path(edge[::2], .06, 'T_Rope')


def flags(ship, wind):
    """Pennants at fore and mizzen, her owner's flag at the main truck."""
    pennant(ship, wind, mast_at('fore', 50.2), 8.5, 1.5)
    pennant(ship, wind, mast_at('mizzen', 43.2), 7., 1.3)
    ensign(ship, wind, mast_at('main', 56.) + (.5, 0, 0), 6.8, 4.3)


def ensign(ship, wind, hoist, length, height):
    side = np.array([-wind.blow[2], 0, wind.blow[0]])
    a = np.linspace(0, 1, 40)
    rows = []
    for b in np.linspace(0, 1, 14):
        wave = .55 * np.sin(8.2 * a - .9 * b) * a ** .6
        sag = -1.5 * a ** 1.6 - .35 * np.sin(6 * a + b)
        rows.append(hoist + a[:, None] * length * wind.blow + wave[:, None] * side
                    + np.stack([0 * a, sag * length / 11.5 - height * b, 0 * a], 1))
    ship.sheet(rows, 'T_Ensign')


def pennant(ship, wind, top, length, width):
    a = np.linspace(0, 1, 50)
    wave = .055 * length * np.sin(9.5 * a + length) * a ** .7
    lift = .045 * length * np.sin(8 * a + 1.5 + length) * a ** .8 - .05 * length * a ** 2
    side = np.array([-wind.blow[2], 0, wind.blow[0]])
    middle = top + a[:, None] * length * wind.blow + wave[:, None] * side
    middle[:, 1] += lift
    up = np.array([0, 1, 0]) * (width * (1 - .86 * a))[:, None]
    ship.sheet([middle + up * .5, middle - up * .5], 'T_Pennant')
