# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Cuts an MP3 that loops without a gap.

The loop is a whole number of frames.  It is encoded three times in a row, without a bit
reservoir, shifted so that the delay of encoder and decoder ends on a frame border; the
frames of the middle period then follow their own last frame as they follow each other.
"""
import subprocess

import numpy as np

RATE = 22050
FRAME = 576                # samples in a frame at this rate
DELAY = 576 + 529          # encoder's and decoder's delay in samples
BITRATES = (0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160)


def _encode(samples, options):
    pcm = (np.clip(samples, -1, 1) * 32767).round().astype('<i2').tobytes()
    command = ['lame', '--quiet', '-r', '-s', '22.05', '--bitwidth', '16', '--signed',
               '--little-endian', '-m', 'j', '--resample', '22.05', '-t', '--nores', '-q', '0']
    return subprocess.run(command + options + ['-', '-'], input=pcm, check=True,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout


def tag_size(stream):
    """Bytes of the ID3v2 tag a stream begins with, 0 if there is none."""
    if stream[:3] != b'ID3':
        return 0
    size = 0
    for byte in stream[6:10]:
        size = size << 7 | byte
    return 10 + size


def frames(stream):
    """Frames of an MPEG 2 layer III stream, without its tag."""
    found, at = [], tag_size(stream)
    while at + 4 <= len(stream):
        if stream[at] != 255 or stream[at + 1] & 0xfe != 0xf2:
            raise ValueError(f'no frame at byte {at}')
        size = 72 * BITRATES[stream[at + 2] >> 4] * 1000 // RATE + (stream[at + 2] >> 1 & 1)
        found.append(stream[at:at + size])
        at += size
    return found


def cut(samples, options):
    """The loop as an MP3 file's bytes, after the tag if the options ask for one."""
    count, rest = divmod(len(samples), FRAME)
    if rest:
        raise ValueError(f'{len(samples)} samples are not a whole number of frames')
    shift = -DELAY % FRAME
    stream = _encode(np.roll(np.tile(samples, (3, 1)), shift, 0), options)
    first = count + (DELAY + shift) // FRAME
    middle = frames(stream)[first:first + count]
    if any(frame[6 if not frame[1] & 1 else 4] for frame in middle):
        raise ValueError('a frame uses the bit reservoir')
    return stream[:tag_size(stream)] + b''.join(middle)
