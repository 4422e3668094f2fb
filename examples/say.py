#!/usr/bin/env python3
"""Makes a running Corvane say something.

    say.py [--urgent] WORDS...

Needs python3-gi.
"""
import sys

from gi.repository import Gio, GLib


def say(text, urgent):
    bus = Gio.bus_get_sync(Gio.BusType.SESSION, None)
    bus.call_sync(
        "org.corvane.Corvane",
        "/org/corvane/MainApp",
        "org.corvane.MainApp",
        "Say",
        GLib.Variant("(sb)", (text, urgent)),
        None,
        Gio.DBusCallFlags.NO_AUTO_START,  # Corvane is started by its user, not by us
        -1,
        None,
    )


def main(words):
    urgent = words[:1] == ["--urgent"]
    text = " ".join(words[1:] if urgent else words)
    if not text:
        sys.exit(__doc__)
    try:
        say(text, urgent)
    except GLib.Error as error:
        nobody = error.matches(Gio.dbus_error_quark(), Gio.DBusError.NAME_HAS_NO_OWNER) or error.matches(
            Gio.dbus_error_quark(), Gio.DBusError.SERVICE_UNKNOWN)
        sys.exit("Corvane is not running" if nobody else error.message)


if __name__ == "__main__":
    main(sys.argv[1:])
