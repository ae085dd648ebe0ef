# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""A virtual display."""

import contextlib
import subprocess


@contextlib.contextmanager
def virtual_display(size):
    """An X server of a size such as 800x600; gives its DISPLAY, which the server chooses."""
    # Without -noreset the server would start again, and refuse clients meanwhile, when the first
    # client has left.
    with subprocess.Popen(["Xvfb", "-displayfd", "1", "-screen", "0", f"{size}x24", "-noreset",
                           "-nolisten", "tcp"], stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL) as server:
        try:
            yield f":{int(server.stdout.readline())}"
        finally:
            server.terminate()
