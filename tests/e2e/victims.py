"""What the program leans on and what may die under it: its page and network
processes, a sound server and a speech server of the test's own, the session's
accessibility bus."""
import os
import pathlib
import signal
import socket
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

    def record(self):
        """From now on, what the sink plays, into a file (mono, 44,100 samples of 16 bits a
        second); ended with the returned process."""
        path = pathlib.Path(self._folder.name) / "heard"
        path.unlink(missing_ok=True)
        recorder = subprocess.Popen(
            ["setpriv", "--pdeathsig", "KILL", "parec", "--server", f"unix:{self._socket}", "--device=test.monitor",
             "--format=s16le", "--channels=1", "--rate=44100", "--latency-msec=20", str(path)],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_until(lambda: path.exists() and path.stat().st_size > 0, "a recording")
        return recorder, path

    def is_played_to(self):
        """Whether a program has a stream on the sink."""
        return bool(self._ask("list", "short", "sink-inputs"))

    def _ask(self, *words):
        asked = subprocess.run(["pactl", "--server", f"unix:{self._socket}", *words], capture_output=True, text=True)
        return asked.stdout if asked.returncode == 0 else None


class SpeechServer:
    """A Speech Dispatcher of the test's own with its module of espeak-ng, which sounds in a
    sink that sounds nowhere."""

    def __init__(self):
        self._folder = tempfile.TemporaryDirectory(prefix="corvane-dispatcher-", ignore_cleanup_errors=True)
        self._path = pathlib.Path(self._folder.name)
        self._sound = SoundServer()
        self._process = None

    def environment(self):
        """What makes the program use it, and start none when it is gone."""
        return {"SPEECHD_ADDRESS": f"unix_socket:{self._path}/socket", "SPEECHD_CMD": "/nonexistent/speech-dispatcher"}

    def start(self):
        self._sound.start()
        pulse = self._sound.environment()["PULSE_SERVER"]
        modules = self._path / "conf/modules"
        modules.mkdir(parents=True, exist_ok=True)
        (modules / "espeak-ng.conf").write_text('EspeakPunctuationList "@+_"\n')
        (self._path / "conf/speechd.conf").write_text(
            f'LogLevel 2\nLogDir "{self._path}"\nAudioOutputMethod "pulse"\nAudioPulseServer "{pulse}"\n'
            'AddModule "espeak-ng" "sd_espeak-ng" "espeak-ng.conf"\nDefaultModule espeak-ng\n')
        self._process = subprocess.Popen(
            ["setpriv", "--pdeathsig", "KILL", "speech-dispatcher", "--run-single", "--timeout", "0",
             "--communication-method", "unix_socket", "--socket-path", str(self._path / "socket"),
             "--pid-file", str(self._path / "pid"), "--config-dir", str(self._path / "conf"),
             "--log-dir", str(self._path)],
            env={"PATH": "/usr/bin:/bin", "LC_ALL": "C.UTF-8", "HOME": str(self._path), "PULSE_SERVER": pulse,
                 "XDG_RUNTIME_DIR": str(self._path), "XDG_CONFIG_HOME": str(self._path)},
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_until(self._answers, "the speech server")

    def _answers(self):
        with socket.socket(socket.AF_UNIX) as client:
            return client.connect_ex(str(self._path / "socket")) == 0

    def hang(self):
        self._process.send_signal(signal.SIGSTOP)

    def kill(self):
        if self._process is not None:
            self._process.kill()
            self._process.wait()
            self._process = None

    def close(self):
        self.kill()
        self._sound.close()
        self._folder.cleanup()


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
