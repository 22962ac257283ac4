# SPDX-License-Identifier: MIT
"""Single drawings: the ramp and soak curve, the two partners of a transfer, icons of buttons and program."""

from svg import AMBER, BLUE, GREY, INK, PAPER, RED, WHITE, area, box, curve, disc, document, line, text


def span(start, end, y, words):
    """A dimension line with arrow heads and its name underneath."""
    shaft = line([(start, y), (end, y)], INK, 1.5)
    heads = [line([(x + 6 * way, y - 4), (x, y), (x + 6 * way, y + 4)], INK, 1.5)
             for x, way in ((start, 1), (end, -1))]
    return [shaft, *heads, text((start + end) / 2, y + 16, words, 12, INK, "middle")]


def ramp_and_soak():
    left, ramped, soaked, right = 36, 128, 230, 304
    floor, start, target = 172, 150, 72
    shapes = [text(16, 22, "Ramp and soak", 14, INK, "start", "bold")]
    shapes += [line([(left, 44), (left, floor), (right, floor)], INK, 2)]
    shapes += [line([(left, target), (right, target)], GREY, 1.5, "2 5")]
    shapes += [line([(x, target), (x, floor + 12)], GREY, 1.5, "2 5") for x in (ramped, soaked)]
    shapes += [line([(left, start), (ramped, target)], RED, 3.5)]
    shapes += [line([(ramped, target), (soaked, target)], AMBER, 3.5)]
    shapes += [curve(f"M{soaked} {target} Q{soaked + 16} 124 {right - 8} 140", GREY, 2.5, "6 5")]
    shapes += [disc(x, y, 4.5, INK) for x, y in ((left, start), (ramped, target), (soaked, target))]
    shapes += [text(left + 8, target - 14, "set point", 12)]
    shapes += span(left, ramped, floor + 14, "ramp time") + span(ramped, soaked, floor + 14, "soak time")
    shapes += [text(right, floor + 14, "time", 12, INK, "end")]
    return document("Ramp to the set point, then soak at it", 320, 220, shapes)


def computer():
    shapes = [box(6, 8, 52, 36, 3, PAPER, INK, 2.5), box(11, 13, 42, 26, 1, BLUE, BLUE, 0)]
    shapes += [line([(16, 32), (24, 22), (34, 22), (46, 28)], WHITE, 2.5)]
    shapes += [area("M26 44 L38 44 L40 52 L24 52 Z", GREY, INK, 2), line([(14, 56), (50, 56)], INK, 3)]
    return document("Computer", 64, 64, shapes)


def panel_unit():
    shapes = [box(6, 6, 52, 52, 5, PAPER, INK, 2.5), box(12, 14, 40, 20, 2, GREY, INK, 1.5, 0.25)]
    shapes += [text(32, 24, "72.5", 14, RED, "middle", "bold")]
    shapes += [disc(16, 41, 2, AMBER), disc(24, 41, 2, GREY)]
    shapes += [box(12 + 11 * i, 47, 7, 6, 1.5, BLUE, INK, 1) for i in range(4)]
    return document("Panel unit", 64, 64, shapes)


def wizard():
    """A computer below, a panel unit above, and what lies between them under a magnifying glass."""
    shapes = [box(34, 14, 92, 76, 8, PAPER, INK, 3), box(46, 26, 68, 32, 3, GREY, INK, 2, 0.25)]
    shapes += [text(80, 42, "72.5", 22, RED, "middle", "bold")]
    shapes += [box(48 + 17 * i, 68, 13, 10, 2.5, BLUE, INK, 1.5) for i in range(4)]
    shapes += [line([(80, 90), (80, 214)], GREY, 3, "3 8")]
    shapes += [box(22, 214, 116, 72, 5, PAPER, INK, 3), box(32, 224, 96, 52, 2, BLUE, BLUE, 0)]
    shapes += [line([(44, 264), (60, 242), (82, 242), (112, 256)], WHITE, 4)]
    shapes += [area("M66 286 L94 286 L98 300 L62 300 Z", GREY, INK, 2.5), line([(46, 306), (114, 306)], INK, 4)]
    shapes += [line([(98, 168), (122, 196)], AMBER, 10), disc(80, 147, 29, PAPER, INK, 4)]
    shapes += [text(80, 148, "?", 38, BLUE, "middle", "bold")]
    return document("Looking for the unit that is connected", 160, 320, shapes)


def serial():
    """A nine pin connector: five pins over four."""
    shapes = [curve("M4 6 H20 A2.5 2.5 0 0 1 22.4 9 L20.6 16 A2.5 2.5 0 0 1 18.2 18 H5.8"
                    " A2.5 2.5 0 0 1 3.4 16 L1.6 9 A2.5 2.5 0 0 1 4 6 Z", INK, 1.6)]
    shapes += [disc(5.6 + 3.2 * i, 10, 1.2, BLUE) for i in range(5)]
    shapes += [disc(7.2 + 3.2 * i, 14, 1.2, BLUE) for i in range(4)]
    return document("Serial port", 24, 24, shapes)


def network():
    shapes = [line([(12, 9), (12, 12)], INK, 1.6), line([(5, 15), (5, 12), (19, 12), (19, 15)], INK, 1.6)]
    shapes += [box(8.5, 2.8, 7, 6.2, 1, BLUE, INK, 1.6)]
    shapes += [box(x, 15, 7, 6.2, 1, PAPER, INK, 1.6) for x in (1.5, 15.5)]
    return document("Network", 24, 24, shapes)


def file():
    shapes = [area("M5 2.5 H14 L19 7.5 V21.5 H5 Z", PAPER, INK, 1.6)]
    shapes += [line([(14, 2.5), (14, 7.5), (19, 7.5)], INK, 1.6)]
    shapes += [line([(8, y), (16, y)], BLUE, 1.6) for y in (11.5, 14.5, 17.5)]
    return document("File", 24, 24, shapes)


def printer():
    shapes = [box(6.5, 2.5, 11, 6, 0.5, PAPER, INK, 1.6), box(2.5, 8.5, 19, 9, 1.5, GREY, INK, 1.6, 0.35)]
    shapes += [box(6.5, 14, 11, 7.5, 0.5, PAPER, INK, 1.6), disc(18.3, 11.3, 1.1, AMBER)]
    shapes += [line([(9, 16.6), (15, 16.6)], BLUE, 1.4), line([(9, 19), (13, 19)], BLUE, 1.4)]
    return document("Printer", 24, 24, shapes)


def app():
    """On its own ground: the desktop shows it without the program's palette."""
    shapes = [box(3, 3, 58, 58, 12, BLUE, WHITE, 2), line([(12, 14), (12, 50), (53, 50)], WHITE, 3)]
    shapes += [line([(19, 42), (30, 23), (51, 23)], WHITE, 5), disc(30, 23, 6, AMBER, WHITE, 2.5)]
    return document("Configuration", 64, 64, shapes)


ICONS = {
    "picProcess": ramp_and_soak,
    "imgComputer": computer,
    "imgMicro": panel_unit,
    "wizard": wizard,
    "serial": serial,
    "network": network,
    "file": file,
    "printer": printer,
    "app": app,
}
