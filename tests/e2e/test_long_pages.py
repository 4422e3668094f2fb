"""Long pages of different make: each key leads to each of its kind exactly once, in the
page's order, and every one is named right."""
import pathlib
import subprocess
import unittest

import long_pages
from harness import wait_until
from text_pane import IN_TEXT, TextPaneTest

AT_ONCE = 100  # keys that are pressed in one go
MANUALS = pathlib.Path("/usr/share/doc")


class LongPages(TextPaneTest):
    def walk_all(self, key, end):
        """Presses the key until it leads no further and returns all that was said
        before that."""
        corvane = self.corvane
        corvane.keys("ctrl+Home")
        self.quiet()
        corvane.transcript.mark()
        pressed = 0
        while end not in corvane.transcript.spoken():
            subprocess.run(["xdotool", "key", "--repeat", str(AT_ONCE), "--repeat-delay", "12", key], check=True)
            pressed += AT_ONCE
            wait_until(lambda: len(corvane.transcript.spoken()) >= pressed, f"words for {pressed} {key}")
        spoken = corvane.transcript.spoken()
        return spoken[:spoken.index(end)]

    def begin(self, path, words):
        corvane = self.start(settings=IN_TEXT)
        corvane.transcript.mark()
        corvane.open(f"file://{path}")
        self.said("Done")
        wait_until(lambda: corvane.focused_name() == "Text", "the text pane")
        wait_until(lambda: words in corvane.text_of("Text"), "the page's text")
        wait_until(lambda: "still being read" not in " ".join(self.hear("h")), "the page's elements")

    def check_manual(self, path, words):
        path = MANUALS / path
        manual = long_pages.Manual(path.read_text(errors="replace"))
        self.begin(path, words)
        for key, end, there in (("h", "heading", manual.headings), ("k", "link", manual.links),
                                ("g", "picture", manual.pictures)):
            with self.subTest(key=key):
                self.assertEqual(self.walk_all(key, f"No next {end}"), there)
        for key, end, count in (("t", "table", manual.tables), ("l", "list", manual.lists)):
            with self.subTest(key=key):
                self.assertEqual(len(self.walk_all(key, f"No next {end}")), count)

    def check_made(self, page):
        path = pathlib.Path(self.home) / "long.html"
        path.write_text(page.html())
        self.begin(path, "1")
        names = {"h": "heading", "k": "link", "l": "list", "i": "list item", "t": "table", "g": "picture",
                 "e": "edit field", "x": "check box", "r": "radio button", "c": "combo box", "b": "button",
                 "q": "quotation", "d": "landmark", "o": "frame"}
        for key, heard in page.heard.items():
            with self.subTest(key=key):
                self.assertEqual(self.walk_all(key, f"No next {names[key]}"), heard)

    def test_a_manual_made_from_texinfo(self):
        self.check_manual("bash/bashref.html", "Bash Reference Manual")

    def test_a_standard_made_from_docbook(self):
        self.check_manual("debian-policy/fhs/fhs-3.0.html", "Filesystem Hierarchy Standard")

    def test_a_shop(self):
        self.check_made(long_pages.shop(60))

    def test_a_book(self):
        self.check_made(long_pages.book(60))

    def test_an_application(self):
        self.check_made(long_pages.application(40))


if __name__ == "__main__":
    unittest.main()
