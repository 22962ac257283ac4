#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Proves the stored pictures and animations, and prints what is wrong.

Pictures are those that the scripts beside this one draw, in the agreed colours and with elements that a small
SVG renderer knows; the index of an animation leads to PNG frames.
"""

import re
import struct
import sys
import xml.etree.ElementTree

sys.dont_write_bytecode = True

import make_animations
import make_pictures
from avi import frames_of
from svg import COLOURS

ELEMENTS = {"svg", "title", "path", "rect", "circle", "text"}
LARGEST_ANIMATION = 300000  # bytes; it lies in the repository and in every package


def picture_faults(name, drawing):
    tags = {node.tag.rpartition("}")[2] for node in xml.etree.ElementTree.fromstring(drawing.encode()).iter()}
    yield from (f"{name}.svg: element {tag}" for tag in sorted(tags - ELEMENTS))
    strange = set(re.findall(r"#\w+", drawing)) - COLOURS
    yield from (f"{name}.svg: colour {colour}" for colour in sorted(strange))


def animation_faults(name):
    data = (make_animations.FOLDER / f"{name}.avi").read_bytes()
    size = (make_animations.WIDTH * make_animations.SCALE, make_animations.HEIGHT * make_animations.SCALE)
    frames = frames_of(data)
    if len(data) > LARGEST_ANIMATION:
        yield f"{name}.avi: {len(data)} bytes"
    if len(frames) != make_animations.FRAMES:
        yield f"{name}.avi: {len(frames)} frames"
    for i, frame in enumerate(frames):
        if frame[:8] != b"\x89PNG\r\n\x1a\n" or struct.unpack_from(">II", frame, 16) != size:
            yield f"{name}.avi: frame {i} is no PNG of {size[0]} x {size[1]}"


def faults():
    drawn = make_pictures.pictures()
    yield from (f"{name}.svg: make_pictures.py draws it differently" for name in make_pictures.drifted(drawn))
    for name, drawing in drawn.items():
        yield from picture_faults(name, drawing)
    for name in make_animations.MOVIES:
        yield from animation_faults(name)


def main():
    found = list(faults())
    print("\n".join(found) if found else "assets are sound")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
