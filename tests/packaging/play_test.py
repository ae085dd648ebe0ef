# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""What ./play says: on systems without apt, and on displays with limits."""

import os
import re
import shutil
import signal
import subprocess
import time
from pathlib import Path

import pytest

from conftest import PROJECT
from xserver import virtual_display

PKG_CONFIG_NAMES = "sdl, SDL_image, SDL_ttf and SDL_mixer"
# The contents of /etc/os-release, and what must be printed.
SYSTEMS = {
    "fedora": ("ID=fedora\n", "sudo dnf install gcc-c++ make cmake pkgconf-pkg-config "
               "sdl12-compat-devel SDL_image-devel SDL_ttf-devel SDL_mixer-devel"),
    "likeFedora": ('ID=other\nID_LIKE="rhel fedora"\n', "sudo dnf install"),
    "likeArch": ("ID=other\nID_LIKE=arch\n", "sudo pacman -S base-devel cmake sdl12-compat "
                 "sdl_image sdl_ttf sdl_mixer"),
    "unknown": ("ID=other\n", PKG_CONFIG_NAMES),
}


@pytest.fixture
def bare_path(tmp_path):
    """A directory of programs without apt, a compiler or pkg-config."""
    programs = tmp_path / "bin"
    programs.mkdir()
    for program in ("sh", "dirname"):
        (programs / program).symlink_to(shutil.which(program))
    return programs


def play_without_apt(path, os_release):
    environment = {"PATH": str(path), "OS_RELEASE": str(os_release)}
    return subprocess.run([PROJECT / "play"], env=environment,
                          capture_output=True, text=True, timeout=60, check=False)


@pytest.mark.parametrize("system", SYSTEMS)
def test_names_the_packages_of_a_system_without_apt(system, bare_path, tmp_path):
    os_release, expected = SYSTEMS[system]
    (tmp_path / "os-release").write_text(os_release)
    result = play_without_apt(bare_path, tmp_path / "os-release")
    assert result.returncode == 1
    assert result.stdout == ""
    assert expected in result.stderr.replace("\n", " ")
    assert ("have not been tested" in result.stderr) == (system != "unknown")


def test_names_the_libraries_when_the_system_cannot_be_told(bare_path, tmp_path):
    result = play_without_apt(bare_path, tmp_path / "missing")
    assert result.returncode == 1
    assert PKG_CONFIG_NAMES in result.stderr.replace("\n", " ")


def test_the_readme_names_the_same_packages():
    readme = (PROJECT / "README.md").read_text()
    packages = (PROJECT / "tools/packages").read_text().replace('" \\\n                "', " ")
    for command in re.findall(r'"  (sudo (?:dnf|pacman) .*)"', packages):
        assert command in re.sub(r" \\\n +", " ", readme)


NO_MODE = "This display has no mode of 800 x 600, so the game uses only its middle.\n"
NO_SOUND = "No sound device was found, so the game plays in silence.\n"


def has_sound():
    return any(Path("/dev/snd").glob("pcm*p")) or Path("/dev/dsp").exists()


def said_on_a_display(size, **changes):
    """What ./play prints on a display of that size; the game is closed again two seconds later."""
    kept = {name: value for name, value in os.environ.items() if name in ("PATH", "HOME", "LANG")}
    with virtual_display(size) as display, subprocess.Popen(
            [PROJECT / "play"], env=dict(kept, DISPLAY=display, **changes),
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True) as process:
        # ./play becomes the game, which on a busy machine takes a while.
        while process.poll() is None and not os.readlink(
                f"/proc/{process.pid}/exe").endswith("/morvane"):
            time.sleep(0.1)
        time.sleep(2)
        process.send_signal(signal.SIGINT)
        return process.communicate(timeout=100)[0]


def plays_on_the_classic_library():
    listed = subprocess.run(["ldd", PROJECT / "build/play/morvane"], capture_output=True, text=True,
                            check=True)
    path = re.search(r"libSDL-1\.2\S* => (\S+)", listed.stdout).group(1)
    return ".so.0." in os.path.realpath(path)


@pytest.fixture(scope="module")
def built():
    """The game built by ./play itself, which ends when it finds no display that it can open."""
    subprocess.run([PROJECT / "play"], timeout=500, capture_output=True, check=False,
                   env=dict(os.environ, SDL_VIDEODRIVER="nonsense", DISPLAY=":none"))
    assert (PROJECT / "build/play/morvane").exists()


@pytest.mark.usefixtures("built")
def test_is_silent_where_everything_is_well():
    assert said_on_a_display("800x600", SDL_AUDIODRIVER="dummy") == ""


@pytest.mark.usefixtures("built")
def test_says_that_the_picture_does_not_fill_the_display():
    said = said_on_a_display("1024x768", SDL_AUDIODRIVER="dummy")
    assert said == (NO_MODE if plays_on_the_classic_library() else "")


@pytest.mark.usefixtures("built")
@pytest.mark.skipif(has_sound(), reason="there is a sound card here")
def test_says_that_there_is_no_sound():
    assert said_on_a_display("800x600") == NO_SOUND
