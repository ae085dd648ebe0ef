# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""A session of real keys is written down and replayed: both must show the same, frame for frame.

The clock decides in which frame a key arrives, so the session is not the same every time; what the
game makes of it must be.
"""

import shutil
import subprocess
import time
from pathlib import Path

import numpy
import pytest
from PIL import Image

from robots.stage import Stage

REPLAYS = Path(__file__).resolve().parents[1] / "replay"
TRACKS = ("music1.mp3", "music2.mp3", "music3.mp3")
SEED = 11
COMPARED = 14  # displays
FRAMES_PER_PICTURE = 10  # as the recorder takes them
PATIENCE = 120  # seconds, on a machine that is very busy


@pytest.fixture
def sea(tmp_path, root):
    """A directory with plain pictures, which every library draws alike, and the game's music."""
    data = tmp_path / "data"
    shutil.copytree(REPLAYS / "pictures/standard", data)
    for track in TRACKS:
        (data / track).symlink_to(Path(root) / "data" / track)
    return tmp_path


def record_session(stage, directory):
    """From the intro into a battle with the keys of both players down at once, and out."""
    wait_for_frame(directory, 30)
    stage.tap("x")
    wait_for_frame(directory, 60)
    for button in (4, 5, 5, 4):  # the wheel, up and down
        stage.click(button)
    stage.point(400, 299)
    time.sleep(0.2)
    stage.click(1)
    time.sleep(0.5)
    for key in ("w", "a", "Tab", "Up", "Right", "Return"):
        stage.press(key)
    wait_for_pictures(directory, 9)
    stage.press("z")
    stage.press("Delete")
    for key in ("a", "Right"):
        stage.release(key)
    stage.press("d")
    stage.press("Left")
    wait_for_pictures(directory, 9)
    for key in sorted(stage.held):
        stage.release(key)
    stage.tap("Escape")
    time.sleep(0.3)
    stage.close_window()


def wait_for_frame(directory, frame):
    deadline = time.monotonic() + PATIENCE
    while not (directory / f"{frame}.bmp").exists():
        assert time.monotonic() < deadline, f"frame {frame} never came"
        time.sleep(0.01)


def wait_for_pictures(directory, count):
    """Waits until so many more pictures have been recorded."""
    last = max(int(path.stem) for path in directory.glob("*.bmp"))
    wait_for_frame(directory, last + FRAMES_PER_PICTURE * count)


def pixels(path):
    return numpy.asarray(Image.open(path).convert("RGB"))


def test_real_keys_and_their_replay_show_the_same(request, sea, monkeypatch):
    options = request.config.option
    if options.replay is None:
        pytest.skip("needs the replay program, --replay")
    monkeypatch.setenv("MORVANE_RECORD", str(sea))
    preloaded = f"{options.fixed_time}:{options.recorder}"
    with Stage(options.binary, sea, SEED, preloaded) as stage:
        record_session(stage, sea)
        assert stage.finish() == (0, "")
    session = (sea / "session.txt").read_text()
    last = int(session.splitlines()[-1].split()[0])
    assert session.splitlines()[-1] == f"{last} quit"
    for word in ("wheelup", "wheeldown", "down w", "down up", "down z", "down delete"):
        assert word in session
    script = sea / "session.txt"
    script.write_text(f"seed {SEED}\nframes {last + 1}\n" + session)
    frames = sorted(int(path.stem) for path in sea.glob("*.bmp"))
    step = max(1, len(frames) // COMPARED)
    compared = 0
    seen = set()
    for frame in frames[::step]:
        replayed = sea / "replayed.bmp"
        subprocess.run([options.replay, "show", str(script), str(frame), str(replayed)], check=True,
                       stdout=subprocess.DEVNULL)
        real = pixels(sea / f"{frame}.bmp")
        assert numpy.array_equal(real, pixels(replayed)), f"frame {frame} is another"
        seen.add(real.tobytes())
        compared += 1
    # A still display would have proved nothing.
    assert compared >= COMPARED
    assert len(seen) > COMPARED // 2
