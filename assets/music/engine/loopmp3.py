# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Cuts an MP3 that loops without a gap.

The loop is a whole number of frames.  It is encoded three times in a row, without a bit
reservoir, shifted so that the delay of encoder and decoder ends on a frame border.
So the last frame of the middle copy can be followed by its first frame without a break.

The mixer asks its decoder for 4096 samples at a time and notices the end of the file by
getting fewer; a file that ends just where such a buffer does costs a whole buffer of silence
before it begins again.  So the file stops short inside the unused bytes of its last frame.
The decoder, which adds GUARD zero bytes at the end of a file, cannot finish that frame there;
it does so with the first bytes of the next round (the tag, which it would skip) and plays it
then.  The k-th round ends after k * count - 1 frames, an odd number if count is even, and no
odd number of frames is a whole number of buffers.
"""
import subprocess

import numpy as np

RATE = 22050
FRAME = 576                # samples in a frame at this rate
DELAY = 576 + 529          # encoder's and decoder's delay in samples
HEAD = 4 + 17              # bytes of a frame before its main data: header, side information
GUARD = 8                  # zero bytes that the decoder adds at the end of a file
EARLY = range(2, 9)        # frames before the loop's beginning at which the file may begin
BITRATES = (0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160)


def _encode(samples, options):
    pcm = (np.clip(samples, -1, 1) * 32767).round().astype('<i2').tobytes()
    command = ['lame', '--quiet', '-r', '-s', '22.05', '--bitwidth', '16', '--signed',
               '--little-endian', '-m', 'j', '--resample', '22.05', '-t', '--nores', '-q', '0']
    return subprocess.run(command + options + ['-', '-'], input=pcm, check=True,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout


def tag_size(data):
    """Bytes of the ID3v2 tag a stream begins with, 0 if there is none."""
    if data[:3] != b'ID3':
        return 0
    size = 0
    for byte in data[6:10]:
        size = size << 7 | byte
    return 10 + size


def tag(texts):
    """An ID3v2.3 tag of text frames, {frame: text}, as short as can be: see stream.

    In Latin-1: the byte order mark of UTF-16 looks like the beginning of an MP3 frame.
    """
    body = b''.join(kind.encode() + (len(text) + 1).to_bytes(4, 'big') + b'\0\0\0' +
                    text.encode('latin-1') for kind, text in texts.items())
    size = bytes(len(body) >> shift & 127 for shift in (21, 14, 7, 0))
    return b'ID3\x03\0\0' + size + body


def _size(header):
    return 72 * BITRATES[header[2] >> 4] * 1000 // RATE + (header[2] >> 1 & 1)


def frames(data):
    """Frames of an MPEG 2 layer III stream, without its tag; the last one made whole."""
    found, at = [], tag_size(data)
    while at + 4 <= len(data):
        if data[at] != 255 or data[at + 1] & 0xfe != 0xf2:
            raise ValueError(f'no frame at byte {at}')
        size = _size(data[at:at + 4])
        found.append(data[at:at + size].ljust(size, b'\0'))
        at += size
    return found


def main_data(frame):
    """The bytes that a frame of two channels uses for its sound."""
    bits = ''.join(f'{byte:08b}' for byte in frame[4:HEAD])
    first, second = 10, 73  # where each channel's side information begins with its length
    used = int(bits[first:first + 12], 2) + int(bits[second:second + 12], 2)
    return frame[HEAD:HEAD + (used + 7) // 8]


def _with_room(frame, room):
    """The same sound in the smallest frame with `room` unused bytes at its end, or None."""
    data = main_data(frame)
    for index in range(1, len(BITRATES)):
        header = bytes([*frame[:2], index << 4 | frame[2] & 15, frame[3]])
        if _size(header) >= HEAD + len(data) + room:
            return (header + frame[4:HEAD] + data).ljust(_size(header), b'\0')
    return None


def stream(head, loop):
    """A file, tag first, whose last frame is finished by the beginning of the next round.

    It begins a few frames before the loop does: instruments that speak slowly are played that
    early, and a loud first beat leaves no room in the frame before it.
    """
    short = GUARD + len(head)
    for early in EARLY:
        *others, last = loop[-early:] + loop[:-early]
        last = _with_room(last, short)
        if last:
            return head + b''.join(others) + last[:-short]
    raise ValueError(f'no frame before the loop begins has room for {short} bytes')


def cut(samples, options, head):
    """The loop as an MP3 file's bytes after those of its tag."""
    count, rest = divmod(len(samples), FRAME)
    if rest:
        raise ValueError(f'{len(samples)} samples are not a whole number of frames')
    shift = -DELAY % FRAME
    encoded = _encode(np.roll(np.tile(samples, (3, 1)), shift, 0), options)
    first = count + (DELAY + shift) // FRAME
    middle = frames(encoded)[first:first + count]
    if any(frame[6 if not frame[1] & 1 else 4] for frame in middle):
        raise ValueError('a frame uses the bit reservoir')
    return stream(head, middle)
