"""What the tests of ugly pages share."""
import pathlib

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


class FilesTest(PageTest):
    """Pages whose files come to a folder of the user's that the test looks into."""

    def setUp(self):
        super().setUp()
        self.folder = pathlib.Path(self.home) / "Downloads"
        config = pathlib.Path(self.home) / "config"
        config.mkdir()
        (config / "user-dirs.dirs").write_text(f'XDG_DOWNLOAD_DIR="{self.folder}"\n')

    def heard_that(self, fits, what="a sentence"):
        spoken = self.corvane.transcript.spoken
        return wait_until(lambda: next((said for said in spoken() if fits(said)), None), what)

    def heard(self, beginning):
        """Waits for a sentence of which only the beginning is known."""
        return self.heard_that(lambda said: said.startswith(beginning), beginning)
