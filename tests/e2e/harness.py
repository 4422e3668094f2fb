"""Drives the real program as its user does: keys from outside, the transcript of
what is spoken, the accessibility tree, and nothing else.

Runs below scripts/with-desktop, which gives every test program a display, a
window manager, a session bus and XDG folders of its own.
"""
import json
import os
import pathlib
import subprocess
import tempfile
import threading
import time
import unittest

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402  (the version must be chosen first)

import web_server  # noqa: E402

PATIENCE = float(os.environ.get("CORVANE_PATIENCE", 120))  # seconds until something that must happen is given up
# Settings of the established manner; without them the program runs as it is installed.
ESTABLISHED = {"Corvane": {"Speech": "True", "Manner": "0"}}
# And of the pane, where only what is said of fields and links is to be established.
ESTABLISHED_SENTENCES = {"FullSentences": "False", "FieldNames": "True", "FieldCaret": "False"}
SOURCE = pathlib.Path(__file__).resolve().parents[2]
# A program on a busy machine answers late.
Atspi.set_timeout(3000, 15000)  # milliseconds: of a call, and of one to a program that starts
PROGRAM = pathlib.Path(os.environ.get("CORVANE_PROGRAM", SOURCE / "build/bin/corvane"))


def wait_until(condition, what, patience=PATIENCE):
    """Waits until condition() is true and returns its value."""
    end = time.monotonic() + patience
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise AssertionError("not in time: " + what)
        time.sleep(0.02)


class Transcript:
    """What the program says, read while it is said."""

    def __init__(self, path):
        self._path = path
        self._read = 0  # bytes
        self._events = []
        self._mark = 0

    def events(self):
        try:
            with self._path.open("rb") as file:
                file.seek(self._read)
                new = file.read()
        except FileNotFoundError:
            return []
        whole = new.rfind(b"\n") + 1  # the last line may be being written
        self._read += whole
        self._events = self._events + [json.loads(line) for line in new[:whole].splitlines()]
        return self._events

    def since_mark(self):
        """All events since the last mark."""
        return self.events()[self._mark:]

    def spoken(self):
        """All texts spoken since the last mark."""
        return [e["text"] for e in self.since_mark() if e["event"] == "speak"]

    def mark(self):
        """Forgets what was spoken so far."""
        self._mark = len(self.events())

    def wait_for(self, *texts):
        """Waits until the texts were spoken, in this order (others may lie between)."""

        def heard():
            rest = iter(self.spoken())
            return all(any(text == said for said in rest) for text in texts)

        try:
            wait_until(heard, repr(texts))
        except AssertionError:
            raise AssertionError(f"waited for {texts}, heard {self.spoken()}") from None


class Corvane:
    """The running program."""

    def __init__(self, home, settings=None, environment=None, arguments=(), folder=None):
        self.home = pathlib.Path(home)
        (self.home / "transcript").unlink(missing_ok=True)  # of an earlier start
        self.transcript = Transcript(self.home / "transcript")
        self.log = self.home / "log"
        config = self.home / "config" / "corvane"
        config.mkdir(parents=True, exist_ok=True)
        for application, values in (settings or {}).items():
            lines = ["[Settings]"] + [f"{key}={value}" for key, value in values.items()]
            (config / f"{application}.ini").write_text("\n".join(lines) + "\n")
        env = dict(
            os.environ,
            CORVANE_TRANSCRIPT=str(self.home / "transcript"),
            CORVANE_AUDIO="null",
            XDG_CONFIG_HOME=str(self.home / "config"),
            XDG_DATA_HOME=str(self.home / "data"),
            XDG_CACHE_HOME=str(self.home / "cache"),
            XDG_CONFIG_DIRS=str(SOURCE / "data/xdg"),
        )
        env.update(environment or {})
        with self.log.open("ab") as log:
            self.process = subprocess.Popen([str(PROGRAM), *arguments], env=env, stdout=log, stderr=log,
                                            cwd=folder or self.home)

    def settings(self, application):
        """The stored settings of an application name, as text."""
        try:
            return (self.home / "config/corvane" / f"{application}.ini").read_text()
        except FileNotFoundError:
            return ""

    def log_text(self):
        return self.log.read_text(errors="replace")

    # Keys -------------------------------------------------------------------
    def keys(self, *names, delay=25):
        """Presses keys one after the other, such as "Tab" or "alt+F4"; `delay`: the
        milliseconds between two."""
        subprocess.run(["xdotool", "key", "--clearmodifiers", "--delay", str(delay), *names], check=True)

    def type(self, text):
        subprocess.run(["xdotool", "type", "--clearmodifiers", "--delay", "8", text], check=True)

    def paste(self, name, text):
        """Puts a text into a field as another program would, for texts that are too
        long to type."""
        if not Atspi.EditableText.set_text_contents(self.find(name), text):
            raise AssertionError(f"{name} takes no text")

    def open(self, address):
        """Goes to an address as a user does. The focus must be in the address box
        or in a place from which alt+d leads there."""
        self.focus("Address")
        self.keys("ctrl+a")
        self.type(address)
        self.keys("Return")

    def focus(self, name):
        """Tabs until the control of that name has the focus."""
        for _ in range(30):
            if self.focused_name() == name:
                return
            self.move("Tab")
        raise AssertionError(f"Tab never reached {name}, ended at {self.focused_name()!r}")

    def move(self, key):
        """Presses a key that moves the focus and waits until it has moved. A key that
        moved nothing is given up soon."""

        # Inside a page, what is said tells of the move.
        def moved():
            now = self.focused_name()
            return len(self.transcript.events()) > said if now is None else now != before

        before, said = self.focused_name(), len(self.transcript.events())
        self.keys(key)
        try:
            wait_until(moved, "another focus", patience=5)
        except AssertionError:
            pass

    def press_and_hear(self, *keys):
        """Presses keys one after the other, each once something has been said of the
        one before."""
        for key in keys:
            said = len(self.transcript.events())
            self.keys(key)
            wait_until(lambda: len(self.transcript.events()) > said, f"words for {key}")

    def focus_page(self):
        """Clicks into the middle of the page, beside everything in it."""
        page = wait_until(lambda: self.page(), "a page")
        area = page.get_extents(Atspi.CoordType.SCREEN)
        at = [str(area.x + area.width - 20), str(area.y + area.height - 20)]
        subprocess.run(["xdotool", "mousemove", *at, "click", "1"], check=True)
        time.sleep(0.2)

    def welcomed(self):
        """Whether the welcome is over: until then what is said waits, and speech cannot
        be switched off."""
        events = self.transcript.events()
        ids = {e["id"] for e in events if e["event"] == "speak" and e["text"].startswith("Hello, welcome")}
        return any(e["id"] in ids for e in events if e["event"] in ("end", "cut"))

    def page(self):
        """The page's accessible document."""

        def search(node, depth):
            if node is None or depth > 30:
                return None
            if node.get_role() == Atspi.Role.DOCUMENT_WEB:
                return node
            children = (node.get_child_at_index(i) for i in range(node.get_child_count()))
            return next((found for child in children if (found := search(child, depth + 1))), None)

        try:
            return search(self.application(), 0)
        except GLib.GError:
            return None

    def button(self, name):
        """Presses a toolbar button: Tab leads to the first, Right to the others."""
        self.focus("Back")
        for _ in range(7):
            if self.focused_name() == name:
                self.keys("space")
                return
            self.move("Right")
        raise AssertionError(f"Right never reached {name}")

    # What other readers see ---------------------------------------------------
    def application(self):
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(i)
            if child is not None and child.get_process_id() == self.process.pid:
                return child
        return None

    def accessibles(self, of=None, depth=0):
        """All accessible objects of the program's own windows, pages left out."""
        node = of or self.application()
        if node is None or depth > 30:
            return
        try:
            children = [node.get_child_at_index(i) for i in range(min(node.get_child_count(), 300))]
        except GLib.GError:
            return  # it is gone
        yield node
        for child in children:
            # A page is another program on the bus: asked for anything it builds its whole
            # tree, or never answers because it hangs.
            if child is not None and child.app.bus_name == node.app.bus_name:
                yield from self.accessibles(child, depth + 1)

    def find(self, name):
        """The control of that name, not its label, or None."""

        def is_it(node):
            try:
                return node.get_name() == name and node.get_role() != Atspi.Role.LABEL
            except GLib.GError:
                return False  # it is gone

        return next((n for n in self.accessibles() if is_it(n)), None)

    def focused(self):
        # One that moves while it is looked for is found nowhere.
        return self.focused_now() or self.focused_now()

    def focused_now(self):
        node = next(
            (n for n in self.accessibles() if n.get_state_set().contains(Atspi.StateType.FOCUSED)), None
        )
        # A tree says it of itself or of the cell that its cursor is on.
        while node is not None and node.get_role() == Atspi.Role.TABLE_CELL:
            node = node.get_parent()
        return node

    def focused_name(self):
        focused = self.focused()
        return focused.get_name() if focused is not None else None

    def text_of(self, name):
        """The text of a field."""
        node = self.find(name)
        if node is None:
            return ""
        return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))

    def window_names(self):
        application = self.application()
        if application is None:
            return []
        children = (application.get_child_at_index(i) for i in range(application.get_child_count()))
        return [child.get_name() for child in children if child is not None]

    # The end ------------------------------------------------------------------
    def screenshot(self, path):
        subprocess.run(["scrot", "--overwrite", str(path)], check=True)

    def close(self):
        """Closes the window as a user does and waits for the process to end."""
        self.keys("alt+F4")
        return self.process.wait(PATIENCE)

    def kill(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()


class EndToEndTest(unittest.TestCase):
    """A test with a local web server and, once started, the program."""

    @classmethod
    def setUpClass(cls):
        cls.server = web_server.start()
        cls.base = f"http://127.0.0.1:{cls.server.server_address[1]}"
        threading.Thread(target=cls.server.serve_forever, daemon=True).start()

    @classmethod
    def tearDownClass(cls):
        cls.server.shutdown()

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="corvane-e2e-", ignore_cleanup_errors=True)
        self.addCleanup(folder.cleanup)
        self.home = folder.name
        self.corvane = None

    def start(self, settings=None, environment=None, wait=True, title="Corvane home page", arguments=(),
              folder=None):
        """Starts the program; waits until the title of the first page was spoken."""
        self.corvane = Corvane(self.home, settings, environment, arguments, folder)
        self.addCleanup(self.corvane.kill)
        self.addCleanup(self.report)
        if wait:
            self.said("Hello, welcome to Corvane 2000", title)
            wait_until(self.corvane.welcomed, "the end of the welcome")
            wait_until(self.corvane.focused, "a focus")
        return self.corvane

    def report(self):
        """After a failure, prints what there is to understand it."""
        failed = any(error for _, error in getattr(self._outcome, "errors", []) if error) or any(
            case is self for case, _ in self._outcome.result.failures + self._outcome.result.errors
        )
        if failed:
            print("spoken:", *self.corvane.transcript.events()[-60:], sep="\n  ")
            print("log:", self.corvane.log_text()[-4000:], sep="\n")

    def said(self, *texts):
        self.corvane.transcript.wait_for(*texts)

    def read(self, path):
        """Opens a page of the local server and waits until it has been read."""
        self.corvane.transcript.mark()
        self.corvane.open(self.base + path)
        self.said("Extracting Links ...", "Done")


if __name__ == "__main__":
    unittest.main()
