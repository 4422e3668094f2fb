"""What the program leans on and what may die under it: its page and network
processes, a sound server of the test's own, the session's accessibility bus."""
import os
import pathlib
import signal
import subprocess
import tempfile

from gi.repository import Gio, GLib

import processes
from harness import wait_until


def end(pid):
    os.kill(pid, signal.SIGKILL)
    wait_until(lambda: not processes.is_alive(pid), f"the end of process {pid}")


def end_one_of(corvane, wanted):
    """Kills the newest of the program's processes of that name."""
    victims = wait_until(lambda: processes.named(corvane.process.pid, wanted), f"a {wanted}")
    end(max(victims))


class SoundServer:
    """A PulseAudio daemon with a sink that sounds nowhere."""

    def __init__(self):
        self._folder = tempfile.TemporaryDirectory(prefix="corvane-sound-", ignore_cleanup_errors=True)
        self._socket = pathlib.Path(self._folder.name) / "native"
        self._process = None

    def environment(self):
        """What makes the program use it."""
        return {"CORVANE_AUDIO": "", "PULSE_SERVER": f"unix:{self._socket}"}

    def start(self):
        folder = self._folder.name
        # Whatever becomes of the test, the daemon ends with it.
        self._process = subprocess.Popen(
            ["setpriv", "--pdeathsig", "KILL", "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1",
             "--use-pid-file=no", "--log-target=stderr", "-L", "module-null-sink sink_name=test",
             "-L", f"module-native-protocol-unix auth-anonymous=1 socket={self._socket}"],
            env={"PATH": "/usr/bin:/bin", "LC_ALL": "C", "HOME": folder, "XDG_RUNTIME_DIR": folder,
                 "XDG_CONFIG_HOME": folder, "DBUS_SESSION_BUS_ADDRESS": "disabled:"},
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_until(lambda: self._ask("info") is not None, "the sound server")

    def kill(self):
        if self._process is not None:
            self._process.kill()
            self._process.wait()
            self._process = None

    def close(self):
        self.kill()
        self._folder.cleanup()

    def is_played_to(self):
        """Whether a program has a stream on the sink."""
        return bool(self._ask("list", "short", "sink-inputs"))

    def _ask(self, *words):
        asked = subprocess.run(["pactl", "--server", f"unix:{self._socket}", *words], capture_output=True, text=True)
        return asked.stdout if asked.returncode == 0 else None


class AccessibilityBus:
    """The processes of the session's accessibility bus, found by asking the buses."""

    def __init__(self):
        session = Gio.bus_get_sync(Gio.BusType.SESSION)
        session.set_exit_on_close(False)
        if processes.parent(_pid_of(session, "org.freedesktop.DBus")) != os.getppid():
            raise AssertionError("the session bus was not started for this test alone")
        self.launcher = _pid_of(session, "org.a11y.Bus")
        reply = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None,
                                  GLib.VariantType("(s)"), Gio.DBusCallFlags.NONE, -1)
        flags = Gio.DBusConnectionFlags
        bus = Gio.DBusConnection.new_for_address_sync(
            reply.unpack()[0], flags.AUTHENTICATION_CLIENT | flags.MESSAGE_BUS_CONNECTION, None, None)
        bus.set_exit_on_close(False)
        self.registry = _pid_of(bus, "org.a11y.atspi.Registry")
        self.daemon = _pid_of(bus, "org.freedesktop.DBus")
        bus.close_sync()


def _pid_of(bus, name):
    reply = bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                          "GetConnectionUnixProcessID", GLib.Variant("(s)", (name,)), GLib.VariantType("(u)"),
                          Gio.DBusCallFlags.NONE, -1)
    return reply.unpack()[0]
