# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Facts that several files state are the same in all of them."""

import re
import subprocess
import xml.etree.ElementTree as xml

import pytest
from debian.changelog import Changelog
from debian.copyright import Copyright


# Versions

def test_all_places_name_one_version_and_one_day(project, build, version):
    changes = (project / "CHANGELOG.md").read_text()
    heading = re.search(r"^## ([0-9.]+) – (\d{4}-\d\d-\d\d)$", changes, re.M)
    release = xml.parse(build / "packaging/org.morvane.morvane.metainfo.xml").find(
        "releases/release")
    package = Changelog((project / "debian/changelog").read_text())
    day = subprocess.run(["date", "-u", "-d", package.date, "+%F"], capture_output=True,
                         text=True, check=True).stdout.strip()
    assert heading.groups() == (version, day)
    assert (release.get("version"), release.get("date")) == (version, day)
    assert str(package.version) == version
    assert f"version {version}." in (build / "packaging/morvane.6").read_text()


def test_no_other_file_states_the_version(project, version):
    for name in ("README.md", "debian/control", "packaging/morvane.6.in",
                 "packaging/org.morvane.morvane.metainfo.xml.in", "packaging/CMakeLists.txt"):
        assert version not in (project / name).read_text(), name


# The manual and the README

def page(build):
    """The manual page as a reader sees it, in one line."""
    text = subprocess.run(["mandoc", "-Tutf8", "-Owidth=900", build / "packaging/morvane.6"],
                          capture_output=True, check=True, text=True).stdout
    return " ".join(re.sub(".\b", "", text).replace("‐", "-").split())


def messages(project):
    """Every message of the game, as its source begins it."""
    found = set()
    for path in (project / "src").glob("*.cpp"):
        found |= set(re.findall(r'error\(\(?"\$?([^"]+)"', path.read_text()))
    return sorted(found)


def test_the_manual_explains_every_message(project, build):
    known = messages(project)
    assert len(known) == 9
    text = page(build).replace("’", "'")
    for message in known:
        assert f"ERROR: {message.strip()}" in text, message


def data_places(project):
    text = (project / "src/main.cpp").read_text()
    table = re.search(r"dataPlaces\[\] = \{(.*?)\};", text, re.S).group(1)
    return [prefix or "./" for prefix in re.findall(r'"([^"]*)"', table)]


def test_manual_and_readme_list_the_places_of_the_data(project, build):
    places = data_places(project)
    assert len(places) == 8
    numbered = [f"{number}. {place}" for number, place in enumerate(places, 1)]
    assert " ".join(numbered) in page(build)
    readme = (project / "README.md").read_text()
    assert re.findall(r"^\d\. `([^`]+)`$", readme, re.M) == places


KEYS = {"a": "A", "d": "D", "w": "W", "z": "Z", "TAB": "Tab", "SPACE": "Space", "LEFT": "Left",
        "RIGHT": "Right", "UP": "Up", "RETURN": "Enter", "DELETE": "Delete"}


def test_manual_and_readme_name_the_keys_of_the_duel(project, build):
    used = set(re.findall(r"SDLK_(\w+)", (project / "src/playership.cpp").read_text()))
    assert used == set(KEYS)
    arrows = {"Left": "←", "Right": "→", "Up": "↑"}
    readme = (project / "README.md").read_text()
    table = readme[readme.index("### Keys"):]
    manual = page(build)
    manual = manual[manual.index("Keys in a duel"):manual.index("Keys elsewhere")]
    for key in KEYS.values():
        assert re.search(rf"\b{key}\b", manual), key
        assert re.search(rf"{arrows.get(key, key)}\b|{arrows.get(key, key)} ", table), key


# Licences

def licences_in_the_files(project):
    """The licence of each file after the REUSE specification."""
    result = subprocess.run(["reuse", "spdx"], cwd=project, capture_output=True, text=True,
                            check=True)
    found = {}
    for line in result.stdout.splitlines():
        key, _, value = line.partition(": ")
        if key == "FileName":
            name = value[2:]
        elif key == "LicenseInfoInFile":
            found.setdefault(name, []).append(value)
    return found


@pytest.fixture(scope="module")
def licences(project):
    return licences_in_the_files(project)


def test_every_file_has_its_licence(project):
    result = subprocess.run(["reuse", "lint"], cwd=project, capture_output=True, text=True,
                            check=False)
    assert result.returncode == 0, result.stdout


def test_debian_copyright_agrees_with_every_file(project, licences):
    with open(project / "debian/copyright", encoding="utf-8") as file:
        stated = Copyright(file)
    assert len(licences) > 200
    disagreeing = []
    for name, found in licences.items():
        paragraph = stated.find_files_paragraph(name)
        if [paragraph.license.synopsis] != found:
            disagreeing.append((name, found, paragraph.license.synopsis))
    assert disagreeing == []


def test_debian_copyright_holds_the_texts(project):
    text = (project / "debian/copyright").read_text()
    words = " ".join(re.sub(r"^ \.$", "", text, flags=re.M).split())
    for licence in (project / "LICENSES").glob("*.txt"):
        assert " ".join(licence.read_text().split()) in words, licence.name
