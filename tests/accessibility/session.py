#!/usr/bin/python3
# SPDX-License-Identifier: MIT
# A whole session of somebody who does not see the screen: edits, writes to the simulated unit, reads, saves and
# prints by accessible names alone, and hears on the way what a native dialog would say. Argument: the folder of a
# build. Needs a session bus and a display of its own: see tests/accessibility/run.
import pathlib
import re
import subprocess
import sys
import tempfile

from desk import *

BUILD = pathlib.Path(sys.argv[1]).resolve()
FOLDER = pathlib.Path(tempfile.mkdtemp())
BY_HAND = f"COM 1 = {FOLDER}/unit"
SETTINGS = f"; the bench at the window\n[Ports]\n{BY_HAND}\n\n[Persist]\nCommPort=0\nBaud=5\nWarn=True\n"

# Nobody says these: what the program's own people call a thing.
IDENTIFIER = re.compile(r"^(cmd|txt|cbo|opt|chk|lst|lbl|prg|HS|img|Image|Picture|pic|fra|tab|box_|room_|qt_)\w*$")
SPEAKS = {"push button", "check box", "radio button", "text", "combo box", "slider", "list", "page tab", "table",
          "progress bar", "dialog", "frame", "image", "icon"}


def expect(truth, what):
    if not truth:
        raise Missing(what)


def check_names(root):
    """Whatever takes the keyboard has a name, and no name is an identifier."""
    for node in everything(root):
        if not attempt(lambda: shown(node)):
            continue
        expect(not IDENTIFIER.match(node.name or ""), f"words for {role(node)} \"{node.name}\"")
        reached = role(node) in SPEAKS and has(node, pyatspi.STATE_FOCUSABLE)
        expect(not reached or node.name, f"a name for a {role(node)} in \"{root.name}\"")


def check_dialog(dialog):
    expect(role(dialog) == "dialog", f"\"{dialog.name}\" as a dialog, not a {role(dialog)}")
    expect(has(dialog, pyatspi.STATE_MODAL), f"\"{dialog.name}\" as modal")
    check_names(dialog)


def turn_to(main, tab):
    act(get(main, tab, "page tab"), "Press", "press")
    wait(lambda: has(get(main, tab, "page tab"), pyatspi.STATE_SELECTED), f"tab {tab} in front")


def check_tabs(main):
    for name in ("Setpoints", "Comm"):
        expect(has(get(main, name, "page tab"), pyatspi.STATE_ENABLED), f"tab {name} in use")
    expect(not has(get(main, "Analog", "page tab"), pyatspi.STATE_ENABLED), "tab Analog as out of use")
    for name in [tab.name for tab in everything(main) if role(tab) == "page tab"]:
        if has(get(main, name, "page tab"), pyatspi.STATE_ENABLED):
            turn_to(main, name)
            check_names(main)


def choose_file(app, path):
    dialog = window(app, "Save As")
    write(dialog, "File name:", str(path))
    press(dialog, "Save")
    wait(lambda: path.exists() and path.stat().st_size > 0, f"{path.name} on the disk")


def edit(main):
    turn_to(main, "Setpoints")
    write(main, "Setpoint 1", "123.4")
    turn_to(main, "Input type")
    option = get(main, "RTD", "radio button")
    act(option, "Toggle", "toggle")
    wait(lambda: has(option, pyatspi.STATE_CHECKED), "RTD chosen")
    turn_to(main, "Alarm 1")
    press(main, "Enable alarm 1", "check box")
    wait(lambda: has(get(main, "Enable alarm 1"), pyatspi.STATE_CHECKED), "alarm 1 on")
    turn_to(main, "Setpoints")


def say_which_unit(app, main):
    press(main, "Hardware")
    dialog = window(app, "Hardware")
    check_dialog(dialog)
    press(dialog, "OK")
    gone(app, "Hardware")


def write_unit(app, main):
    press(main, "Write")
    chooser = window(app, "Write to")
    check_dialog(chooser)
    press(chooser, "Choose Serial Port", start=True)
    status = window(app, "Communications Status")
    check_dialog(status)
    gone(app, "Communications Status")
    get(chooser, "Good", "label", start=True)
    return chooser


def save_and_print(app, chooser):
    press(chooser, "File")
    choose_file(app, FOLDER / "setup.cfg")
    press(chooser, "Printer")
    choose_file(app, FOLDER / "report.pdf")
    expect((FOLDER / "report.pdf").read_bytes().startswith(b"%PDF"), "a PDF")
    press(chooser, "Close")
    gone(app, "Write to")


def read_unit(app, main):
    write(main, "Setpoint 1", "000.0")
    press(main, "Open")
    chooser = window(app, "Read from")
    check_dialog(chooser)
    press(chooser, "Read configuration from device connected to Serial Port.")
    wait(lambda: " read from " in get(main, "Good", "label", start=True).name, "the end of the read")
    gone(app, "Read from")
    turn_to(main, "Setpoints")
    wait(lambda: text(get(main, "Setpoint 1", "text")) == "123.4", "what the unit holds")
    turn_to(main, "Input type")
    expect(has(get(main, "RTD", "radio button"), pyatspi.STATE_CHECKED), "RTD of the unit")


def session():
    app = application("Torvane Configuration")
    get(app, "Write", "push button")  # the splash has gone
    main = window(app, "Torvane")
    expect(role(main) == "frame", f"the main window as a frame, not a {role(main)}")
    check_tabs(main)
    say_which_unit(app, main)
    edit(main)
    chooser = write_unit(app, main)
    save_and_print(app, chooser)
    read_unit(app, main)
    press(main, "Quit")


def what_is_on_show():
    """The windows, with the words of all but the main one."""
    app = application("Torvane Configuration")
    return [(each.name, [node.name for node in everything(each) if role(node) == "label"][:4])
            for each in children(app) if attempt(lambda: shown(each))]


def start():
    settings = FOLDER / "Ashgrove Electronics"
    settings.mkdir()
    (settings / "Torvane Configuration.ini").write_text(SETTINGS)
    unit = subprocess.Popen([BUILD / "sim/unit-simulator", "--link", FOLDER / "unit", "--line-rate", "9600"],
                            stdout=open(FOLDER / "traffic.log", "w"))
    wait(lambda: (FOLDER / "unit").exists(), "the simulated unit")
    program = subprocess.Popen([BUILD / "src/app/torvane-configuration"],
                               env={**os.environ, "XDG_CONFIG_HOME": str(FOLDER), "XDG_DATA_HOME": str(FOLDER),
                                    "HOME": str(FOLDER), "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"})
    return unit, program


def main():
    unit, program = start()
    try:
        session()
        expect(program.wait(timeout=PATIENCE) == 0, "a good end")
        traffic = (FOLDER / "traffic.log").read_text()
        expect("W012004D2" in traffic, "set point 1 on the wire")
        settings = (FOLDER / "Ashgrove Electronics/Torvane Configuration.ini").read_text()
        expect(settings.startswith("; the bench at the window\n[Ports]\n" + BY_HAND + "\n"), "the line by hand")
    except Missing as missing:
        print(f"missed: {missing}; on show: {what_is_on_show()}", file=sys.stderr)
        return 1
    finally:
        unit.terminate()
        if program.poll() is None:
            program.kill()
    return 0


if __name__ == "__main__":
    sys.exit(main())
