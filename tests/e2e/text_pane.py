"""What tests of the text pane share: a page that is read there, key by key."""
from harness import EndToEndTest, wait_until

IN_TEXT = {"Corvane": {"Speech": "True"}, "pnlBrowser": {"SideBar": "0", "Focus": "5"}}


class TextPaneTest(EndToEndTest):
    def begin_in_text(self, page, title, words, settings=None):
        """Opens a page and waits until it stands in the text pane with its elements:
        until the words are there."""
        corvane = self.start(settings=settings or IN_TEXT)
        self.read(page)
        self.said(title)
        wait_until(lambda: corvane.focused_name() == "Text", "the text pane")
        wait_until(lambda: words in corvane.text_of("Text"), "the elements in the text")
        return corvane

    def hear(self, key):
        """Presses a key and returns all that is said then."""
        transcript = self.corvane.transcript
        transcript.mark()
        self.corvane.keys(key)
        wait_until(transcript.spoken, f"words for {key}")
        self.quiet()
        return transcript.spoken()

    def in_text(self, words):
        """Waits until the words stand in the text pane."""
        wait_until(lambda: words in self.corvane.text_of("Text"), f"{words!r} in the text")

    def quiet(self):
        """Waits until nothing is being said."""

        def silent():
            events = self.corvane.transcript.events()
            begun = {e["id"] for e in events if e["event"] == "speak"}
            over = {e["id"] for e in events if e["event"] in ("end", "cut")}
            return not begun - over

        wait_until(silent, "silence")

    def walk(self, *steps):
        """Presses keys, each once the one before has been heard: (key, words ...)."""
        heard = [(key, *self.hear(key)) for key, *_ in steps]
        self.assertEqual(heard, list(steps))
