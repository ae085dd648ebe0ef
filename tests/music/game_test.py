# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""What is heard while the game is played, in the mix that SDL's disk driver writes into a file.

The script decides how much sound is made at each step, so that nothing depends on how long anything
takes. A switch of tracks is heard after what had been mixed before it.
"""

import shutil

import numpy
import pytest

import listening
from gamerun import choose, seed_of_track, tap

CHUNK = 4096    # sample frames at the game's own rate
LATENESS = 3    # chunks that may have been mixed before a switch: two, and one in the pipe

A_SECOND = "seconds=1 "
# From the intro, through the menu, help and credits, back to the menu each time.
QUIET_PLACES = ("frames=1 mark=intro " + A_SECOND + tap("f5") + "mark=menu " + A_SECOND +
                choose(1) + A_SECOND + tap("escape") + A_SECOND +
                choose(2) + A_SECOND + tap("escape") + "frames=1 " + "seconds=3 ")
ONE_BATTLE = ("frames=1 " + A_SECOND + tap("f5") + A_SECOND + choose(0) + "mark=battle " +
              "seconds=3 mark=escape " + tap("escape") + "mark=back " + A_SECOND)
END = "mark=end quit"


def numbers(stretches):
    return [stretch.track for stretch in stretches]


def lateness(game):
    return LATENESS * CHUNK * game.rate // listening.RATE


def assert_silence_before(stretch, mix):
    assert listening.is_silent(mix[:stretch.begin])


def assert_switch(before, after, marked, game):
    """One stretch follows the other at once, and not long after the mark."""
    assert after.begin - before.end <= listening.HINT
    assert marked <= after.begin <= marked + lateness(game)


def test_track_1_runs_on_through_all_screens_but_the_battle(game):
    heard, marks, mix = game.listen(QUIET_PLACES + END)
    assert numbers(heard) == [1]
    assert_silence_before(heard[0], mix)
    assert heard[0].begin <= lateness(game)
    assert heard[0].start < listening.BLOCK
    assert heard[0].end > marks["end"] - listening.BLOCK
    assert len(mix) == marks["end"] == 8 * game.rate


@pytest.mark.parametrize("track", [2, 3])
def test_a_battle_plays_the_track_picked_and_the_menu_track_1_again(game, track):
    heard, marks, mix = game.listen(ONE_BATTLE + END, MORVANE_FIXED_TIME=seed_of_track(track))
    assert numbers(heard) == [1, track, 1]
    intro, battle, menu = heard
    assert_silence_before(intro, mix)
    assert_switch(intro, battle, marks["battle"], game)
    assert_switch(battle, menu, marks["back"], game)
    assert intro.start < listening.BLOCK and battle.start < listening.HINT
    assert menu.end > marks["end"] - listening.BLOCK


def test_two_battles_pick_their_tracks_one_after_the_other(game):
    heard, *_ = game.listen(ONE_BATTLE + choose(0) + A_SECOND + tap("escape") + A_SECOND + END,
                            MORVANE_FIXED_TIME=0)
    assert numbers(heard)[::2] == [1, 1, 1]
    assert set(numbers(heard)[1::2]) <= {2, 3}


def test_a_track_with_nothing_in_it_is_silence_until_the_next(game):
    file, kept = game.root / "data/music2.mp3", game.root / "kept.mp3"
    shutil.move(file, kept)
    file.touch()
    try:
        heard, marks, mix = game.listen(ONE_BATTLE + END, MORVANE_FIXED_TIME=seed_of_track(2))
    finally:
        shutil.move(kept, file)
    assert numbers(heard) == [1, 1]
    between = mix[heard[0].end + listening.HINT:heard[1].begin - listening.HINT]
    assert len(between) > game.rate
    assert listening.is_silent(between)
    assert heard[1].begin >= marks["back"]


def test_a_track_that_does_not_start_is_silence_and_not_tried_again(game):
    outcome, _ = game.play("frames=1 quit")
    number = 1 + [call.function for call in outcome.calls].index("Mix_PlayMusic")
    heard, marks, mix = game.listen(ONE_BATTLE + END, MORVANE_FAIL_AT=number,
                                    MORVANE_FIXED_TIME=seed_of_track(3))
    assert numbers(heard) == [3, 1]
    assert_silence_before(heard[0], mix)
    assert heard[0].begin >= marks["battle"]


def test_without_a_sound_device_nothing_is_played(game):
    file = game.root / "nowhere/mix.raw"
    outcome, mix = game.play(QUIET_PLACES.replace("seconds=", "frames=") + END,
                             SDL_DISKAUDIOFILE=file)
    assert outcome.status == 0
    assert outcome.messages.startswith("ERROR: Could not initialize mixer, will start w/o sound\n")
    assert len(mix) == 0
    calls = [call.function for call in outcome.calls if call.function.startswith("Mix_")]
    assert calls == ["Mix_OpenAudio"]


def test_the_listening_notices_a_lost_chunk_and_a_restart(game):
    track = game.tracks[1]
    begin, cut = numpy.zeros(CHUNK), 5 * CHUNK
    lost = numpy.concatenate([begin, track[:cut], track[cut + CHUNK:]])
    again = numpy.concatenate([begin, track[:cut], track])
    whole = numpy.concatenate([begin, track])
    assert [stretch.start for stretch in listening.stretches(lost[:9 * CHUNK], game.tracks)
            ] == pytest.approx([0, cut + CHUNK], abs=2 * listening.BLOCK)
    assert [stretch.start for stretch in listening.stretches(again[:9 * CHUNK], game.tracks)
            ] == pytest.approx([0, 0], abs=2 * listening.BLOCK)
    assert listening.stretches(whole, game.tracks)[0].end > len(whole) - listening.BLOCK
