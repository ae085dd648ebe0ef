# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""From a text score to a loop: notation, harmony, performance, synthesis, mix, encoding."""
