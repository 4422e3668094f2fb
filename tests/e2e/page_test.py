"""What the tests of ugly pages share."""
from harness import EndToEndTest, wait_until

QUIET = {"Corvane": {"Speech": "True"}, "pnlBrowser": {"SideBar": "2", "Focus": "0"}}


class PageTest(EndToEndTest):
    """Opens pages and hears their titles."""

    def opened(self, address):
        """Opens an address and returns the title that was spoken last."""
        corvane = self.corvane or self.start(settings=QUIET)
        corvane.transcript.mark()
        corvane.open(address)
        self.said("Extracting Links ...", "Done")
        return wait_until(lambda: self.title(), "a title")

    def title(self):
        spoken = self.corvane.transcript.spoken()
        last_done = len(spoken) - 1 - spoken[::-1].index("Done")
        return spoken[last_done + 1] if len(spoken) > last_done + 1 else None

    def text(self):
        return self.corvane.text_of("Text")

    def assert_alive(self):
        self.assertIsNone(self.corvane.process.poll())
        self.assertEqual(self.opened(self.base + "/weather.html"), "The weather")
