#!/usr/bin/env python3
"""A reader of the accessibility bus that is no part of the program: asks for every
element of the windows of one program, says how many there were, and goes on listening
to what changes, until it is ended.

outside_reader.py PID
"""
import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402  (the version must be chosen first)

EVENTS = ["object:children-changed", "object:state-changed:focused", "object:text-changed", "document:load-complete"]


def walk(node):
    """Counts a node and all below it, as a reader gets to know them."""
    count, todo = 0, [node]
    while todo:
        current = todo.pop()
        if current is None:
            continue
        try:
            current.get_role()
            current.get_name()
            todo += [current.get_child_at_index(i) for i in range(current.get_child_count())]
        except GLib.Error:
            continue  # it has gone meanwhile
        count += 1
    return count


def main():
    pid = int(sys.argv[1])
    Atspi.set_timeout(10000, 10000)  # milliseconds
    listener = Atspi.EventListener.new(lambda event: None)
    for event in EVENTS:
        listener.register(event)
    desktop = Atspi.get_desktop(0)
    programs = [desktop.get_child_at_index(i) for i in range(desktop.get_child_count())]
    print(sum(walk(program) for program in programs if program.get_process_id() == pid), flush=True)
    Atspi.event_main()


if __name__ == "__main__":
    main()
