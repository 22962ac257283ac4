# SPDX-License-Identifier: MIT
"""AVI files of one video stream whose frames are PNG pictures, each a key frame."""

import struct

CODEC = b"MPNG"
HAS_INDEX = 0x10
KEY_FRAME = 0x10


def chunk(kind, body):
    return kind + struct.pack("<I", len(body)) + body + b"\0" * (len(body) % 2)


def form(kind, name, *parts):
    return chunk(kind, name + b"".join(parts))


def main_header(width, height, frames, microseconds, largest):
    rate = largest * 1000000 // microseconds
    facts = (microseconds, rate, 0, HAS_INDEX, frames, 0, 1, largest, width, height)
    return struct.pack("<14I", *facts, 0, 0, 0, 0)


def stream_header(width, height, frames, microseconds, largest):
    head = struct.pack("<4s4sIHHI", b"vids", CODEC, 0, 0, 0, 0)
    time = struct.pack("<IIIIIiI", microseconds, 1000000, 0, frames, largest, -1, 0)
    return head + time + struct.pack("<4h", 0, 0, width, height)


def bitmap_header(width, height):
    return struct.pack("<IiiHH4sIiiII", 40, width, height, 1, 32, CODEC, width * height * 4, 0, 0, 0, 0)


def index(pictures):
    """Where each frame's chunk lies, counted from the word "movi"."""
    entries, offset = [], 4
    for picture in pictures:
        entries.append(struct.pack("<4sIII", b"00dc", KEY_FRAME, offset, len(picture)))
        offset += 8 + len(picture) + len(picture) % 2
    return b"".join(entries)


def movie(width, height, frames_per_second, pictures):
    """The bytes of a whole file; the pictures are PNG files of that width and height."""
    microseconds = round(1000000 / frames_per_second)
    facts = (width, height, len(pictures), microseconds, max(map(len, pictures)))
    stream = form(b"LIST", b"strl", chunk(b"strh", stream_header(*facts)),
                  chunk(b"strf", bitmap_header(width, height)))
    headers = form(b"LIST", b"hdrl", chunk(b"avih", main_header(*facts)), stream)
    frames = form(b"LIST", b"movi", *(chunk(b"00dc", picture) for picture in pictures))
    return form(b"RIFF", b"AVI ", headers, frames, chunk(b"idx1", index(pictures)))


def chunks(data):
    """Kind and body of the chunks that follow each other in `data`."""
    at = 0
    while at + 8 <= len(data):
        kind, size = struct.unpack_from("<4sI", data, at)
        yield kind, data[at + 8 : at + 8 + size]
        at += 8 + size + size % 2


def frames_of(data):
    """The pictures of a file, found by its index, so that the index is proved too."""
    ((kind, body),) = chunks(data)
    if kind != b"RIFF" or body[:4] != b"AVI ":
        raise ValueError("no AVI file")
    lists = {part[:4] if name == b"LIST" else name: part for name, part in chunks(body[4:])}
    movi = lists[b"movi"]
    entries = struct.iter_unpack("<4sIII", lists[b"idx1"])
    return [movi[offset + 8 : offset + 8 + size] for _, _, offset, size in entries]
