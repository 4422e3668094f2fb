"""Pages of today's forms, with buttons, field sets and objects, by ear alone."""
import time
import unittest

import harness
from harness import EndToEndTest, wait_until

BOX = "ResetStructure Error: Object variable or With block variable not set. OK Button"
PAGES = 30
FIELDS = 7  # of a page, see web_server.Handler.page_forms


class Forms(EndToEndTest):
    def spoken(self):
        return [text for text in self.corvane.transcript.spoken() if text != "Working..."]

    def quiet(self):
        """Waits until all that was said has ended and nothing follows."""

        def unended():
            events = self.corvane.transcript.events()
            over = {e["id"] for e in events if e["event"] in ("end", "cut")}
            return {e["id"] for e in events if e["event"] == "speak"} - over

        wait_until(lambda: not unended(), "quiet")
        time.sleep(0.1)
        wait_until(lambda: not unended(), "quiet")

    def go(self, path):
        self.corvane.keys("ctrl+l", "ctrl+a")
        self.corvane.type(self.base + path)
        self.corvane.transcript.mark()
        self.corvane.keys("Return")

    def into_the_page(self):
        for _ in range(6):
            said = len(self.spoken())
            self.corvane.keys("F6")
            wait_until(lambda: len(self.spoken()) > said, "a place")
            if "WebBrowser" in self.spoken()[said:]:
                return
        self.fail(f"F6 never led into the page: {self.spoken()}")

    def test_every_field_of_thirty_pages_is_announced_and_no_box_comes(self):
        corvane = self.start()
        for number in range(PAGES):
            self.go(f"/forms/{number}")
            self.said("Done", f"Forms {number}")
            self.into_the_page()
            before = len(self.spoken())
            corvane.keys(*["Tab"] * FIELDS)
            wait_until(lambda: len(self.spoken()) >= before + FIELDS, "every field")
            self.assertEqual(self.spoken()[before:], [
                f"text, first{number}, First, ",
                f"group, Set {number}",
                "text, inner, Inner, ",
                f"button, Press {number}",
                "object, A picture",
                f"text, second{number}, Second, x",
                "submit, Send",
            ])
        self.assertNotIn(BOX, [e.get("text") for e in corvane.transcript.events()])

    def test_in_the_established_manner_the_box_comes_first_and_then_the_whole_reading(self):
        corvane = self.start(settings=harness.ESTABLISHED)
        for number in range(5):
            self.go(f"/forms/{number}")
            self.said(BOX)
            time.sleep(0.5)
            self.assertEqual(self.spoken()[-1], BOX, "nothing is said over it")
            self.assertNotIn("Extracting Links ...", self.spoken())
            corvane.transcript.mark()
            corvane.keys("Return")
            self.said("Extracting Links ...", "Done", f"Forms {number}")
            self.quiet()
            events = corvane.transcript.events()
            titles = [e["id"] for e in events if e.get("text") == f"Forms {number}"]
            self.assertEqual(len(titles), 1, "the title is said once")
            self.assertIn({"event": "end", "id": titles[0]},
                          [{"event": e["event"], "id": e["id"]} for e in events], "and in full")
            behind = self.spoken()[self.spoken().index(f"Forms {number}") + 1:]
            self.assertLessEqual(set(behind), {"HTML_Internet Explorer document Sidebar Item"},
                                 "and behind it where the focus is")


if __name__ == "__main__":
    unittest.main()
