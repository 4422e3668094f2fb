"""Other programs drive Corvane over the session bus."""
import os
import pathlib
import subprocess
import sys

from gi.repository import Gio, GLib

from bus_client import FACTORY, NAME, BusClient
from harness import PROGRAM, SOURCE, EndToEndTest, wait_until

TALKING = {"Corvane": {"Speech": "True"}, "pnlBrowser": {"SideBar": "2", "Focus": "0"}}


class Automation(EndToEndTest):
    def windows(self):
        return self.corvane.window_names().count("Corvane")

    def wait_for_windows(self, count):
        wait_until(lambda: self.windows() == count, f"{count} windows")

    def client(self):
        client = BusClient()
        self.addCleanup(lambda: client.bus.is_closed() or client.die())
        return client

    def error_of(self, call, *arguments, **named):
        with self.assertRaises(GLib.Error) as caught:
            call(*arguments, **named)
        name = Gio.DBusError.get_remote_error(caught.exception)
        return name, caught.exception.message.removeprefix(f"GDBus.Error:{name}: ")

    def test_client_opens_a_window_speaks_and_closes_it(self):
        corvane = self.start(settings=TALKING)
        client = self.client()
        application = client.create()
        self.assertEqual(self.windows(), 1)
        client.start_browser(application)
        self.wait_for_windows(2)
        corvane.transcript.mark()
        client.say(application, "Hello from outside", True)
        self.said("Hello from outside")
        client.kill_browser(application)
        self.wait_for_windows(1)
        client.kill_browser(application)  # the second time does nothing
        number, _ = self.error_of(client.say, application, "too late")[1].split(": ", 1)
        self.assertEqual(number, "91")

    def test_window_outlives_a_released_object_and_a_client_that_dies(self):
        self.start(settings=TALKING)
        client, dying = self.client(), self.client()
        released = client.create()
        client.start_browser(released)
        client.release(released)
        self.assertEqual(self.error_of(client.say, released, "x")[0], "org.freedesktop.DBus.Error.UnknownMethod")
        lost = dying.create()
        dying.start_browser(lost)
        self.wait_for_windows(3)
        dying.die()
        wait_until(lambda: self.error_of(client.say, lost, "x")[0].endswith("UnknownMethod"), "the object gone")
        self.assertEqual(self.windows(), 3)
        # A window that still comes to its first page would write over the address.
        wait_until(lambda: self.corvane.transcript.spoken().count("Corvane home page") >= 3, "three first pages")
        self.corvane.transcript.mark()
        self.read("/weather.html")  # the window on top still works and speaks
        self.said("The weather")

    def test_service_speaks_and_tells_the_keyboard_echo(self):
        self.start(settings=TALKING)
        client = self.client()
        told = []
        client.bus.signal_subscribe(
            NAME, "org.corvane.MainApp", "KeyboardEchoStatus", None, None, Gio.DBusSignalFlags.NONE,
            lambda *arguments: told.append(arguments[5].unpack()[0]))
        client.service("KeyBoardEcho", GLib.Variant("(b)", (True,)))
        client.service("Say", GLib.Variant("(sb)", ("Said by the service", False)))
        self.said("Said by the service")
        context = GLib.MainContext.default()
        wait_until(lambda: context.iteration(False) or told, "the signal")
        self.assertEqual(told, [True])

    def test_client_that_dies_gives_back_its_claims_on_speech(self):
        self.start(settings={**TALKING, "Corvane": {"Speech": "False"}}, wait=False)
        client, dying = self.client(), self.client()
        echo = ("KeyBoardEcho", GLib.Variant("(b)", (True,)))
        wait_until(lambda: self.created(client), "the program on the bus")
        dying.service("SpeechInit")
        dying.service("SpeechInit")
        self.said("Hello, welcome to Corvane 2000")
        client.service(*echo)  # speech is on
        dying.die()

        def speech_is_off():
            try:
                client.service(*echo)
            except GLib.Error as error:
                return error.message.endswith("91: Object variable or With block variable not set")
            return False

        wait_until(speech_is_off, "the end of speech")
        self.assertNotIn("Corvane message", self.corvane.window_names())

    def test_errors_carry_number_and_description(self):
        self.start(settings=TALKING)
        client = self.client()
        self.assertEqual(
            self.error_of(client.call, FACTORY, "org.corvane.Factory.CreateObject", GLib.Variant("(s)", ("Other",))),
            ("org.corvane.Error.RunTime", '429: The class "Other" is not known'))

    def test_automation_start_with_no_running_instance_is_answered_with_its_error(self):
        services = pathlib.Path(os.environ["XDG_DATA_HOME"]) / "dbus-1/services"
        services.mkdir(parents=True, exist_ok=True)
        service = services / f"{NAME}.service"
        service.write_text(f"[D-BUS Service]\nName={NAME}\nExec={PROGRAM}\n")
        self.addCleanup(service.unlink)
        client = self.client()
        bus = ("/org/freedesktop/DBus", "org.freedesktop.DBus.")
        transcript = pathlib.Path(self.home) / "transcript"
        environment = {"CORVANE_TRANSCRIPT": str(transcript), "CORVANE_AUDIO": "null",
                       "XDG_CONFIG_DIRS": str(SOURCE / "data/xdg")}
        client.call(bus[0], bus[1] + "UpdateActivationEnvironment",
                    GLib.Variant("(a{ss})", (environment,)), name="org.freedesktop.DBus")
        client.call(bus[0], bus[1] + "ReloadConfig", name="org.freedesktop.DBus")

        self.assertEqual(
            self.error_of(client.create, start=True),
            ("org.corvane.Error.RunTime", "-2147219967: Application can't be started with Automation"))
        wait_until(lambda: transcript.exists() and
                   "Main Error: Application can't be started with Automation" in transcript.read_text(), "the box spoken")
        # The box has no window behind it; Enter ends the process, and the name goes.
        def box_closed():
            subprocess.run(["xdotool", "key", "Return"], check=True)
            owner = client.call(bus[0], bus[1] + "NameHasOwner", GLib.Variant("(s)", (NAME,)),
                                name="org.freedesktop.DBus")
            return not owner[0]
        wait_until(box_closed, "the end of the process")

    def test_address_on_the_command_line_is_shown_first(self):
        corvane = self.start(settings=TALKING, arguments=[self.base + "/weather.html"], title="The weather")
        self.assertNotIn("Corvane home page", corvane.transcript.spoken())

    def test_second_start_with_an_address_opens_a_window_of_the_running_program(self):
        corvane = self.start(settings=TALKING)
        corvane.transcript.mark()
        environment = dict(os.environ, CORVANE_TRANSCRIPT=str(pathlib.Path(self.home) / "second"))
        second = subprocess.run([str(PROGRAM), self.base + "/weather.html"], env=environment, timeout=60)
        self.assertEqual(second.returncode, 0)
        self.said("The weather")
        self.wait_for_windows(2)
        self.assertFalse((pathlib.Path(self.home) / "second").exists(), "the second process spoke")

    def test_second_start_without_an_address_is_a_process_of_its_own(self):
        first = self.start(settings=TALKING)
        client = self.client()
        second = self.start(settings=TALKING)
        self.assertIsNone(first.process.poll())
        owner = client.call("/org/freedesktop/DBus", "org.freedesktop.DBus.GetConnectionUnixProcessID",
                            GLib.Variant("(s)", (NAME,)), name="org.freedesktop.DBus")[0]
        self.assertEqual(owner, first.process.pid)
        first.kill()
        client.start_browser(wait_until(lambda: self.created(client), "the second takes over"))
        self.wait_for_windows(2)
        self.assertIs(self.corvane, second)

    def created(self, client):
        try:
            return client.create()
        except GLib.Error:
            return None

    def test_example_script_speaks(self):
        corvane = self.start(settings=TALKING)
        corvane.transcript.mark()
        script = str(SOURCE / "examples/say.py")
        subprocess.run([sys.executable, script, "Dinner", "is", "ready"], check=True, timeout=60)
        self.said("Dinner is ready")
        subprocess.run([sys.executable, script, "--urgent", "Fire"], check=True, timeout=60)
        self.said("Fire")

    def test_example_script_says_that_nothing_runs(self):
        result = subprocess.run([sys.executable, str(SOURCE / "examples/say.py"), "x"],
                                capture_output=True, text=True, timeout=60)
        self.assertEqual(result.returncode, 1)
        self.assertIn("Corvane is not running", result.stderr)


class ShellExamples(EndToEndTest):
    def test_examples_of_the_manual_speak(self):
        self.start(settings=TALKING)
        manual = (SOURCE / "docs/automation.md").read_text()
        examples = [line.strip() for line in manual.splitlines()
                    if line.strip().startswith(("gdbus call", "busctl --user call"))]
        self.assertGreaterEqual(len(examples), 3)
        for example in examples:
            subprocess.run(["bash", "-c", example], check=True, timeout=60)
        self.said("Dinner is ready", "The kettle boils")
