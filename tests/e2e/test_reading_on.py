"""The text pane read aloud to its end."""
import unittest

from harness import EndToEndTest, wait_until

TALE = (
    "A tale",
    "The first paragraph tells who it is about.",
    "It has two sentences.",
    "The second goes on.",
    "The third ends it.",
    "End of text",
)


class ReadingOn(EndToEndTest):
    def begin(self):
        corvane = self.start(
            settings={"Corvane": {"Speech": "True"}, "pnlBrowser": {"SideBar": "0", "Focus": "0"}}
        )
        self.read("/tale.html")
        self.said("A tale")
        return corvane

    def events(self):
        return self.corvane.transcript.events()

    def test_page_is_read_to_its_end_with_one_key(self):
        corvane = self.begin()
        corvane.transcript.mark()
        corvane.keys("F7")
        self.said(*TALE)
        self.assertEqual(corvane.transcript.spoken(), list(TALE))
        wait_until(lambda: self.events()[-1]["event"] == "end", "the end of the last words")
        ids = [e["id"] for e in self.events() if e["event"] == "speak"][-len(TALE):]
        cut = [e["id"] for e in self.events() if e["event"] == "cut"]
        self.assertFalse(set(ids) & set(cut), "no piece cuts off another")

    def test_control_silences_and_the_key_goes_on_from_there(self):
        corvane = self.begin()
        corvane.focus("Text")
        corvane.transcript.mark()
        corvane.keys("F7")
        self.said(*TALE[:3])
        corvane.keys("Control_L")
        wait_until(lambda: self.events()[-1]["event"] == "cut", "silence")
        self.assertEqual(corvane.transcript.spoken(), list(TALE[:3]))
        corvane.transcript.mark()
        corvane.keys("F7")
        self.said(*TALE[2:])
        self.assertEqual(corvane.transcript.spoken(), list(TALE[2:]))


if __name__ == "__main__":
    unittest.main()
