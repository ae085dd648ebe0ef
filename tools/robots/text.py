# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""Composes the text screens as they should look, with the SDL_ttf library that the game uses."""

import ctypes

import numpy

from .artwork import FONT_SIZE, HEIGHT, WIDTH

HELP = ((-4, "Morvane:"),
        (-2, "Player 1 (left): slower projectile, faster ship"),
        (-1, "WASD = move, Tab/Space = shoot, Z = teleport"),
        (0, "Player 2 (right): faster projectile, slower ship"),
        (1, "Arrows = move, Enter = shoot, Delete = teleport"),
        (3, "Enjoy!"))
# The names of the three makers follow in lines 0 to 2. They may change, so they are not compared.
CREDITS_TITLE = (-2, "This program was made by:")


def game_over(winner):
    """The screen that names player 1 or 2 as the winner."""
    return ((-1, "Game over."), (0, f"Player {winner} won."),
            (1, "Press Escape to return to main menu."))


class Surface(ctypes.Structure):
    """The beginning of SDL 1.2's SDL_Surface."""
    _fields_ = [("flags", ctypes.c_uint32), ("format", ctypes.c_void_p), ("w", ctypes.c_int),
                ("h", ctypes.c_int), ("pitch", ctypes.c_uint16), ("pixels", ctypes.c_void_p)]


class Colour(ctypes.Structure):
    _fields_ = [(name, ctypes.c_uint8) for name in ("r", "g", "b", "unused")]


class Writer:
    """Writes lines with the game's font."""

    def __init__(self, root):
        self.library = ctypes.CDLL("libSDL_ttf-2.0.so.0")
        self.library.TTF_OpenFont.restype = ctypes.c_void_p
        self.library.TTF_RenderText_Blended.restype = ctypes.POINTER(Surface)
        self.library.TTF_RenderText_Blended.argtypes = [ctypes.c_void_p, ctypes.c_char_p, Colour]
        if self.library.TTF_Init() != 0:
            raise RuntimeError("SDL_ttf does not start")
        path = f"{root}/data/papyrus.ttf".encode()
        self.font = self.library.TTF_OpenFont(path, FONT_SIZE)
        if not self.font:
            raise RuntimeError(f"no font {path}")

    def write(self, text):
        """The coverage of the line's pixels, 0 to 255, in the size that the game centres."""
        white = Colour(255, 255, 255, 0)
        surface = self.library.TTF_RenderText_Blended(self.font, text.encode("latin-1"), white)
        rendered = surface.contents
        raw = ctypes.string_at(rendered.pixels, rendered.pitch * rendered.h)
        pixels = numpy.frombuffer(raw, numpy.uint32).reshape(rendered.h, -1)[:, :rendered.w]
        return pixels >> 24  # every pixel is white; the letters are in the alpha channel

    def screen(self, lines):
        """A whole text screen as 0xRRGGBB."""
        grey = numpy.zeros((HEIGHT, WIDTH), numpy.uint32)
        for line, text in lines:
            ink = self.write(text)
            height, width = ink.shape
            x, y = (WIDTH - width) // 2, trunc_half(HEIGHT - height) + height * line
            grey[y:y + height, x:x + width] = numpy.maximum(grey[y:y + height, x:x + width], ink)
        return grey << 16 | grey << 8 | grey


def trunc_half(value):
    return int(value / 2)
