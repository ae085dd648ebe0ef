# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Running POV-Ray on one thread, so that two runs give the same pixels."""
import subprocess
from pathlib import Path

from common.palette import pov_include

# What POV-Ray says when a busy machine lets it wait too long for its own threads.
BUSY, ATTEMPTS = 'Timed out waiting for worker thread', 5


def prepare(work, *folders):
    """Write the palette into the work folder; returns the library options for `render`."""
    (work / 'palette.inc').write_text(pov_include())
    return ['+L%s' % work] + ['+L%s' % folder for folder in folders]


def render(scene, product, size, libraries, alpha=True, threshold=.2, rows=None, **declared):
    """Render a scene, antialiased adaptively without jitter; raise on failure with the log.

    `rows` stops after that many rows of the picture.
    """
    command = ['povray', '+I%s' % scene, '+O%s' % product, '+W%d' % size[0], '+H%d' % size[1],
               '+UA' if alpha else '-UA', '-D', '+WT1', '+R2', '+AM2', '+A%g' % threshold, '-J']
    command += ['+ER%d' % rows] if rows else []
    command += libraries + ['Declare=%s=%g' % item for item in declared.items()]
    # POV-Ray searches its working directory first, so it runs in the work folder.
    for _ in range(ATTEMPTS):
        done = subprocess.run(command, capture_output=True, text=True, check=False,
                              cwd=Path(product).parent)
        if BUSY not in done.stderr:
            break
    if done.returncode:
        raise RuntimeError('povray failed on %s:\n%s' % (scene, done.stderr[-600:]))
