# SPDX-License-Identifier: MIT
"""Drawings of a sensor wired to a unit's input terminals, and of the input switch that goes with it.

A wiring is drawn in two directions: `u` runs along the terminal strip, `v` away from it towards the sensor.
The first family's strip stands upright on the right, the second family's lies at the bottom.
"""

from typing import NamedTuple

from svg import AMBER, BLUE, GREY, INK, PAPER, RED, box, disc, document, line, text

WIDTH, HEIGHT = 320, 220
LEAD_COLOURS = {"A": RED, "B": BLUE, "+": AMBER, "\u2212": BLUE}


class Strip(NamedTuple):
    upright: bool
    terminals: dict  # what a terminal does -> the number beside its screw
    first: int  # u of the first screw
    pitch: int
    screws: int  # the other coordinate of all screws
    sensor: int  # v of the sensor
    bend: int  # v at which a lead changes over to its screw
    label: int  # v of a lead's label

    def u(self, terminal):
        return self.first + self.pitch * list(self.terminals).index(terminal)

    def at(self, u, v):
        return (self.screws - v, u) if self.upright else (u, self.screws - v)


# E: excitation, S: sense, I: current. A resistor's excitation is linked to its sense where no lead brings it.
FIRST = Strip(True, {"E+": "1", "S+": "2", "I+": "3", "S\u2212": "4", "E\u2212": "5"},
              first=60, pitch=33, screws=240, sensor=176, bend=110, label=74)
SECOND = Strip(False, {"E+": "7", "S+": "8", "S\u2212": "9", "E\u2212": "10", "I+": "11", "COM": "12"},
               first=40, pitch=48, screws=164, sensor=80, bend=50, label=45)


class Wiring(NamedTuple):
    title: str
    sensor: str  # "junction", the ohms of a resistor, or the unit of a source
    plus: list  # terminals of the leads from the sensor's upper end, nearest to the sensor's middle first
    minus: list  # the same for its lower end
    names: str  # label of the leads of either end
    links: list = []  # pairs of neighbouring terminals joined at the screws


def resistor(title, ohms, wires, plus="S+"):
    minus = ["S\u2212", "E\u2212"] if wires > 2 else ["S\u2212"]
    links = [("E+", "S+")] * (wires < 4) + [("S\u2212", "E\u2212")] * (wires < 3)
    return Wiring(title, f"{ohms} \u03a9", [plus, "E+"] if wires > 3 else [plus], minus, "AB", links)


def source(title, unit, plus="S+", minus="S\u2212"):
    return Wiring(title, unit, [plus], [minus], "+\u2212")


def junction(title):
    return Wiring(title, "junction", ["S+"], ["S\u2212"], "+\u2212")


def screw(strip, terminal, used):
    colour = INK if used else GREY
    x, y = strip.at(strip.u(terminal), 0)
    weight = "bold" if used else "normal"
    behind = (-25, -50) if strip.upright else (-20, -37)
    number_at, name_at = (strip.at(strip.u(terminal), v) for v in behind)
    return [
        disc(x, y, 9, PAPER, colour, 2),
        line([(x - 4.5, y + 4.5), (x + 4.5, y - 4.5)], colour, 2),
        text(*number_at, strip.terminals[terminal], 13, colour, "middle", weight),
        text(*name_at, terminal, 12, colour, "middle"),
    ]


def terminal_block(strip, used):
    length = strip.pitch * len(strip.terminals)
    start = strip.first - strip.pitch / 2
    body = (strip.screws - 20, start, 92, length) if strip.upright else (start, strip.screws - 18, length, 68)
    shapes = [box(*body, 6, GREY, INK, 2, 0.15)]
    for terminal in strip.terminals:
        shapes += screw(strip, terminal, terminal in used)
    return shapes


def link(strip, pair):
    ends = [strip.u(terminal) for terminal in pair]
    middle = sum(ends) / 2
    word = text(*strip.at(middle, 26), "link", 11, INK, "end" if strip.upright else "middle")
    return [line([strip.at(end, 0) for end in ends], AMBER, 8), word]


def lead(strip, node, terminal, name):
    u = strip.u(terminal)
    colour = LEAD_COLOURS[name]
    x, y = strip.at(u, strip.label)
    label = (x, y - 9) if strip.upright else (x + 10, y)
    points = [(node, strip.sensor), (node, strip.bend), (u, strip.bend), (u, 0)]
    return [line([strip.at(*point) for point in points], colour, 2.5),
            text(*label, name, 13, INK, "middle", "bold")]


def branch(strip, node, terminal, name):
    """A further lead of the same end, joined to the first one beside the sensor."""
    start = strip.at(node, strip.sensor)
    joint = [line([start, strip.at(strip.u(terminal), strip.sensor)], LEAD_COLOURS[name], 2.5),
             disc(*start, 4, LEAD_COLOURS[name])]
    return joint + lead(strip, strip.u(terminal), terminal, name)


def leads(strip, nodes, wiring):
    shapes = []
    for node, terminals, name in zip(nodes, (wiring.plus, wiring.minus), wiring.names):
        shapes += lead(strip, node, terminals[0], name)
        for terminal in terminals[1:]:
            shapes += branch(strip, node, terminal, name)
    return shapes


def stubs(strip, nodes, middle, names):
    return [line([strip.at(node, strip.sensor), strip.at(middle, strip.sensor)], LEAD_COLOURS[name], 2.5)
            for node, name in zip(nodes, names)]


def draw_resistor(strip, middle, ohms):
    x, y = strip.at(middle, strip.sensor)
    half = (11, 20) if strip.upright else (17, 10)
    value = (x + 22, y) if strip.upright else (x, y - 30)
    slash = [(x - half[0] - 6, y + half[1] - 6), (x + half[0] + 6, y - half[1] + 6)]
    if not strip.upright:
        slash = [(x - half[0] + 4, y + half[1] + 6), (x + half[0] - 4, y - half[1] - 6)]
    return [box(x - half[0], y - half[1], 2 * half[0], 2 * half[1], 0, PAPER), line(slash, INK, 1.5),
            text(*value, ohms, 16, INK, "start" if strip.upright else "middle", "bold")]


def draw_source(strip, middle, unit):
    x, y = strip.at(middle, strip.sensor)
    radius = 22 if strip.upright else 18
    return [disc(x, y, radius, PAPER, INK, 2), text(x, y, unit, 14, INK, "middle", "bold")]


def draw_junction(strip, nodes, middle, names):
    """Two wires that meet in a bead beyond the ends of the leads."""
    tip = strip.at(middle, strip.sensor + 44)
    wires = [line([tip, strip.at(node, strip.sensor)], LEAD_COLOURS[name], 2.5)
             for node, name in zip(nodes, names)]
    return wires + [disc(*tip, 6, INK)]


def draw_sensor(strip, nodes, wiring):
    middle = sum(nodes) / 2
    if wiring.sensor == "junction":
        return draw_junction(strip, nodes, middle, wiring.names)
    draw = draw_resistor if wiring.sensor.endswith("\u03a9") else draw_source
    return stubs(strip, nodes, middle, wiring.names) + draw(strip, middle, wiring.sensor)


def sensor_nodes(strip, wiring):
    """Where the sensor's two ends lie along the strip: at the screws, or spread when these are too near."""
    ends = [strip.u(wiring.plus[0]), strip.u(wiring.minus[0])]
    return ends if ends[1] - ends[0] >= 44 else [ends[1] - 2 * strip.pitch, ends[1]]


def wiring_picture(strip, wiring):
    if wiring.sensor == "junction":
        strip = strip._replace(sensor=strip.sensor - 22)
    nodes = sensor_nodes(strip, wiring)
    linked = [terminal for pair in wiring.links for terminal in pair]
    shapes = [text(16, 22, wiring.title, 14, INK, "start", "bold")]
    shapes += terminal_block(strip, wiring.plus + wiring.minus + linked)
    shapes += [shape for pair in wiring.links for shape in link(strip, pair)]
    shapes += leads(strip, nodes, wiring) + draw_sensor(strip, nodes, wiring)
    shapes += [disc(*strip.at(strip.u(terminal), 0), 4, INK) for terminal in wiring.plus + wiring.minus]
    return document(wiring.title, WIDTH, HEIGHT, shapes)


def switch_lever(x, number, on):
    top, bottom = 66, 134
    knob = top + 3 if on else bottom - 29
    return [
        box(x - 10, top, 20, bottom - top, 3, PAPER, INK, 1.5),
        box(x - 7, knob, 14, 26, 2, AMBER if on else GREY, INK, 1),
        text(x, 164, str(number), 13, INK, "middle", "bold" if on else "normal"),
    ]


def switch_picture(title, levers):
    """A block of switches as seen on the unit; `levers` has a 1 for each lever that is up."""
    on = [str(i) for i, lever in enumerate(levers, 1) if lever == "1"]
    told = "all off" if not on else f"{' and '.join(on)} on, the others off"
    shapes = [text(16, 22, "Input switch", 14, INK, "start", "bold"), text(16, 42, title, 13)]
    shapes += [box(60, 56, 224, 88, 6, BLUE, INK, 2, 0.35)]
    shapes += [text(50, 82, "ON", 12, INK, "end", "bold"), text(50, 120, "OFF", 12, INK, "end")]
    for i, lever in enumerate(levers):
        shapes += switch_lever(82 + 36 * i, i + 1, lever == "1")
    shapes += [text(172, 196, told, 13, INK, "middle")]
    return document(f"Input switch for {title}: {told}", WIDTH, HEIGHT, shapes)
