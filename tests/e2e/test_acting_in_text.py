"""What a page does when it is used where its text is read: the reader is led along, and
hears what has come."""
import unittest

from text_pane import TextPaneTest


class ActingInText(TextPaneTest):
    def begin(self):
        return self.begin_in_text("/moves.html", "Moves", "A cat")

    def test_a_dialog_of_the_page_is_gone_into_and_left(self):
        self.begin()
        self.walk(
            ("b", "Delete, button"),
            ("Return", "Delete it?, dialog, button, Yes"),
        )
        self.in_text("Yes")
        self.walk(("Return", "button, Delete"), ("b", "Search, button"))

    def test_a_field_that_opens_is_typed_in_at_once(self):
        corvane = self.begin()
        self.walk(("b", "Delete, button"), ("b", "Search, button"), ("Return", "text, Words"))
        self.assertNotEqual(corvane.focused_name(), "Text")
        self.walk(("a", "a"), ("Escape", "Words, edit, a"), ("shift+b", "Away, button"))

    def test_what_comes_later_is_said_and_stands_there(self):
        self.begin()
        for _ in range(3):
            self.hear("b")
        self.walk(("Return", "Counted 1"), ("Return", "Counted 2"))
        self.in_text("Counted 2")

    def test_what_takes_itself_away_leaves_its_reader_at_what_is_there(self):
        self.begin()
        for _ in range(4):
            self.hear("b")
        self.walk(("Return", "Something else here."))


if __name__ == "__main__":
    unittest.main()
