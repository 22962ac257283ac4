# SPDX-License-Identifier: MIT
"""A small anti-aliased rasteriser: shapes as signed distances, a transparent ground, stored as PNG."""

import math
import struct
import zlib


def rounded_box(x, y, width, height, radius):
    """Distance from a box with round corners, and the room it takes."""
    half_width, half_height = width / 2 - radius, height / 2 - radius
    middle_x, middle_y = x + width / 2, y + height / 2

    def distance(px, py):
        dx, dy = abs(px - middle_x) - half_width, abs(py - middle_y) - half_height
        return math.hypot(max(dx, 0.0), max(dy, 0.0)) + min(max(dx, dy), 0.0) - radius

    return distance, (x, y, x + width, y + height)


def circle(x, y, radius):
    room = (x - radius, y - radius, x + radius, y + radius)
    return lambda px, py: math.hypot(px - x, py - y) - radius, room


def stroke(x1, y1, x2, y2, width):
    """A straight line with round ends."""
    dx, dy, half = x2 - x1, y2 - y1, width / 2
    length = dx * dx + dy * dy or 1.0

    def distance(px, py):
        along = max(0.0, min(1.0, ((px - x1) * dx + (py - y1) * dy) / length))
        return math.hypot(px - x1 - along * dx, py - y1 - along * dy) - half

    return distance, (min(x1, x2) - half, min(y1, y2) - half, max(x1, x2) + half, max(y1, y2) + half)


def outline(shape, width):
    """The rim of a shape, inside its edge."""
    distance, room = shape
    return lambda px, py: abs(distance(px, py) + width / 2) - width / 2, room


class Canvas:
    """Pixels as red, green, blue (not multiplied by alpha) and alpha; `scale` pixels to the unit."""

    def __init__(self, width, height, scale):
        self.width, self.height, self.scale = width * scale, height * scale, scale
        self.pixels = [(0.0, 0.0, 0.0, 0.0)] * (self.width * self.height)

    def copy(self):
        twin = Canvas(0, 0, self.scale)
        twin.width, twin.height, twin.pixels = self.width, self.height, self.pixels[:]
        return twin

    def span(self, low, high, size):
        return range(max(0, math.floor(low * self.scale) - 1), min(size, math.ceil(high * self.scale) + 1))

    def draw(self, shape, colour, opacity=1.0):
        """Lays a shape in a colour (red, green, blue, 0 to 255 each) over what is there."""
        distance, (left, top, right, bottom) = shape
        for row in self.span(top, bottom, self.height):
            for column in self.span(left, right, self.width):
                away = distance((column + 0.5) / self.scale, (row + 0.5) / self.scale) * self.scale
                cover = min(1.0, max(0.0, 0.5 - away)) * opacity
                if cover > 0.0:
                    self.blend(row * self.width + column, colour, cover)

    def blend(self, at, colour, cover):
        red, green, blue, alpha = self.pixels[at]
        total = cover + alpha * (1.0 - cover)
        share = cover / total
        old = 1.0 - share
        self.pixels[at] = (colour[0] * share + red * old, colour[1] * share + green * old,
                           colour[2] * share + blue * old, total)

    def png(self):
        """The picture as the bytes of a PNG file, 8 bits a channel with alpha."""
        rows = bytearray()
        for start in range(0, len(self.pixels), self.width):
            rows.append(0)
            for red, green, blue, alpha in self.pixels[start : start + self.width]:
                rows += bytes((round(red), round(green), round(blue), round(alpha * 255)))
        head = struct.pack(">IIBBBBB", self.width, self.height, 8, 6, 0, 0, 0)
        parts = ((b"IHDR", head), (b"IDAT", zlib.compress(bytes(rows), 9)), (b"IEND", b""))
        return b"\x89PNG\r\n\x1a\n" + b"".join(chunk(*part) for part in parts)


def chunk(kind, body):
    return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))
