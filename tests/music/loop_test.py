# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""SDL_mixer repeats every piece without a gap, a silence or a click.

The pieces are played by the real mixer into a file, by way of SDL's disk driver. Nothing here
depends on how fast that goes.
"""
import os
from dataclasses import dataclass
from pathlib import Path

import numpy
import pytest

from engine import loopmp3

DATA = Path(__file__).resolve().parents[2] / 'data'
PIECES = sorted(DATA.glob('music*.mp3'))
SEAMS = 3
NEAR = .14                      # seconds on either side of a seam that are looked at
SETTLED = .11                   # seconds after which it no longer matters where decoding began
QUIET = 65 / 32768              # -54 dB
LONGEST_SILENCE = .005          # seconds
UNHEARD = -60                   # dB of the music
# A short piece in which the end of a round would meet the end of a buffer every 32 rounds.
BUFFER = 4096
EXCERPT_FRAMES = 194
MANY_ROUNDS = 70
HALT_AFTER = '40'               # buffers of the mixer, eight seconds
SLOWLY = '20'                   # milliseconds for a buffer: nine times as fast as it sounds
HALTED_SECONDS = 60             # of sound, during which the piece is halted and restarted
READ_AHEAD = 40960              # bytes of the file that the mixer's decoder keeps when it is halted
A_WHILE = 2                     # seconds from which a beginning is recognised


@dataclass
class Played:
    """A piece in the mixer's hands: its sound over the seams, and where no seam is."""
    frames: list
    sound: numpy.ndarray
    unbroken: numpy.ndarray
    rate: int
    libraries: set

    @property
    def length(self):
        """Samples in a round."""
        return len(self.frames) * loopmp3.FRAME * self.rate // loopmp3.RATE

    @property
    def settled(self):
        return round(SETTLED * self.rate)

    def rounds(self):
        return [self.sound[self.length * number:][:self.length] for number in range(SEAMS)]

    def seams(self):
        return [around(self.sound, self.length * number, self.rate)
                for number in range(1, SEAMS + 1)]


def around(sound, place, rate):
    near = round(NEAR * rate)
    return sound[place - near:place + near]


def play(recording, data, folder):
    """Plays a piece, and once more begun in the middle.

    Then the same frames follow each other across the seam as anywhere else in the file.
    """
    frames = loopmp3.frames(data)
    first, last = frames[:len(frames) // 2], frames[len(frames) // 2:]
    whole, turned = folder / 'whole.mp3', folder / 'turned.mp3'
    whole.write_bytes(data)
    turned.write_bytes(b''.join(last + first))
    seconds = len(frames) * loopmp3.FRAME / loopmp3.RATE
    sound, rate, libraries = recording(whole, SEAMS * seconds + 1)
    other, *_ = recording(turned, seconds)
    middle = len(last) * loopmp3.FRAME * rate // loopmp3.RATE
    return Played(frames, sound, around(other, middle, rate), rate, libraries)


@pytest.fixture(scope='module', name='played', params=PIECES, ids=lambda path: path.stem)
def played_by_the_mixer(request, recording, tmp_path_factory):
    return play(recording, request.param.read_bytes(), tmp_path_factory.mktemp('music'))


def decibels(part, whole):
    """Power of a part relative to that of the whole."""
    return 10 * numpy.log10((part ** 2).sum() / (whole ** 2).sum() + 1e-12)


def longest_run(flags):
    longest = run = 0
    for flag in flags:
        run = run + 1 if flag else 0
        longest = max(longest, run)
    return longest


def largest_step(samples):
    return numpy.abs(numpy.diff(samples, axis=0)).max()


def shifted(sound, model):
    """The part of a sound that is most like the middle of a model, and that middle."""
    margin = len(model) // 4
    middle = model[margin:-margin]
    # Correlation alone would prefer a louder place over a more similar one.
    like = numpy.correlate(sound[:, 0], middle[:, 0], 'valid')
    power = numpy.convolve(sound[:, 0] ** 2, numpy.ones(len(middle)), 'valid')
    at = int((2 * like - power).argmax())
    return sound[at:at + len(middle)], middle


def error_of_seam(seam, unbroken):
    heard, wanted = shifted(seam, unbroken)
    return decibels(heard - wanted, wanted)


def test_runs_on_the_library_asked_for(played):
    assert played.libraries
    asked = Path(os.environ.get('LD_LIBRARY_PATH', '').split(':')[0]).resolve()
    if (asked / 'libSDL-1.2.so.0').exists():
        assert {library.parent for library in played.libraries} == {asked}


def test_every_round_lasts_as_long_as_the_file(played):
    first, *others = [sound[played.settled:] for sound in played.rounds()]
    assert len(others) >= 2
    for other in others:
        assert decibels(other - first, first) < UNHEARD


def test_no_silence_at_the_seams(played):
    for seam in played.seams():
        quiet = (numpy.abs(seam) < QUIET).all(axis=1)
        assert longest_run(quiet) / played.rate <= LONGEST_SILENCE


def test_no_step_at_the_seams_larger_than_inside(played):
    inside = largest_step(played.rounds()[0][played.settled:-played.settled])
    for seam in played.seams():
        assert largest_step(seam) <= inside


def test_seams_sound_as_if_there_were_none(played):
    for seam in played.seams():
        assert error_of_seam(seam, played.unbroken) < UNHEARD


def test_a_lost_frame_would_be_noticed(recording, played, tmp_path):
    # The measurement above can fail.
    short = tmp_path / 'short.mp3'
    short.write_bytes(b''.join(played.frames[:-1]))
    sound, rate, _ = recording(short, played.length / played.rate + 1)
    end = played.length - loopmp3.FRAME * rate // loopmp3.RATE
    assert error_of_seam(around(sound, end, rate), played.unbroken) > UNHEARD


def silences_in_many_rounds(recording, data, folder):
    """Lengths of silent buffers, in samples of the file, while a piece repeats very often."""
    piece = folder / 'excerpt.mp3'
    piece.write_bytes(data)
    seconds = MANY_ROUNDS * EXCERPT_FRAMES * loopmp3.FRAME / loopmp3.RATE
    sound, rate, _ = recording(piece, seconds)
    edges = numpy.diff((numpy.abs(sound) < QUIET).all(axis=1).astype(int), prepend=0, append=0)
    lengths = (numpy.flatnonzero(edges < 0) - numpy.flatnonzero(edges > 0)) / rate
    samples = [round(length * loopmp3.RATE) for length in lengths]
    return [count for count in samples if count > BUFFER / 2]


@pytest.fixture(scope='module', name='excerpt')
def end_of_a_piece():
    """The tag of a piece and its last frames, of which the very last has room for the cut."""
    data = PIECES[-1].read_bytes()
    return data[:loopmp3.tag_size(data)], loopmp3.frames(data)[-EXCERPT_FRAMES:]


def test_no_silence_in_many_rounds(recording, excerpt, tmp_path):
    assert not silences_in_many_rounds(recording, loopmp3.stream(*excerpt), tmp_path)


def test_a_round_that_ends_with_a_buffer_would_be_noticed(recording, excerpt, tmp_path):
    tag, frames = excerpt
    silences = silences_in_many_rounds(recording, tag + b''.join(frames), tmp_path)
    assert len(silences) == MANY_ROUNDS // 32
    assert all(abs(length - BUFFER) < BUFFER / 50 for length in silences)


def longest_silence(sound):
    """(begin, end) of the longest run of silent samples."""
    edges = numpy.diff((numpy.abs(sound) < QUIET).all(axis=1).astype(int), prepend=0, append=0)
    runs = zip(numpy.flatnonzero(edges > 0), numpy.flatnonzero(edges < 0))
    return max(runs, key=lambda run: run[1] - run[0], default=(0, 0))


def begins_at(sound, beginning):
    """Where a sound differs least from the beginning of a piece."""
    left, wanted = sound[:, 0], beginning[:, 0]
    size = 1 << (len(left) + len(wanted)).bit_length()
    product = numpy.fft.irfft(numpy.fft.rfft(left, size) * numpy.fft.rfft(wanted, size).conj())
    power = numpy.concatenate([[0], numpy.cumsum(left ** 2)])
    power = power[len(wanted):] - power[:-len(wanted)]
    return int((power - 2 * product[:len(power)]).argmin())


def test_a_piece_played_again_begins_after_what_the_mixer_had_read(recording, played, tmp_path):
    # SDL_mixer goes back to the start of the file and first plays what it has read already.
    # Neither the file nor the game's calls can prevent that; it is short, and then all is whole.
    piece = tmp_path / 'halted.mp3'
    piece.write_bytes(b''.join(played.frames))
    sound, rate, _ = recording(piece, HALTED_SECONDS, HALT_AFTER, delay=SLOWLY)
    halted, again = longest_silence(sound)
    assert (again - halted) / rate > BUFFER / loopmp3.RATE
    again = sound[again:]
    beginning = played.sound[played.settled:played.settled + A_WHILE * rate]
    at = begins_at(again, beginning)
    assert decibels(again[at:at + len(beginning)] - beginning, beginning) < UNHEARD
    frames = [len(frame) for frame in played.frames]
    fewest = min(numpy.convolve(frames, numpy.ones(50), 'valid')) / 50
    longest = READ_AHEAD / fewest * loopmp3.FRAME / loopmp3.RATE
    assert at / rate <= longest + SETTLED
