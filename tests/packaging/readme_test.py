# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Every command that the README and the contributors' pages show is run, here or where it says.

A command that is not known here fails: whoever adds one says how it is tried.
"""

import os
import re
import signal
import subprocess
import time

import pytest

from conftest import PROJECT
from robots.stage import VirtualDisplay

PAGES = ("README.md", "CONTRIBUTING.md", "docs/first-change.md")
DRAWING_TIME = 1  # seconds before the game is ended
LONG = 500

# Commands that another check runs, with what must stand in it.
ELSEWHERE = {
    "./test": ("test", r"^    run test all --label-exclude slow$"),
    "./test all": (".ci/run", r"^exec \./test all$"),
    "sudo apt-get install ../morvane_*_amd64.deb ../morvane-data_*_all.deb":
        ("packaging/check",
         r"apt-get install -y --no-install-recommends \./morvane_\*_\*\.deb "
         r"\./morvane-data_\*_all\.deb"),
    "sudo apt-get build-dep ./":
        ("packaging/check", r"apt-get build-dep -y --no-install-recommends \./\""),
    "cpack": ("tests/packaging/install_test.py", r"^    pack\(build, directory\)$"),
    "cpack --config CPackSourceConfig.cmake":
        ("tests/packaging/install_test.py", r'"--config", "CPackSourceConfig\.cmake"\)$'),
    "tools/partner left brisk":
        ("tests/system/partner_test.py", r'^PARTNER = "tools/partner"$'),
    "dpkg-buildpackage --no-sign": ("packaging/check", r"dpkg-buildpackage --no-sign"),
}
# Of the contributors' pages only: takes drawing tools that the tests do without. What it is told to
# build must exist.
DRAWING = re.compile(r"^assets/pictures/build (\w+)$")
# Targets and selections of a build with tests; shown to exist, since all of them are running now.
OF_THIS_RUN = re.compile(
    r"^(cmake (--build )?--preset test( --target [\w ]+)?|ctest --preset test .*)$")


def shown_commands(page):
    """The lines of all blocks marked as shell commands, with the page they stand on."""
    blocks = re.findall(r"^```sh\n(.*?)^```$", (PROJECT / page).read_text(), re.M | re.S)
    return [line for block in blocks for line in block.splitlines() if line]


COMMANDS = sorted({command for page in PAGES for command in shown_commands(page)})


def environment(**changes):
    silent = dict(os.environ, SDL_VIDEODRIVER="dummy", SDL_AUDIODRIVER="dummy", DISPLAY=":none")
    return dict(silent, **changes)


def run(command, directory=PROJECT, **changes):
    result = subprocess.run(["sh", "-c", command], cwd=directory, env=environment(**changes),
                            capture_output=True, text=True, timeout=LONG, check=False)
    assert result.returncode == 0, f"{command}\n{result.stdout}{result.stderr}"
    return result.stdout


def run_on_display(command, scratch):
    display = VirtualDisplay(scratch)
    try:
        run(command, DISPLAY=display.name)
    finally:
        display.stop()


def listens(process):
    """True once the process is the game and SDL handles SIGTERM."""
    try:
        is_game = os.readlink(f"/proc/{process.pid}/exe").endswith("/morvane")
        with open(f"/proc/{process.pid}/status", encoding="utf-8") as file:
            caught = int(re.search(r"^SigCgt:\s*(\w+)$", file.read(), re.M).group(1), 16)
    except OSError:
        return False
    return is_game and caught >> (signal.SIGINT - 1) & 1 == 1


def play_briefly(command, directory=PROJECT):
    """Starts the game, lets it draw and ends it with SIGTERM, as at the end of a session."""
    with subprocess.Popen(["sh", "-c", "exec " + command], cwd=directory, env=environment(),
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True) as game:
        deadline = time.monotonic() + LONG
        while not listens(game) and game.poll() is None and time.monotonic() < deadline:
            time.sleep(0.05)
        time.sleep(DRAWING_TIME)
        assert game.poll() is None, f"{command}\n{game.stdout.read()}"
        game.send_signal(signal.SIGINT)
        said = game.communicate(timeout=60)[0]
    assert game.returncode == 0, f"{command}\n{said}"


def handler(command, build, scratch):
    """The function that tries the command, or None for an unknown one."""
    variables, name = re.fullmatch(r"((?:\w+=\w+ )*)(.*)", command).groups()
    if command in ("./play", "build/play/morvane"):
        return lambda: play_briefly(command)
    if name == "morvane":
        return lambda: play_briefly(f"env {variables}{build}/morvane")
    if command in ("cmake --preset play", "cmake --build --preset play"):
        return lambda: run(command)
    if command.startswith("sudo cmake --install build/play"):
        return lambda: run(command.replace("sudo ", ""), DESTDIR=str(scratch))
    if command == "cd build/play":
        return lambda: os.listdir(PROJECT / "build/play")
    if command.startswith("xrandr"):
        return lambda: run_on_display(command, scratch)
    if command.startswith(("grep", "git status")):
        return lambda: run(command)
    if command.startswith(("sed ", "cp ")):
        return lambda: change_a_copy(command, scratch)
    if OF_THIS_RUN.match(command):
        return lambda: find_in_this_run(command, build)
    if DRAWING.match(command):
        return lambda: find_drawing(DRAWING.match(command).group(1))
    if command in ELSEWHERE:
        return lambda: find_elsewhere(*ELSEWHERE[command])
    return None


def find_elsewhere(file, pattern):
    assert re.search(pattern, (PROJECT / file).read_text(), re.M), f"{file} does not run it"


def find_drawing(name):
    assert list((PROJECT / "assets/pictures").glob(f"*/{name}.py"))
    assert os.access(PROJECT / "assets/pictures/build", os.X_OK)


def change_a_copy(command, scratch):
    """The steps of the first change that change a file: they must still do so."""
    if command.startswith("cp "):
        _, made, kept = command.split()
        assert re.search(rf'"{made.split("-", 1)[1][:-4]}"', (PROJECT / "tools/demo").read_text())
        assert (PROJECT / kept).exists()
        return
    file = command.split()[-1]
    (scratch / file).parent.mkdir(parents=True)
    (scratch / file).write_bytes((PROJECT / file).read_bytes())
    run(command, scratch)
    assert (scratch / file).read_bytes() != (PROJECT / file).read_bytes()


def find_in_this_run(command, build):
    """That the target or the tests exist, in the build that is being tested."""
    if command.startswith("ctest"):
        selection = command.partition("--preset test")[2]
        said = run(f"ctest -N {selection}", build)
        assert int(re.search(r"Total Tests: (\d+)", said).group(1)) > 0
    else:
        said = run("cmake --build . --target help", build)
        for target in command.partition("--target ")[2].split():
            assert re.search(rf"^(\.\.\. )?{target}\b", said, re.M), target


@pytest.mark.parametrize("command", COMMANDS)
def test_the_command_works(command, build, tmp_path):
    attempt = handler(command, build, tmp_path)
    assert attempt is not None, f"Nobody knows how to try: {command}"
    attempt()


def test_the_pages_show_commands_and_an_unknown_one_is_noticed(build, tmp_path):
    assert len(shown_commands("README.md")) >= 12
    assert handler("make love", build, tmp_path) is None


def test_a_game_that_does_not_start_is_noticed(build, tmp_path):
    with pytest.raises(AssertionError):
        play_briefly(f"env SDL_VIDEODRIVER=nonsense {build}/morvane", tmp_path)
