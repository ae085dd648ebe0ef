# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The desktop entry, the icons and the metainfo."""

import subprocess
import xml.etree.ElementTree as xml

import numpy
import pytest
from PIL import Image

APPLICATION = "org.morvane.morvane"
SIZES = (16, 24, 32, 48, 64, 96, 128, 256, 512)


def metainfo(build):
    return xml.parse(build / f"packaging/{APPLICATION}.metainfo.xml").getroot()


def entry(project):
    lines = (project / f"packaging/{APPLICATION}.desktop").read_text().splitlines()
    return dict(line.split("=", 1) for line in lines if "=" in line)


def test_the_validators_are_silent(project, build):
    result = subprocess.run([project / "packaging/validate", build / "packaging"],
                            capture_output=True, text=True, check=False)
    assert (result.returncode, result.stdout, result.stderr) == (0, "", "")


def test_the_validators_would_say_something(project, build, tmp_path):
    for name in (f"{APPLICATION}.metainfo.xml", "morvane.6"):
        text = (build / "packaging" / name).read_text()
        (tmp_path / name).write_text(text)
    (tmp_path / "morvane.6").write_text(".Sh NAME\nmorvane\n")
    result = subprocess.run([project / "packaging/validate", tmp_path], capture_output=True,
                            text=True, check=False)
    assert result.returncode != 0
    assert "morvane.6" in result.stderr


def test_entry_and_metainfo_speak_of_one_game(project, build):
    root = metainfo(build)
    assert root.findtext("id") == APPLICATION
    assert root.findtext("launchable") == f"{APPLICATION}.desktop"
    assert root.findtext("provides/binary") == entry(project)["Exec"] == "morvane"
    assert entry(project)["Icon"] == APPLICATION
    assert entry(project)["Name"] == root.findtext("name")


def test_the_pictures_exist_with_a_caption_and_fill_the_display(project, build):
    shots = metainfo(build).findall("screenshots/screenshot")
    assert len(shots) >= 3
    for shot in shots:
        assert shot.findtext("caption")
        image = shot.find("image")
        name = image.text.rsplit("/", 1)[1]
        with Image.open(project / "docs/screenshots" / name) as picture:
            assert picture.size == (800, 600)
            assert picture.size == (int(image.get("width")), int(image.get("height")))


def icon(directory, size):
    with Image.open(directory / f"{size}x{size}/{APPLICATION}.png") as picture:
        assert picture.mode == "RGBA"
        return numpy.asarray(picture, numpy.int16)


@pytest.mark.parametrize("size", SIZES)
def test_an_icon_fills_its_size_and_nothing_else(project, size):
    alpha = icon(project / "packaging/icons", size)[..., 3]
    assert alpha.shape == (size, size)
    assert alpha[0, 0] == 0
    rows, columns = numpy.nonzero(alpha > 60)
    assert min(rows.min(), columns.min()) <= size // 24
    assert max(rows.max(), columns.max()) >= size - 1 - size // 24


def test_the_icons_are_what_their_sources_render(project, tmp_path):
    subprocess.run([project / "packaging/icons/build", tmp_path], check=True)
    for size in SIZES:
        committed = icon(project / "packaging/icons", size)
        rendered = icon(tmp_path, size)
        # Renderers differ a little at edges, and transparent pixels have no colour.
        seen = numpy.abs(committed - rendered) * (committed[..., 3:] > 0)
        assert (seen.max(axis=2) > 32).mean() < 0.002, size
