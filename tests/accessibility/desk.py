# SPDX-License-Identifier: MIT
# What a person without eyes on the screen has of a program: its accessible tree, by roles, names and states.
import os
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import GLib
import pyatspi

PATIENCE = float(os.environ.get("PATIENCE", "60"))  # seconds until something is given up


class Missing(Exception):
    pass


def attempt(look):
    """What `look` finds; None also where the tree changes under its hands."""
    try:
        return look()
    except (GLib.GError, RuntimeError, LookupError, NotImplementedError, AttributeError, StopIteration):
        return None


def wait(look, what, seconds=PATIENCE):
    """Until `look` finds something; what it was to be stands in the failure."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        found = attempt(look)
        if found:
            return found
        time.sleep(0.05)
    raise Missing(what)


def children(node):
    return [child for child in (attempt(lambda at=at: node.getChildAtIndex(at)) for at in range(node.childCount)) if child]


def everything(node):
    """The node and all below it, each with its path of nodes."""
    yield node
    for child in attempt(lambda: children(node)) or []:
        yield from everything(child)


def role(node):
    return node.getRoleName()


def has(node, state):
    return node.getState().contains(state)


def shown(node):
    return has(node, pyatspi.STATE_SHOWING)


def application(name):
    def look():
        return next(app for app in children(pyatspi.Registry.getDesktop(0)) if app.name == name)

    return wait(look, f"the program {name}")


def find(root, name, kind=None, start=False):
    """One thing on show by its name, or by how its name begins."""

    def fits(node):
        named = node.name.startswith(name) if start else node.name == name
        return named and (kind is None or role(node) == kind) and shown(node)

    return next((node for node in everything(root) if attempt(lambda: fits(node))), None)


def get(root, name, kind=None, start=False, seconds=PATIENCE):
    return wait(lambda: find(root, name, kind, start), f"{kind or 'anything'} \"{name}\"", seconds)


def window(app, name):
    """A window on show whose title begins so."""

    def look():
        return next(each for each in children(app) if each.name.startswith(name) and shown(each))

    return wait(look, f"the window \"{name}\"")


def gone(app, name):
    def look():
        return not any(each.name.startswith(name) and shown(each) for each in children(app))

    wait(look, f"the end of the window \"{name}\"")


def act(node, *names):
    """The first of these actions that it has. A call that opens a dialog may return late."""
    actions = node.queryAction()
    offered = [actions.getName(at) for at in range(actions.nActions)]
    for name in names:
        if name in offered:
            attempt(lambda: actions.doAction(offered.index(name)))
            return
    raise Missing(f"one of {names} on {role(node)} \"{node.name}\", which offers {offered}")


def press(root, name, kind="push button", start=False):
    button = get(root, name, kind, start)
    wait(lambda: has(button, pyatspi.STATE_ENABLED), f"\"{name}\" in use")
    act(button, "Press", "press", "Toggle", "toggle")


def write(root, name, text, kind="text"):
    box = get(root, name, kind)
    box.queryEditableText().setTextContents(text)
    return box


def text(node):
    return node.queryText().getText(0, -1)
