#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Draws assets/pictures/*.svg; with --check it writes nothing and tells which stored drawings differ."""

import pathlib
import sys

sys.dont_write_bytecode = True

from icons import ICONS
from wiring import FIRST, SECOND, junction, resistor, source, switch_picture, wiring_picture

FOLDER = pathlib.Path(__file__).resolve().parent.parent / "assets" / "pictures"

# Name -> the wiring, in both families.
SENSORS = {
    "TC": junction("Thermocouple"),
    "RTD2Wire": resistor("RTD 100 ohm, 2 wires", 100, 2),
    "RTD3Wire": resistor("RTD 100 ohm, 3 wires", 100, 3),
    "RTD4Wire": resistor("RTD 100 ohm, 4 wires", 100, 4),
    "RTD5002Wires": resistor("RTD 500 ohm, 2 wires", 500, 2),
    "RTD5003Wires": resistor("RTD 500 ohm, 3 wires", 500, 3),
    "RTD5004Wires": resistor("RTD 500 ohm, 4 wires", 500, 4),
    "RTD1K2Wires": resistor("RTD 1000 ohm, 2 wires", 1000, 2),
    "RTD1K3Wires": resistor("RTD 1000 ohm, 3 wires", 1000, 3),
    "RTD1K4Wires": resistor("RTD 1000 ohm, 4 wires", 1000, 4),
    "Proc100m": source("Process, 0 to 100 mV", "mV"),
    "ProcV": source("Process, 0 to 1 V or 0 to 10 V", "V"),
}
CURRENT = "Process, 0 to 20 mA"

# Name -> what is measured, levers 1 to 6 (1: excitation, 2: high resistance, 3: shunt, 4: volts, 5: divider,
# 6: cold junction).
SWITCHES = {
    "TC": ("thermocouple", "000001"),
    "RTD100": ("RTD 100 ohm", "100000"),
    "RTD500_1k": ("RTD 500 or 1000 ohm", "110000"),
    "100mv": ("process, 0 to 100 mV", "000000"),
    "20ma": ("process, 0 to 20 mA", "001000"),
    "1V": ("process, 0 to 1 V", "000100"),
    "10V": ("process, 0 to 10 V", "000110"),
}


def pictures():
    """File name without ending -> the drawing."""
    drawn = {f"img{name}": wiring_picture(FIRST, wiring) for name, wiring in SENSORS.items()}
    drawn |= {f"imgLK_{name}": wiring_picture(SECOND, wiring) for name, wiring in SENSORS.items()}
    drawn["imgProcI"] = wiring_picture(FIRST, source(CURRENT, "mA", "I+", "S\u2212"))
    drawn["imgLK_ProcI"] = wiring_picture(SECOND, source(CURRENT, "mA", "I+", "COM"))
    drawn |= {f"imgLK_switch{name}": switch_picture(*facts) for name, facts in SWITCHES.items()}
    return drawn | {name: draw() for name, draw in ICONS.items()}


def drifted(drawn):
    """Names of drawings that are missing, differ from what is drawn here, or are drawn no more."""
    stored = {path.stem: path.read_text("utf-8") for path in FOLDER.glob("*.svg")}
    return sorted(name for name in stored.keys() | drawn.keys() if stored.get(name) != drawn.get(name))


def main():
    drawn = pictures()
    if "--check" in sys.argv[1:]:
        for name in drifted(drawn):
            print(f"{name}.svg differs from what make_pictures.py draws")
        return 1 if drifted(drawn) else 0
    FOLDER.mkdir(parents=True, exist_ok=True)
    for name, drawing in drawn.items():
        (FOLDER / f"{name}.svg").write_text(drawing, "utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
