# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Robot players: they press real keys on a virtual display or in a window, and look only at its
pixels."""
