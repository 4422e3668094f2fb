"""Another program that drives Corvane over the session bus."""
from gi.repository import Gio, GLib

NAME = "org.corvane.Corvane"
FACTORY = "/org/corvane/Corvane"
SERVICE = "/org/corvane/MainApp"


class BusClient:
    """One connection to the bus; closing it is what the death of a client looks like."""

    def __init__(self):
        address = Gio.dbus_address_get_for_bus_sync(Gio.BusType.SESSION, None)
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        self.bus = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)

    def call(self, path, method, arguments=None, start=False, name=NAME):
        """Calls a method named with its interface; returns its results."""
        interface, method = method.rsplit(".", 1)
        flags = Gio.DBusCallFlags.NONE if start else Gio.DBusCallFlags.NO_AUTO_START
        reply = self.bus.call_sync(name, path, interface, method, arguments, None, flags, 60000, None)
        return reply.unpack()

    def create(self, start=False):
        """A new Application; its path."""
        arguments = GLib.Variant("(s)", ("Corvane.Application",))
        return self.call(FACTORY, "org.corvane.Factory.CreateObject", arguments, start)[0]

    def start_browser(self, application):
        self.call(application, "org.corvane.Application.StartBrowser", GLib.Variant("(o)", (SERVICE,)))

    def kill_browser(self, application):
        self.call(application, "org.corvane.Application.KillBrowser")

    def say(self, application, text, interrupt=False):
        self.call(application, "org.corvane.Application.Say", GLib.Variant("(sb)", (text, interrupt)))

    def release(self, application):
        self.call(application, "org.corvane.Application.Release")

    def service(self, method, arguments=None):
        return self.call(SERVICE, "org.corvane.MainApp." + method, arguments)

    def die(self):
        self.bus.close_sync(None)
