# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Everything is installed where it belongs, and where the game looks for it."""

import re
import stat
import subprocess
import tarfile

import pytest

import smalldata
from conftest import install

ICON_SIZES = (16, 24, 32, 48, 64, 96, 128, 256, 512)
APPLICATION = "org.morvane.morvane"


def places(data_names):
    """Every installed file except the manual page, whose place depends on the system."""
    icons = [f"share/icons/hicolor/{size}x{size}/apps/{APPLICATION}.png" for size in ICON_SIZES]
    return sorted(["games/morvane", "share/man/man6/morvane.6",
                   "share/doc/morvane/CHANGELOG.md",
                   f"share/applications/{APPLICATION}.desktop",
                   f"share/metainfo/{APPLICATION}.metainfo.xml",
                   f"share/icons/hicolor/scalable/apps/{APPLICATION}.svg"]
                  + icons + [f"share/games/morvane/{name}" for name in data_names])


def data_names(project):
    """The files that the game names in its source, and the marker."""
    named = set()
    for source in ("main.cpp", "music.cpp"):
        text = (project / "src" / source).read_text()
        named |= set(re.findall(r'"([\w-]+\.(?:png|ttf|mp3|dat))"', text))
    return sorted(named)


def test_all_files_are_in_their_places(project, installed):
    _, directory = installed
    names = data_names(project)
    assert names == sorted(smalldata.FILES)
    found = sorted(str(path.relative_to(directory)) for path in directory.rglob("*")
                   if path.is_file())
    assert found == places(names)


def test_the_data_arrives_unchanged(project, installed):
    _, directory = installed
    for name in data_names(project):
        copy = directory / "share/games/morvane" / name
        assert copy.read_bytes() == (project / "data" / name).read_bytes(), name


def test_only_the_program_can_be_run_and_all_can_be_read(installed):
    _, directory = installed
    for path in directory.rglob("*"):
        mode = stat.S_IMODE(path.stat().st_mode)
        runs = path.is_dir() or path.name == "morvane" and path.parent.name == "games"
        assert mode == (0o755 if runs else 0o644), f"{path}: {mode:o}"


def test_the_program_looks_where_its_data_was_installed(installed):
    prefix, directory = installed
    program = (directory / "games/morvane").read_bytes()
    assert f"\0{prefix}/share/games/morvane/\0".encode() in program


def test_another_prefix_is_warned_of(build, tmp_path):
    remarks = install(build, "/opt/morvane", tmp_path)
    assert "below /usr and /usr/local only" in " ".join(remarks.split())


def pack(build, directory, *arguments):
    # With this generator's name cpack takes the build as it is. It would bring it up to date
    # otherwise, beside other tests that are running from it.
    subprocess.run(["cpack", "-B", directory, "-D", "CPACK_CMAKE_GENERATOR=Ninja", *arguments],
                   cwd=build, check=True, capture_output=True, text=True)


@pytest.fixture(scope="module")
def packed(build, tmp_path_factory):
    """The directory with the package and the archive that cpack makes by default."""
    directory = tmp_path_factory.mktemp("packed")
    pack(build, directory)
    return directory


def test_the_archive_unpacks_into_usr_local(project, packed, version):
    archive, = packed.glob(f"morvane-{version}-Linux*.tar.gz")
    with tarfile.open(archive) as files:
        names = [member.name.split("/", 1)[1] for member in files if member.isfile()]
    assert sorted(names) == places(data_names(project))


def test_the_plain_package_names_what_it_needs(project, packed, version):
    package, = packed.glob(f"morvane_{version}_*.deb")
    listed = subprocess.run(["dpkg-deb", "--contents", package], check=True, capture_output=True,
                            text=True).stdout.splitlines()
    names = [line.split("./usr/", 1)[1] for line in listed if not line.startswith("d")]
    assert sorted(names) == places(data_names(project))
    needs = subprocess.run(["dpkg-deb", "--field", package, "Depends", "Version"], check=True,
                           capture_output=True, text=True).stdout
    assert f"Version: {version}\n" in needs
    for library in ("libsdl1.2", "libsdl-image1.2", "libsdl-ttf2.0", "libsdl-mixer1.2"):
        assert library in needs


def test_the_source_archive_holds_the_project(project, build, version, tmp_path):
    listed = subprocess.run(["git", "ls-files", "-z"], cwd=project, capture_output=True,
                            check=False)
    pack(build, tmp_path, "--config", "CPackSourceConfig.cmake")
    with tarfile.open(tmp_path / f"morvane-{version}.tar.gz") as files:
        names = {member.name.split("/", 1)[1] for member in files if member.isfile()}
    assert {"CMakeLists.txt", "src/main.cpp", "data/morvane.dat", "debian/rules"} <= names
    assert not [name for name in names if name.startswith((".git/", "build/"))]
    if listed.returncode == 0:
        assert set(listed.stdout.decode().split("\0")[:-1]) <= names
