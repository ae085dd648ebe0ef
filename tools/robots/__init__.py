# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Robot players: they press real keys on a virtual display and look at nothing but its pixels."""
