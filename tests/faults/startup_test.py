# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Starts of the game, also without a display, a sound device, files or permissions."""

import os
import re
import shutil

import pytest

import gamerun
import smalldata
from files_test import AS_ANYBODY, GAVE_UP

TERMINATED = "frames=60 terminate"
NO_MIXER = "ERROR: Could not initialize mixer, will start w/o sound\n"


@pytest.fixture(name="place")
def directory_of_its_own(root, tmp_path):
    shutil.copytree(root / "data", tmp_path / "data")
    return tmp_path


def test_a_start_is_silent_leaves_no_files_and_ends_on_request(game, place):
    outcome = game.play(place, TERMINATED)
    assert (outcome.status, outcome.messages) == (0, "")
    assert [entry.name for entry in place.iterdir()] == ["data"]
    assert {entry.name for entry in (place / "data").iterdir()} == set(smalldata.FILES)


def test_no_directory_has_to_be_writable(game, place):
    for directory in (place / "data", place):
        directory.chmod(0o500)
    launcher = AS_ANYBODY if os.geteuid() == 0 else ""
    outcome = game.play(place, TERMINATED, launcher=launcher)
    for directory in (place, place / "data"):
        directory.chmod(0o700)
    assert (outcome.status, outcome.messages) == (0, "")


def test_without_a_video_driver_the_message_gives_the_reason(game, root):
    outcome = game.play(root, TERMINATED, SDL_VIDEODRIVER="bogus")
    assert outcome.status == 1
    assert re.fullmatch("FATAL ERROR: Could not initialize SDL\n"
                        "(No available video device|bogus not available)\n", outcome.messages)


def test_without_a_sound_driver_the_game_is_silent_if_sdl_starts(game, root):
    # The compatibility library already refuses to start.
    outcome = game.play(root, TERMINATED, SDL_AUDIODRIVER="bogus")
    if gamerun.sdl_library(game.binary) == "compat" and outcome.status == 1:
        assert outcome.messages == ("FATAL ERROR: Could not initialize SDL\n"
                                    "Audio target 'bogus' not available\n")
    else:
        assert (outcome.status, outcome.messages) == (0, NO_MIXER + "No available audio device\n")


def test_without_a_mixer_no_music_is_needed(game, place):
    for name in smalldata.TRACKS:
        (place / "data" / name).unlink()
    outcome = game.play(place, TERMINATED, SDL_AUDIODRIVER="disk",
                        SDL_DISKAUDIOFILE="/no/such/file")
    assert outcome.status == 0
    assert outcome.messages.startswith(NO_MIXER + "Couldn't open /no/such/file")


def test_only_the_first_of_the_missing_files_is_missed(game, place):
    for name in reversed((*smalldata.PICTURES, smalldata.FONT, *smalldata.TRACKS)):
        (place / "data" / name).unlink()
        outcome = game.play(place, TERMINATED)
        text = f"ERROR: Can't load {name}\nCouldn't open 'data/{name}'"
        if name not in smalldata.TRACKS:
            text = f"ERROR: Couldn't load data/{name}\nCouldn't open data/{name}"
        assert outcome.status == 1
        # Newer libraries add the system's own reason after a colon.
        assert re.fullmatch(re.escape(text) + r"(: [^\n]*)?\n" + GAVE_UP, outcome.messages)
