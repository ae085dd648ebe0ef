# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""A virtual display with the game on it, its keyboard and mouse, and a view of its pixels."""

import mmap
import os
import shutil
import signal
import struct
import subprocess
import tempfile
import threading
import time
from pathlib import Path

import numpy
from PIL import Image

WIDTH, HEIGHT = 800, 600
LOOK_INTERVAL = 0.004  # seconds; a quarter of a frame, so that no frame is missed


class StageError(Exception):
    """The game did something that it should not do."""


class NeverSeen(StageError):
    """Something that should have appeared on the display did not, or not in time."""


class VirtualDisplay:
    """An X server without a screen. Its frame buffer is a file that can be read at any time.

    The pointer can be moved, but is never drawn: the game leaves it to the X server.
    """

    def __init__(self, directory):
        reader, writer = os.pipe()
        self.process = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writer), "-screen", "0", f"{WIDTH}x{HEIGHT}x24",
             "-fbdir", str(directory), "-nolisten", "tcp", "-noreset", "-nocursor"],
            pass_fds=[writer], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as number:
            self.name = ":" + number.readline().strip()
        if self.name == ":":
            raise StageError("Xvfb did not start")
        self.pixels = self._map_pixels(Path(directory) / "Xvfb_screen0")

    @staticmethod
    def _map_pixels(path):
        # The file is an X window dump: a header, a colour map of 12-byte entries, the pixels.
        with open(path, "rb") as file:
            memory = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)
        header = struct.unpack(">25I", memory[:100])
        start = header[0] + 12 * header[19]
        stride = header[12] // 4
        pixels = numpy.frombuffer(memory, numpy.uint32, stride * HEIGHT, start)
        return pixels.reshape(HEIGHT, stride)[:, :WIDTH]

    def picture(self):
        """The display's pixels as 0xRRGGBB. Copies again when they changed during the copy."""
        for _ in range(6):
            picture = self.pixels.copy()
            if numpy.array_equal(picture, self.pixels):
                break
        picture &= 0xFFFFFF
        return picture

    def stop(self):
        stop_process(self.process, signal.SIGTERM)


def stop_process(process, how):
    if process.poll() is None:
        process.send_signal(how)
        try:
            process.wait(5)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()


class Stage:
    """The game on its own virtual display. Use it as a context manager: it leaves nothing behind.

    binary is the game's program, root the directory in which it is started. With a seed, the
    preloaded library fixed_time fixes the game's clock, and so its random generator.
    """

    def __init__(self, binary, root, seed=None, fixed_time=None):
        self.binary = Path(binary).resolve()
        self.root = Path(root).resolve()
        self.seed = seed
        self.fixed_time = fixed_time
        self.held = set()
        self.lock = threading.Lock()
        self.scratch = None
        self.display = self.hands = self.game = None
        self.started = None  # when the game was started; this time seeds its generator

    def __enter__(self):
        self.scratch = Path(tempfile.mkdtemp(prefix="morvane-stage-"))
        try:
            self.display = self._open_display()
            self.hands = subprocess.Popen(["xdotool", "-"], stdin=subprocess.PIPE, text=True,
                                          env=self._environment(), stdout=subprocess.DEVNULL,
                                          stderr=subprocess.DEVNULL)
            self._start_game()
        except BaseException:
            self._clear()
            raise
        return self

    def __exit__(self, *_):
        self._clear()

    def _open_display(self):
        return VirtualDisplay(self.scratch)

    def _environment(self):
        environment = dict(os.environ, DISPLAY=self.display.name, SDL_AUDIODRIVER="dummy",
                           SDL_VIDEODRIVER="x11")
        # The compatibility library would draw through OpenGL. Without a graphics card, a frame then
        # takes more than twice the processor time.
        environment.update(SDL_RENDER_DRIVER="software", SDL_FRAMEBUFFER_ACCELERATION="0")
        environment.pop("WAYLAND_DISPLAY", None)
        return environment

    def _start_game(self):
        environment = self._environment()
        if self.fixed_time is not None and self.seed is not None:
            environment["LD_PRELOAD"] = str(self.fixed_time)
            environment["MORVANE_FIXED_TIME"] = str(self.seed)
        self.started = time.time()
        with open(self.scratch / "stderr", "wb") as stderr:
            self.game = subprocess.Popen([self.binary], cwd=self.root, env=environment,
                                         stdin=subprocess.DEVNULL, stderr=stderr)

    def _clear(self):
        for process, how in ((self.game, signal.SIGKILL), (self.hands, signal.SIGTERM)):
            if process is not None:
                stop_process(process, how)
        if self.hands is not None:
            try:
                self.hands.stdin.close()
            except BrokenPipeError:
                pass
        if self.display is not None:
            self.display.stop()
        shutil.rmtree(self.scratch, ignore_errors=True)

    # Input

    def _do(self, command):
        with self.lock:
            self.hands.stdin.write(command + "\n")
            self.hands.stdin.flush()

    def press(self, key):
        if key not in self.held:
            self.held.add(key)
            self._do(f"keydown --delay 0 {key}")

    def release(self, key):
        if key in self.held:
            self.held.remove(key)
            self._do(f"keyup --delay 0 {key}")

    def tap(self, key):
        # Classic SDL 1.2 mistakes a press within 2 ms of a release for key repetition, and drops
        # both.
        self._do(f"key --delay 0 {key} sleep 0.01")

    def point(self, x, y):
        self._do(f"mousemove {x} {y}")

    def click(self, button=1):
        self._do(f"click --delay 0 {button}")

    def close_window(self):
        """Asks the game's window to close, as the close button of a window manager does."""
        # Imported here, because the tests need this package and the demonstration does not.
        from Xlib import display, protocol  # pylint: disable=import-outside-toplevel
        connection = display.Display(self.display.name)
        protocols = connection.intern_atom("WM_PROTOCOLS")
        delete = connection.intern_atom("WM_DELETE_WINDOW")
        asked = 0
        for window in connection.screen().root.query_tree().children:
            if delete in (window.get_wm_protocols() or []):
                window.send_event(protocol.event.ClientMessage(
                    window=window, client_type=protocols, data=(32, [delete, 0, 0, 0, 0])))
                asked += 1
        connection.flush()
        connection.sync()
        connection.close()
        if asked != 1:
            raise StageError(f"expected one window that can be closed, found {asked}")

    # Pixels

    def picture(self):
        return self.display.picture()

    def save(self, path, picture=None):
        image = to_image(self.picture() if picture is None else picture)
        image.save(path, compress_level=1)  # quickly, because the pilots wait for it

    def wait_for(self, condition, what, timeout=20, interval=LOOK_INTERVAL):
        """Looks until condition(picture) holds and returns the first true value."""
        deadline = time.monotonic() + timeout
        while True:
            result = condition(self.picture())
            if result:
                return result
            if self.game.poll() is not None:
                raise StageError(f"the game ended ({self.game.returncode}) before {what}: "
                                 + self.messages())
            if time.monotonic() > deadline:
                raise NeverSeen(f"never seen in {timeout} s: {what}")
            time.sleep(interval)

    # Ending the game

    def messages(self):
        return (self.scratch / "stderr").read_text(errors="replace")

    def finish(self, timeout=20):
        """Waits for the game to end by itself; returns its exit status and its messages."""
        try:
            return self.game.wait(timeout), self.messages()
        except subprocess.TimeoutExpired:
            raise StageError(f"the game did not end in {timeout} s") from None


def to_image(picture):
    planes = [(picture >> shift & 255).astype(numpy.uint8) for shift in (16, 8, 0)]
    return Image.fromarray(numpy.dstack(planes))
