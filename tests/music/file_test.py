# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The music files suit the game's mixer."""
import re
from pathlib import Path

import pytest

from engine import loopmp3

ROOT = Path(__file__).resolve().parents[2]
SCORES = sorted((ROOT / 'assets' / 'music').glob('music*.score'))
LARGEST = 2_500_000
MPEG2_LAYER3 = 0b11110010       # in the second byte; the last bit tells of a checksum
MONO = 3
SHORTEST = 120                  # seconds

pytestmark = pytest.mark.parametrize('score', SCORES, ids=lambda path: path.stem)


def mp3(score):
    return ROOT / 'data' / f'{score.stem}.mp3'


def frames(score):
    return loopmp3.frames(mp3(score).read_bytes())


def test_file_is_small(score):
    assert mp3(score).stat().st_size <= LARGEST


def test_piece_is_at_the_rate_of_the_mixer_in_stereo(score):
    for frame in frames(score):
        assert frame[1] & 0xfe == MPEG2_LAYER3
        assert frame[2] >> 2 & 3 == 0  # 22050 samples a second
        assert frame[3] >> 6 != MONO


def test_piece_lasts(score):
    assert len(frames(score)) * loopmp3.FRAME / loopmp3.RATE >= SHORTEST


def test_number_of_frames_is_even(score):
    # With the last frame put off to the next round, no round then ends where a buffer of the
    # mixer does, which would leave that buffer silent.
    assert len(frames(score)) % 2 == 0


def test_last_frame_is_finished_by_the_next_round(score):
    data = mp3(score).read_bytes()
    missing = loopmp3.GUARD + loopmp3.tag_size(data)
    whole = frames(score)
    assert len(data) == loopmp3.tag_size(data) + sum(map(len, whole)) - missing
    assert loopmp3.HEAD + len(loopmp3.main_data(whole[-1])) <= len(whole[-1]) - missing


def test_no_frame_needs_the_one_before(score):
    # The first frame has none before it: its main data must begin in itself.
    for frame in frames(score):
        assert frame[4 if frame[1] & 1 else 6] == 0


def text_frame(kind, text):
    """A text frame of an ID3v2.3 tag, in Latin-1."""
    return kind + (len(text) + 1).to_bytes(4, 'big') + b'\0\0' + b'\0' + text.encode('latin-1')


def test_tag_tells_title_game_and_licence(score):
    title = re.search(r'^title : (.+)$', score.read_text(), re.MULTILINE).group(1)
    data = mp3(score).read_bytes()
    tag = data[:loopmp3.tag_size(data)]
    assert text_frame(b'TIT2', title) in tag
    assert text_frame(b'TALB', 'Morvane') in tag
    assert text_frame(b'TCOP', '2026 The Morvane makers, CC-BY-4.0') in tag


def test_tag_holds_nothing_like_a_frame(score):
    data = mp3(score).read_bytes()
    assert 0xff not in data[:loopmp3.tag_size(data)]
