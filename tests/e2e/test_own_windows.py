"""What another reader finds in the program's own windows: every window and every
control that can have the focus has a name and a role; changes are told."""
import pathlib
import time

from gi.repository import Atspi, GLib

from ear_user import SIDE_BARS, EarUser, menu
from harness import ESTABLISHED, EndToEndTest, wait_until

STATE, ROLE = Atspi.StateType, Atspi.Role
WINDOWS = (ROLE.FRAME, ROLE.DIALOG, ROLE.ALERT, ROLE.FILE_CHOOSER, ROLE.WINDOW)
ITEMS = (ROLE.TABLE_CELL, ROLE.TREE_TABLE, ROLE.LIST_ITEM)  # their text is their name
QUIET = {"Corvane": {"Speech": "True"}, "pnlBrowser": {"SideBar": "2", "Focus": "0"}}
NAMELESS_ROLES = (ROLE.UNKNOWN, ROLE.INVALID, ROLE.REDUNDANT_OBJECT)


class Told:
    """The events that an outside listener gets while it waits."""

    def __init__(self, *kinds):
        self.events = []
        self._listener = Atspi.EventListener.new(self._take)
        for kind in kinds:
            self._listener.register(kind)
        self._kinds = kinds

    def _take(self, event):
        self.events.append((event.type, event.source.get_name(), event.detail1, event.any_data))

    def wait_for(self, kind, name, *details):
        """Waits for an event of the control of that name."""

        def has_come():
            while GLib.MainContext.default().iteration(False):
                pass
            return any(e[0] == kind and e[1] == name and e[2:2 + len(details)] == details for e in self.events)

        wait_until(has_come, f"{kind} of {name} among {self.events}")

    def close(self):
        for kind in self._kinds:
            self._listener.deregister(kind)


class OwnWindows(EndToEndTest):
    maxDiff = None

    def start(self, *arguments, **more):
        corvane = super().start(*arguments, **more)
        self.user = EarUser(corvane, self.base)
        return corvane

    def nameless(self):
        """What is in sight and has no name or no role: windows, and controls that
        can have the focus."""
        found = []
        for node in self.corvane.accessibles():
            states, role = node.get_state_set(), node.get_role()
            if not states.contains(STATE.SHOWING):
                continue
            if not states.contains(STATE.FOCUSABLE) and role not in WINDOWS:
                continue
            named = node.get_name() or any(
                relation.get_relation_type() == Atspi.RelationType.LABELLED_BY
                for relation in node.get_relation_set())
            if not (named or role in ITEMS) or role in NAMELESS_ROLES:
                found.append(self.path(node))
        return found

    @staticmethod
    def path(node):
        parts = []
        while node is not None and len(parts) < 12:
            parts.append(f"{node.get_role_name()} {node.get_name()!r}")
            node = node.get_parent()
        return " < ".join(parts)

    def assert_all_named(self, window):
        self.assertEqual("\n".join(self.nameless()), "", window)

    def assert_dialog_named(self, name, controls, *keys):
        """Opens a dialog with keys, looks at it and leaves it."""
        with self.subTest(name):
            self.corvane.keys(*keys)
            self.assert_open_dialog_named(name, controls)

    def assert_open_dialog_named(self, name, controls):
        def window():
            return self.window_of(self.corvane.focused())

        try:
            wait_until(lambda: window() == name, f"the focus in {name}")
            nameless, names = self.nameless(), [node.get_name() for node in self.corvane.accessibles()]
        except AssertionError:
            raise AssertionError(f"the focus is in {window()}, not in {name}") from None
        finally:
            self.corvane.keys("Escape")
        wait_until(lambda: window() != name, "the end of " + name)
        self.assertEqual("\n".join(nameless), "", name)
        for control in controls:
            self.assertIn(control, names)

    @staticmethod
    def window_of(node):
        """The name of the window around a control."""
        name = None
        while node is not None and node.get_role() != ROLE.APPLICATION:
            name, node = node.get_name(), node.get_parent()
        return name

    def test_main_window_and_speech_form_with_every_side_bar(self):
        self.start()
        self.user.open("/elements.html", "Many elements")
        for content in SIDE_BARS:
            self.user.side_bar(content)
            self.user.open("/elements.html", "Many elements")
            time.sleep(1)  # the tree of the accessible elements comes later
            self.assert_all_named(content)

    def test_trees_with_open_nodes_and_the_help(self):
        corvane = self.start()
        for content in ("page structure", "history"):
            self.user.side_bar(content)
            self.user.open("/elements.html", "Many elements")
            corvane.focus("Sidebar")
            corvane.keys("Right", "Down", "Right", "Down")
            self.assert_all_named(content)
        corvane.keys(*menu("Help"), "c")
        self.user.hear("About this help")
        self.assert_all_named("the help")

    def test_menus(self):
        corvane = self.start()
        corvane.keys("F10")
        for _ in range(7):
            corvane.keys("Down")
            self.assert_all_named("a menu")
            corvane.keys("Right")
        corvane.keys("Escape", "Escape")

    def test_dialogs_of_the_menus(self):
        self.start(settings=QUIET)
        self.user.open("/start.html", "The local news")
        self.assert_dialog_named("About Corvane 2000", ["OK"], *menu("Help"), "a")
        self.assert_dialog_named(
            "Web options", ["Start page", "Page zoom", "Show images", "OK", "Clear history", "Cancel"],
            *menu("Settings"), "i")
        self.assert_dialog_named("Open", ["Open", "Cancel"], "ctrl+o")
        self.assert_dialog_named("Find in page", ["Find", "Cancel"], "ctrl+f")
        self.assert_dialog_named("Print", ["Print", "Cancel"], "ctrl+p")

    def test_rename_dialog(self):
        favorites = pathlib.Path(self.home) / "data/corvane/Favorites"
        favorites.mkdir(parents=True)
        (favorites / "Rain.url").write_text("[InternetShortcut]\r\nURL=http://localhost/\r\n")
        corvane = self.start(settings=QUIET)
        corvane.focus("Sidebar")
        corvane.keys("Right")
        self.said("Favorites Opened")
        corvane.keys("Right")
        self.said("Rain ")
        self.assert_dialog_named("Rename", ["Name", "Cancel"], "F2")

    def test_questions_of_pages(self):
        corvane = self.start(settings=QUIET)
        for path, title, steps, window, controls in (
            ("/asking.html", "A page that asks", 1, "Question of 127.0.0.1", ["OK", "Cancel"]),
            ("/asking.html", "A page that asks", 2, "Question of 127.0.0.1", ["Answer", "OK", "Cancel"]),
            ("/kinds.html", "All kinds", 8, "Choose a file for the page", ["Open", "Cancel"]),
        ):
            with self.subTest(path=path, steps=steps):
                self.user.open(path, title)
                self.user.enter_page()
                self.user.walk(steps)
                corvane.keys("space")
                self.assert_open_dialog_named(window, controls)
                self.user.wait_for_silence()  # the answer may lead to another page
        for path, window, controls in (
            ("/where.html", "Permission", ["Refuse", "Allow once"]),
            ("/private", "Sign in", ["User name", "Password", "Cancel"]),
            ("/alert.html", "Message Box", ["OK"]),
        ):
            with self.subTest(path):
                self.user.go(path)
                self.assert_open_dialog_named(window, controls)

    def test_message_box(self):
        corvane = self.start(settings={"Corvane": {**ESTABLISHED["Corvane"], "MainLeft": "left"}},
                             wait=False)
        self.said("FormLoad Error: Type mismatch. OK Button")
        wait_until(corvane.focused, "a focus")
        self.assert_all_named("a message box")
        corvane.keys("Return")

    def test_changes_of_focus_and_text_are_told(self):
        corvane = self.start(settings=QUIET)
        self.user.open("/start.html", "The local news")
        told = Told("object:state-changed:focused", "object:text-changed", "object:text-caret-moved",
                    "object:selection-changed", "window:activate")
        self.addCleanup(told.close)
        corvane.keys("ctrl+l")
        told.wait_for("object:state-changed:focused", "Address", 1)
        corvane.keys("ctrl+a", "x")
        told.wait_for("object:text-changed:delete", "Address")
        told.wait_for("object:text-changed:insert", "Address")
        corvane.keys("Left")
        told.wait_for("object:text-caret-moved", "Address", 0)
        corvane.keys("F6")
        told.wait_for("object:state-changed:focused", "Back", 1)
        corvane.keys("ctrl+l", "shift+F6")
        told.wait_for("object:state-changed:focused", "Text", 1)
        corvane.keys("Down")
        told.wait_for("object:text-caret-moved", "Text")
        self.user.open("/weather.html", "The weather")
        told.wait_for("object:text-changed:insert", "Text")
        corvane.keys("ctrl+f")
        told.wait_for("window:activate", "Find in page")
        told.wait_for("object:state-changed:focused", "Find", 1)
