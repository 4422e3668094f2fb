"""Ctrl+Shift+E lists the page's elements: Enter goes there, Ctrl+Enter acts."""
import unittest

from harness import wait_until
from text_pane import TextPaneTest

LISTS = "Elements of the page"


class ElementLists(TextPaneTest):
    def begin(self):
        return self.begin_in_text("/market.html", "The market", "A cat")

    def gone(self):
        wait_until(lambda: LISTS not in self.corvane.window_names(), "the list to be closed")

    def test_a_heading_is_chosen(self):
        self.begin()
        self.walk(
            ("ctrl+shift+e", "Headings, Prices, level 1, 1 of 3"),
            ("Down", "Fruit, level 2, 2 of 3"),
            ("Down", "Your order, level 2, 3 of 3"),
            ("Left", "Prices, level 1, 1 of 3"),
            ("Left", "Prices, level 1 Closed"),
            ("Right", "Prices, level 1 Opened"),
            ("Down", "Fruit, level 2, 2 of 3"),
            ("Return", "Fruit, heading level 2"),
        )
        self.gone()
        self.assertEqual(self.corvane.focused_name(), "Text")
        self.walk(("h", "Your order, heading level 2"))

    def test_what_is_typed_narrows_the_list(self):
        corvane = self.begin()
        self.hear("ctrl+shift+e")
        self.walk(("shift+Tab", "Kind, Headings"), ("Down", "Links, 3"), ("Tab", "Links, Start, 1 of 3"))
        corvane.transcript.mark()
        corvane.type("we")
        self.said("2 remain")
        self.quiet()
        self.assertEqual(corvane.transcript.spoken(), ["The weather", "The weather", "2 remain"])

    def test_control_enter_acts(self):
        corvane = self.begin()
        self.hear("ctrl+shift+e")
        self.hear("shift+Tab")
        self.hear("Down")
        self.walk(("Tab", "Links, Start, 1 of 3"), ("End", "next week, 3 of 3"))
        corvane.transcript.mark()
        corvane.keys("ctrl+Return")
        self.said("Extracting Links ...", "Done", "Page 7")

    def test_a_field_is_entered(self):
        self.begin()
        self.hear("ctrl+shift+e")
        self.hear("shift+Tab")
        self.hear("Down")
        self.walk(("Down", "Fields and buttons, 5"), ("Tab", "Fields and buttons, Name, edit, Al, 1 of 5"),
                  ("ctrl+Return", "main, text, Name, Al"))
        self.gone()

    def test_escape_leaves_everything_as_it_was(self):
        self.begin()
        self.hear("2")
        self.walk(("ctrl+shift+e", "Headings, Fruit, level 2, 2 of 3"), ("Down", "Your order, level 2, 3 of 3"),
                  ("Escape", "Text Box"))
        self.gone()
        self.walk(("h", "Your order, heading level 2"))

    def test_it_opens_from_the_page_too(self):
        corvane = self.begin()
        self.hear("shift+F6")
        wait_until(lambda: corvane.focused_name() != "Text", "the page")
        self.walk(("ctrl+shift+e", "Headings, Prices, level 1, 1 of 3"), ("Return", "Prices, heading level 1"))
        self.assertEqual(corvane.focused_name(), "Text")


if __name__ == "__main__":
    unittest.main()
