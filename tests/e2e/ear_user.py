"""A user who knows the program by ear alone: presses keys and waits for words. It
needs no accessibility bus, so it can go on when that has gone."""
import time

from harness import wait_until

QUIET_TIME = 2  # seconds; longer than any pause within the reading of a page

# What the side bar can show, in the order of its menu, as it is stored.
SIDE_BARS = {"none": 0, "favorites": 2, "history": 3, "page structure": 4, "accessible elements": 5}

MENUS = ("File", "Edit", "Go", "Settings", "View", "Speech", "Help")


def menu(title):
    """The keys that open a menu of the bar."""
    return ["alt+f", *["Right"] * MENUS.index(title)]


# A dialog: the keys that open it and how what it says begins.
DIALOGS = {
    "about": ([*menu("Help"), "a"], "Corvane 2000"),
    "options": ([*menu("Settings"), "i"], "Web options. "),
    "file": (["ctrl+o"], "Open. Folder "),
    "find": (["ctrl+f"], "Find in page. "),
}


class EarUser:
    def __init__(self, corvane, base):
        self._corvane = corvane
        self._base = base

    def hear(self, begins, ends=""):
        """Waits for words with that beginning and end."""
        wait_until(
            lambda: any(text.startswith(begins) and text.endswith(ends) for text in self._spoken()),
            f"words {begins!r} ... {ends!r}, heard {self._spoken()[-12:]}",
        )

    def _spoken(self):
        return self._corvane.transcript.spoken()

    def _page(self, title, *keys):
        """Presses keys and hears a page being read."""
        self._corvane.transcript.mark()
        self._corvane.keys(*keys)
        self._corvane.transcript.wait_for("Extracting Links ...", "Done", title)

    def go(self, path):
        """Types an address and sets off."""
        self._type(path)
        self._corvane.transcript.mark()
        self._corvane.keys("Return")

    def open(self, path, title):
        """Types an address and hears the page."""
        self._type(path)
        self._page(title, "Return")

    def _type(self, path):
        self._corvane.keys("ctrl+l", "ctrl+a")
        self._corvane.type(self._base + path)

    def hear_window(self):
        """Goes from the address box to the toolbar by keys, which the window says."""
        self._corvane.keys("ctrl+l")
        self._corvane.transcript.mark()
        self._corvane.keys("F6")
        self.hear("Back Button")

    def enter_page(self):
        """Goes into the page; the next Tab leads to its first element."""
        self._corvane.keys("ctrl+l")
        self._corvane.transcript.mark()
        self._corvane.keys("shift+F6", "shift+F6")
        self.hear("WebBrowser")

    def walk(self, steps):
        """Tabs so many elements on, each heard before the next."""
        for _ in range(steps):
            self._corvane.transcript.mark()
            self._corvane.keys("Tab")
            wait_until(self._spoken, "a word about an element")

    def follow(self, title):
        """Follows the first link of the page, in the page itself: the links list hides
        with the side bar."""
        self.enter_page()
        self.walk(1)
        self._page(title, "Return")

    def back(self, title):
        self._page(title, "alt+Left")

    def side_bar(self, content):
        """Chooses what the side bar shows."""
        self._corvane.keys(*menu("Settings"), "b", *["Down"] * list(SIDE_BARS).index(content), "Return")
        stored = f"SideBar={SIDE_BARS[content]}"
        wait_until(lambda: stored in self._corvane.settings("pnlBrowser"), stored)

    def wait_for_silence(self):
        """Waits until nothing new has been said for a while."""
        heard = -1
        while heard != len(self._corvane.transcript.events()):
            heard = len(self._corvane.transcript.events())
            time.sleep(QUIET_TIME)

    def leave(self, dialog):
        """Opens a dialog, hears it and leaves it."""
        keys, words = DIALOGS[dialog]
        self._corvane.transcript.mark()
        self._corvane.keys(*keys)
        self.hear(words)
        self._corvane.keys("Escape")
        wait_until(self._is_in_window, "the window after a dialog")

    def _is_in_window(self):
        """Whether the window answers already: keys that come while a dialog closes
        are nobody's."""
        self._corvane.transcript.mark()
        self._corvane.keys("ctrl+l")
        time.sleep(0.2)
        return bool(self._spoken())
