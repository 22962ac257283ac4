#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Draws assets/search.avi and assets/filecopy.avi, played during a search and during a transfer.

`make_animations.py frames FOLDER` writes the single frames as PNG files instead.
"""

import math
import pathlib
import sys

sys.dont_write_bytecode = True

from avi import movie
from raster import Canvas, circle, outline, rounded_box, stroke

FOLDER = pathlib.Path(__file__).resolve().parent.parent / "assets"
WIDTH, HEIGHT = 272, 60
SCALE = 2
FRAMES, FRAMES_PER_SECOND = 24, 12

# Mid-tones, legible on a light and on a dark ground.
GREY = (127, 140, 141)
BLUE = (46, 134, 193)
RED = (217, 72, 59)
AMBER = (185, 119, 14)
PALE = (214, 220, 224)


def draw_computer(canvas):
    canvas.draw(rounded_box(8, 8, 48, 34, 3), GREY)
    canvas.draw(rounded_box(11.5, 11.5, 41, 27, 1), BLUE)
    for y, length in ((18, 24), (25, 30), (32, 16)):
        canvas.draw(stroke(17, y, 17 + length, y, 2.4), PALE)
    canvas.draw(rounded_box(27, 42, 10, 6, 0), GREY)
    canvas.draw(rounded_box(18, 47, 28, 4, 2), GREY)


# Which of the bars top, upper left, upper right, middle, lower left, lower right, bottom a digit lights.
BARS = ((0, 0, 6, 0), (0, 0, 0, 6), (6, 0, 6, 6), (0, 6, 6, 6), (0, 6, 0, 12), (6, 6, 6, 12), (0, 12, 6, 12))
DIGITS = {"2": "1011101", "5": "1101011", "7": "1010010"}


def draw_digit(canvas, digit, x, y):
    for lit, (x1, y1, x2, y2) in zip(DIGITS[digit], BARS):
        if lit == "1":
            canvas.draw(stroke(x + x1, y + y1, x + x2, y + y2, 2), RED)


def draw_unit(canvas):
    canvas.draw(outline(rounded_box(216, 7, 48, 46, 4), 3), GREY)
    canvas.draw(rounded_box(221, 12, 38, 21, 2), GREY, 0.3)
    for digit, x in (("7", 226), ("2", 237), ("5", 248)):
        draw_digit(canvas, digit, x, 16.5)
    canvas.draw(circle(245.7, 29, 1.3), RED)
    for i in range(4):
        canvas.draw(rounded_box(222.5 + 9.5 * i, 40, 6, 6, 1.5), BLUE)


def draw_cable(canvas):
    for x in range(68, 212, 10):
        canvas.draw(stroke(x, 48, x + 3, 48, 2), GREY, 0.7)


def partners():
    canvas = Canvas(WIDTH, HEIGHT, SCALE)
    draw_computer(canvas)
    draw_unit(canvas)
    draw_cable(canvas)
    return canvas


def draw_lens(canvas, x, y):
    canvas.draw(circle(x, y, 13), BLUE, 0.22)
    canvas.draw(stroke(x + 10.5, y + 10.5, x + 19, y + 19, 6), AMBER)
    canvas.draw(outline(circle(x, y, 15), 3.5), AMBER)
    canvas.draw(stroke(x - 7, y - 2, x - 2, y - 7, 2.2), PALE)


def search_frame(ground, turn):
    """The lens goes over to the unit and comes back, bobbing on its way."""
    canvas = ground.copy()
    x = 136 - 56 * math.cos(2 * math.pi * turn)
    draw_lens(canvas, x, 25 + 5 * math.sin(4 * math.pi * turn))
    return canvas


def draw_page(canvas, x, y, opacity):
    canvas.draw(rounded_box(x, y, 20, 25, 2), PALE, opacity)
    canvas.draw(outline(rounded_box(x, y, 20, 25, 2), 2.2), GREY, opacity)
    for i, (length, colour) in enumerate(((11, BLUE), (8, AMBER), (11, BLUE))):
        canvas.draw(stroke(x + 4.8, y + 6.5 + 6 * i, x + 4.8 + length, y + 6.5 + 6 * i, 2.2), colour, opacity)


PAGES = 3


def filecopy_frame(ground, turn):
    """Pages leave the computer one after the other, fly in a bow and fade before the unit."""
    canvas = ground.copy()
    for page in range(PAGES):
        way = (turn + page / PAGES) % 1.0
        opacity = min(1.0, way * 7, (1.0 - way) * 7)
        draw_page(canvas, 58 + 136 * way, 18 - 15 * math.sin(math.pi * way), opacity)
    return canvas


MOVIES = {"search": search_frame, "filecopy": filecopy_frame}


def pictures(frame):
    ground = partners()
    return [frame(ground, i / FRAMES).png() for i in range(FRAMES)]


def main():
    for name, frame in MOVIES.items():
        drawn = pictures(frame)
        if sys.argv[1:2] == ["frames"]:
            for i, picture in enumerate(drawn):
                (pathlib.Path(sys.argv[2]) / f"{name}-{i:02}.png").write_bytes(picture)
        else:
            data = movie(WIDTH * SCALE, HEIGHT * SCALE, FRAMES_PER_SECOND, drawn)
            (FOLDER / f"{name}.avi").write_bytes(data)


if __name__ == "__main__":
    main()
