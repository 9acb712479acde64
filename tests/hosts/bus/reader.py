#!/usr/bin/python3
"""A screen reader on the accessibility bus. It says what it hears, as "! focus: ...", and answers the
lines it is given, "tree NAME" and "press NAME", with lines of which an empty one is the last."""
import functools
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
import pyatspi
from gi.repository import GLib

DEADLINE = 20  # seconds
STATES = {
    pyatspi.STATE_SELECTED: "selected",
    pyatspi.STATE_FOCUSED: "focused",
    pyatspi.STATE_EXPANDED: "expanded",
}
EVENTS = {
    "object:state-changed:focused": "focus",
    "object:property-change:accessible-name": "name",
    "object:property-change:accessible-value": "value",
}


def actions_of(item):
    if "Action" not in item.get_interfaces():
        return []
    action = item.queryAction()
    return [action.getName(i) for i in range(action.nActions)]


def described(item):
    """Role, name, description, value, states, actions."""
    item.clear_cache()
    states = item.getState()
    words = [name for state, name in STATES.items() if states.contains(state)]
    if not states.contains(pyatspi.STATE_ENABLED):
        words.append("disabled")
    value = ""
    if "Value" in item.get_interfaces():
        value = "%g" % item.queryValue().currentValue
    parts = (item.getRoleName(), item.name, item.description, value)
    return " | ".join(parts + (" ".join(words), " ".join(actions_of(item))))


def items_below(item, depth=0):
    yield depth, item
    for child in item:
        if child and child.getState().contains(pyatspi.STATE_VISIBLE):
            yield from items_below(child, depth + 1)


def find(name):
    """A program that has just begun comes to the bus a little later."""
    end = time.monotonic() + DEADLINE
    while time.monotonic() < end:
        desktop = pyatspi.Registry.getDesktop(0)
        desktop.clear_cache()
        for application in desktop:
            for _, item in items_below(application):
                if item.name == name:
                    return item
        time.sleep(0.05)
    raise LookupError(name)


def obey(_source, _condition):
    line = sys.stdin.readline()
    if not line:
        loop.quit()
        return False
    command, _, name = line.rstrip("\n").partition(" ")
    try:
        item = find(name)
        listen()
        if command == "press":
            item.queryAction().doAction(actions_of(item).index("Press"))
        else:
            for depth, part in items_below(item):
                print("  " * depth + described(part))
    except Exception as error:
        print("error:", repr(error))
    print(flush=True)
    return True


def hear(event):
    if event.type != "object:state-changed:focused" or event.detail1:
        print("! %s: %s" % (EVENTS[str(event.type)], described(event.source)), flush=True)


@functools.cache
def listen():
    """Not before the program is on the bus: while it comes there it may miss who listens."""
    pyatspi.Registry.registerEventListener(hear, *EVENTS)


loop = GLib.MainLoop()
GLib.io_add_watch(sys.stdin, GLib.IO_IN | GLib.IO_HUP, obey)
loop.run()
