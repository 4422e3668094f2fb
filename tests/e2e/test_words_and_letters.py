"""What was heard badly: spelled, said again, copied; and keys that say what they do."""
import unittest

from harness import wait_until
from text_pane import TextPaneTest


class WordsAndLetters(TextPaneTest):
    def begin(self):
        return self.begin_in_text("/market.html", "The market", "A cat")

    def test_a_word_and_a_line_are_spelled(self):
        self.begin()
        self.walk(
            ("h", "Prices, heading level 1"),
            ("ctrl+shift+w", "P, r, i, c, e, s"),
            ("ctrl+shift+w", "Papa, Romeo, India, Charlie, Echo, Sierra"),
            ("ctrl+shift+w", "P, r, i, c, e, s"),
            ("h", "Fruit, heading level 2"),
            ("h", "Your order, heading level 2"),
            ("ctrl+shift+l", "Y, o, u, r, space, o, r, d, e, r"),
            ("ctrl+shift+l", "Yankee, Oscar, Uniform, Romeo, space, Oscar, Romeo, Delta, Echo, Romeo"),
        )

    def test_what_was_said_is_said_again_and_copied(self):
        corvane = self.begin()
        self.walk(
            ("h", "Prices, heading level 1"),
            ("g", "A cat, picture"),
            ("ctrl+shift+r", "A cat, picture"),
            ("ctrl+shift+r", "Prices, heading level 1"),
            ("ctrl+shift+c", "Copied"),
            ("ctrl+l", self.base + "/market.html Address Box"),
        )
        corvane.keys("ctrl+a", "ctrl+v")
        self.quiet()
        self.walk(("ctrl+shift+w", "1"))

    def test_keys_say_what_they_do_and_do_nothing(self):
        corvane = self.begin()
        self.walk(
            ("ctrl+F1", "Key help on. Each key says what it does. Escape ends it."),
            ("h", "H, next heading"),
            ("shift+2", "Shift", "Shift 2, previous heading level 2"),
            ("ctrl+w", "Control, silences what is being said", "Control W, closes the window"),
            ("alt+f", "Alt", "Alt F, opens the menu File"),
            ("F10", "F10, goes to the menu bar"),
            ("Tab", "Tab, goes to the next part of the window"),
            ("F5", "F5, loads the page again"),
            ("Escape", "Key help off"),
            ("h", "Prices, heading level 1"),
        )
        self.assertEqual(corvane.focused_name(), "Text")

    def test_reading_goes_to_and_fro_and_on_from_what_was_found(self):
        corvane = self.begin_in_text("/sentences.html", "Long sentences", "The fourth")
        corvane.transcript.mark()
        corvane.keys("ctrl+f")
        self.said("Find in page. Find, edit box, empty")
        corvane.type("the second one is")
        corvane.keys("Return")
        wait_until(lambda: any(words.startswith("1 of 1: ") for words in corvane.transcript.spoken()), "the place")
        self.quiet()
        for key, ordinal in (("F7", "second"), ("Left", "first"), ("Right", "second"), ("Down", "third"),
                             ("Down", "fourth"), ("Left", "third"), ("Up", "first")):
            corvane.transcript.mark()
            corvane.keys(key)
            wait_until(corvane.transcript.spoken, f"words for {key}")
            self.assertIn(f"The {ordinal} ", corvane.transcript.spoken()[0], key)
        corvane.transcript.mark()
        corvane.keys("Control_L")
        self.quiet()
        corvane.keys("F7")
        wait_until(corvane.transcript.spoken, "the words that were cut off")
        self.assertIn("The first ", corvane.transcript.spoken()[0])


if __name__ == "__main__":
    unittest.main()
