# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The ship as POV-Ray source, for the sheet (`chart`) and for paintings (`tall`).

To change: VERSIONS says which rig and how tall a hull each picture gets.
"""
from ship import hull, rig
from ship.lines import Lines
from ship.mesh import Model

VERSIONS = {'chart': (rig.CHART, Lines(1.)), 'tall': (rig.TALL, Lines(1.65, rake=6.))}


def write(path, version):
    """Write `#declare Ship` to an include file."""
    gear, lines = VERSIONS[version]
    model = Model()
    hull.build(model, lines, gear.upright)
    rig.build(model, lines, gear)
    path.write_text(model.source('Ship'))
