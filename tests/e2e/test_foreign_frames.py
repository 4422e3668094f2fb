"""A part of the page that comes from another site, as shops have for payments: it is
read, used and left like the rest of the page."""
import unittest

from harness import wait_until
from text_pane import TextPaneTest


class ForeignFrames(TextPaneTest):
    def test_a_form_of_another_site_is_filled_in_and_sent(self):
        corvane = self.begin_in_text("/till.html", "The till", "Your card")
        self.walk(
            ("o", "Card payment, frame"),
            ("h", "Your card, heading level 2"),
            ("e", "Number, edit"),
            ("Return", "Card payment, frame, text, Number"),
        )
        corvane.transcript.mark()
        corvane.type("42")
        self.said("2")
        self.quiet()
        self.walk(("Escape", "Number, edit, 42"), ("b", "Pay, button"))
        corvane.keys("Return")
        wait_until(lambda: "Paid" in corvane.text_of("Text"), "what has changed in the frame")
        self.quiet()
        self.walk(("shift+h", "Paid, heading level 2"), ("shift+h", "Your basket, heading level 1"),
                  ("h", "Paid, heading level 2"), ("h", "Help, heading level 2"))


if __name__ == "__main__":
    unittest.main()
