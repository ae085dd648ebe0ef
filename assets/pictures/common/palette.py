# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The colours of Morvane, named once for every picture.

Values are sRGB. All shading is done in linear light, so `linear` is what the generators
use; POV-Ray reads the same table through `pov_include`.

To change a colour: edit SRGB or a ramp here, then build what shows it.
"""
from common.light import srgb_to_linear

SRGB = {
    # sea
    'sea_deep': '17527a', 'sea': '226c94', 'sea_light': '3f8fb2', 'glint': 'd6f0f5',
    'foam': 'f0f9f8', 'lagoon': '3fa9b4', 'lagoon_pale': 'a6ead6', 'drowned': '5b7460',
    'shadow': '04202f',
    # land
    'sand': 'e2c48c', 'sand_wet': 'a98a5c', 'grass': '60793a', 'meadow': '7d8a48',
    'rock': '8a7c6b', 'rock_wet': '64543f', 'rock_lit': 'c9bfae', 'moss': '7d8240',
    'weed': '4a4a30', 'earth': '8d6b42',
    # ship
    'sail': 'fcf2d6', 'seam': 'dbc9a3', 'deck': 'c28c52', 'deck_light': 'dead6e',
    'rail': 'cc8538', 'hull': '33190f', 'stripe': 'cc9433', 'bulwark': '942619',
    'gun': '171719', 'pennant': 'cc1f17', 'tar': '150b06', 'pitch': '1c110a',
    # panels
    'ink': '3e1e0c', 'hp_dark': '981812', 'hp_light': 'e24c36', 'hp2_dark': '123a80',
    'hp2_light': '3f83d8', 'night': '050304',
    'crimson': '8c1a18', 'navy': '1d3f78', 'silver': 'e6edf2', 'ready': '9fe8a0',
    # dusk
    'dusk0': 'ffcf7a', 'dusk1': 'f08a4e', 'dusk2': 'c9615a', 'dusk3': '83486b',
    'dusk4': '44366a', 'dusk5': '151a3a',
}

GOLD = ('2a1404', '6b3c0c', 'b97a1e', 'e9b949', 'ffe9a0', 'fffbe6')
BRASS = ('1f0f05', '5a330d', '9a641c', 'd09a3c', 'f4d584', 'fff3cf')
STEEL = ('0c1118', '2c3845', '5c6c7a', '9fb0bb', 'dfe8ec', 'ffffff')
WOOD = ('3a1d0c', '5f351a', '8a5528')
WOOD_DARK = ('341a0b', '55301a', '7d4c26')
WOOD_LIT = ('8f5a22', 'd39a4a', 'f6d48c')
PARCHMENT = ('a97f48', 'dcbf88', 'f1e0b6')


def rgb(colour):
    """sRGB triple in 0..1 of a palette name or of six hexadecimal digits."""
    digits = SRGB.get(colour, colour)
    return tuple(int(digits[i:i + 2], 16) / 255 for i in (0, 2, 4))


def linear(colour):
    """The same colour in linear light, as an array of three."""
    return srgb_to_linear(rgb(colour))


def ramp(colours):
    """A (n, 3) array of linear colours."""
    return srgb_to_linear([rgb(c) for c in colours])


def pov_include():
    """POV-Ray declarations C_<name> for the whole table."""
    lines = ['#declare C_%s = srgb <%.4f,%.4f,%.4f>;' % ((name,) + rgb(name)) for name in SRGB]
    return '\n'.join(lines) + '\n'
