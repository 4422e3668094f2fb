"""Pages of today's forms, with buttons, field sets and objects, by ear alone."""
import time
import unittest

import harness
from harness import EndToEndTest, wait_until

BOX = "ResetStructure Error: Object variable or With block variable not set. OK Button"
PAGES = 30
HEARD_OUT = 5  # pages of which every word is waited for; of the others the title
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

    def heard(self, text):
        """Waits until what was said is over and returns its numbers, and how each ended."""

        def ends():
            events = self.corvane.transcript.events()
            said = [e["id"] for e in events if e.get("text") == text]
            return {e["id"]: e["event"] for e in events if e["id"] in said and e["event"] in ("end", "cut")}

        wait_until(ends, f"the end of {text}")
        return ends()

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
                "text, First",
                f"group, Set {number}",
                "text, Inner",
                f"button, Press {number}",
                "object, A picture",
                "text, Second, x",
                "submit, Send",
            ])
        self.assertNotIn(BOX, [e.get("text") for e in corvane.transcript.events()])

    def test_in_the_established_manner_the_box_comes_first_and_then_the_whole_reading(self):
        corvane = self.start(settings=harness.ESTABLISHED)
        for number in range(PAGES):
            self.go(f"/forms/{number}")
            self.said(BOX)
            time.sleep(0.5)
            self.assertEqual(self.spoken()[-1], BOX, "nothing is said over it")
            self.assertNotIn("Extracting Links ...", self.spoken())
            corvane.transcript.mark()
            corvane.keys("Return")
            self.said("Extracting Links ...", "Done", f"Forms {number}")
            if number < HEARD_OUT:
                self.quiet()
            self.assertEqual(list(self.heard(f"Forms {number}").values()), ["end"], "in full")
            behind = self.spoken()[self.spoken().index(f"Forms {number}") + 1:]
            self.assertLessEqual(set(behind), {"HTML_Internet Explorer document Sidebar Item"},
                                 "and behind it where the focus is")
        self.quiet()
        texts = [e.get("text", "") for e in corvane.transcript.events()]
        self.assertEqual([text for text in texts if text.startswith("Forms ")],
                         [f"Forms {number}" for number in range(PAGES)], "each title is said once")


if __name__ == "__main__":
    unittest.main()
