"""What the desktop's accessibility bus tells an outside client of the element of a page
where the user now is, and which words of it a listener must hear."""
import re

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

MOST = 3000  # elements looked at in a page

# How each role may be said: what the bus calls it, and the words. The engine calls each
# button that has a menu or list a combo box, a switch a toggle button, a field for a
# number or a week an entry, a field for a file or a colour a push button, the parts of a
# date and a time spin buttons, and a link that is an item of a tree a link.
PARTS_OF_TIME = ["day", "month", "year", "hour", "minute"]
ROLES = {
    "push button": ["button", "submit", "reset", "file", "color"], "toggle button": ["button", "switch"],
    "check box": ["check box", "checkbox"],
    "radio button": ["radio"], "link": ["link", "http", "address", "tree item"], "page tab": ["tab"], "menu item": ["menu item"],
    "check menu item": ["check menu item"], "radio menu item": ["radio menu item"],
    "combo box": ["combo box", "select", "list box", "button"], "list box": ["list box", "select"],
    "slider": ["slider"],
    "spin button": ["spin button", "number", "text", *PARTS_OF_TIME], "tree item": ["tree item"], "table cell": ["cell", "row"],
    "column header": ["column header"], "row header": ["row header"], "progress bar": ["progress bar"],
    "entry": ["spin button", "text", "edit", "search", "textarea", "combo box", "field", "week"],
    "password text": ["password"],
    "dialog": ["dialog"], "alert": ["alert"], "heading": ["heading"], "tool bar": ["tool bar"],
    "image": ["picture"], "switch": ["switch"], "document frame": [], "document web": [],
}
# The engine calls a field invalid also where nobody has filled it in yet, which is no
# listener's fault: that state is left out. Of a slider with suggested values it says that
# something pops up, which nothing does.
STATES = {
    Atspi.StateType.CHECKED: ["checked", "on", "selected", "pressed"], Atspi.StateType.PRESSED: ["pressed"],
    Atspi.StateType.EXPANDED: ["expanded"], Atspi.StateType.REQUIRED: ["required"],
    Atspi.StateType.READ_ONLY: ["read only"],
    Atspi.StateType.INDETERMINATE: ["partly"], Atspi.StateType.HAS_POPUP: ["has", "combo box"],
}


def squeezed(text):
    """The words alone: names and values are told apart by other marks here and there."""
    return re.sub(r"[\s,.:]+", " ", text).strip().lower()


class PageOnBus:
    def __init__(self, corvane):
        self._corvane = corvane
        self._page = None
        self._before = None  # where the user was, and its states

    def left(self):
        """Another page comes: what is known of this one is worth nothing."""
        self._page = self._before = None

    def focused(self):
        """The element of the page that the bus says has the focus, the innermost; None
        where there is none."""
        try:
            self._page = self._page or self._corvane.page()
            return self._innermost(self._page) if self._page else None
        except GLib.GError:
            self._page = None
            return None

    @staticmethod
    def _innermost(page):
        found = None
        waiting, seen = [page], 0
        while waiting and seen < MOST:
            node = waiting.pop(0)
            seen += 1
            if node is None:
                continue
            if node != page and node.get_state_set().contains(Atspi.StateType.FOCUSED):
                found = node
            waiting.extend(node.get_child_at_index(i) for i in range(node.get_child_count()))
        return found

    def news(self):
        """What must be heard of where the user is since this was asked last."""
        node = self.focused()
        if node is None:
            return []
        told = list(self.told_of(node))
        states = {what for kind, what, _ in told if kind == "state"}
        before, self._before = self._before, (node, states)
        if before is None or before[0] != node:
            return told
        return [each for each in told if each[0] == "state" and each[1] not in before[1]]

    @staticmethod
    def told_of(node):
        """All that the bus tells of the element: (kind, what, words of which one must be
        among what is said)."""
        name = squeezed(node.get_name() or "")
        if name:
            yield "name", name, [name]
        role = Atspi.role_get_name(node.get_role())
        if ROLES.get(role):
            yield "role", role, ROLES[role]
        states = node.get_state_set()
        for state, words in STATES.items():
            if states.contains(state) and not (state == Atspi.StateType.HAS_POPUP and role == "slider"):
                yield "state", state.value_nick, words
        if not states.contains(Atspi.StateType.SENSITIVE):
            yield "state", "insensitive", ["unavailable"]
