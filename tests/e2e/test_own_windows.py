"""What another reader finds in the program's own windows: every control that can
have the focus has a name and a role."""
from gi.repository import Atspi

from harness import EndToEndTest, wait_until

STATE = Atspi.StateType


class OwnWindows(EndToEndTest):
    maxDiff = None

    def nameless(self):
        """Controls in sight that can have the focus and that nothing names."""
        found = []
        for node in self.corvane.accessibles():
            states = node.get_state_set()
            if not (states.contains(STATE.FOCUSABLE) and states.contains(STATE.SHOWING)):
                continue
            named = node.get_name() or any(
                relation.get_relation_type() == Atspi.RelationType.LABELLED_BY
                for relation in node.get_relation_set())
            in_a_list = node.get_role() in (Atspi.Role.TABLE_CELL, Atspi.Role.TREE_TABLE, Atspi.Role.LIST_ITEM)
            known = node.get_role() not in (Atspi.Role.UNKNOWN, Atspi.Role.INVALID)
            if not (named or in_a_list) or not known:
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

    def test_main_window_with_every_side_bar(self):
        corvane = self.start()
        self.assert_all_named("the main window")
        for number, letter in enumerate("fhpa"):
            corvane.keys("alt+g")  # the settings menu
            corvane.keys("b", letter)
            self.assert_all_named(f"side bar {number}")

    def test_menus(self):
        corvane = self.start()
        corvane.keys("F10")
        for _ in range(7):
            corvane.keys("Down")
            self.assert_all_named("a menu")
            corvane.keys("Right")
        corvane.keys("Escape", "Escape")

    def test_message_box(self):
        corvane = self.start(settings={"Corvane": {"Speech": "True", "MainLeft": "left"}}, wait=False)
        self.said("FormLoad Error: Type mismatch")
        wait_until(corvane.focused, "a focus")
        self.assert_all_named("a message box")
        corvane.keys("Return")

    def test_focus_and_text_changes_are_reported(self):
        corvane = self.start()
        corvane.focus("Address")
        corvane.keys("ctrl+a")
        corvane.type("reported")
        wait_until(lambda: corvane.text_of("Address") == "reported", "the text typed")
        focused = corvane.focused()
        self.assertEqual(focused.get_name(), "Address")
        self.assertTrue(focused.get_state_set().contains(STATE.EDITABLE))
