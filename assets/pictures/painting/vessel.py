# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The painted ship as POV-Ray source: tall and detailed, to be seen from the side.

The battle's ship is another model, made for its small sheet. To change: shape.py, timber.py,
sails.py and rigging.py build her, dress.py and vessel.inc paint her.
"""
from painting import rigging, sails, timber
from painting.solid import Solid


def write(path, name, blow, brace, courses=True):
    """Declare a ship whose yards are braced to a wind that blows `blow` degrees off her heading;
    without `courses` her lowest sails are clewed up.
    """
    ship, wind = Solid(), sails.Wind(blow, brace)
    timber.build(ship)
    rigging.build(ship, wind)
    sails.build(ship, wind, courses)
    sails.flags(ship, wind)
    path.write_text(ship.declare(name))
