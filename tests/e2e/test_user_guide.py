"""The user guide followed from its beginning to its end, by someone who reads it for
the first time and only hears: what it promises is heard."""
import pathlib
import subprocess
import unittest

import web_server
from ear_user import EarUser, menu
from harness import PROGRAM, EndToEndTest, wait_until

READING = ("Done", "Extracting Forms ...", "Extracting Links ...")


class UserGuide(EndToEndTest):
    """The settings are those of a first start."""

    def begin(self, **environment):
        folder = pathlib.Path(self.home) / "config"
        folder.mkdir(exist_ok=True)
        (folder / "user-dirs.dirs").write_text(f'XDG_DOWNLOAD_DIR="{self.home}/Downloads"\n')
        corvane = self.start(environment={"HOME": self.home, **environment})
        self.user = EarUser(corvane, self.base)
        return corvane

    def hears(self, key, *texts):
        """Presses a key and hears these texts, in their order."""
        self.corvane.transcript.mark()
        self.corvane.keys(key)
        self.said(*texts)

    def press(self, key):
        """Presses a key and returns what is said to its end: what is cut off nobody
        has heard."""
        transcript = self.corvane.transcript
        start = len(transcript.events())
        self.corvane.keys(key)

        def ended():
            events = transcript.events()[start:]
            spoken = [e for e in events if e["event"] == "speak"]
            over = {e["id"]: e["event"] for e in events if e["event"] in ("end", "cut")}
            if not spoken or spoken[-1]["id"] not in over:
                return None
            return [e["text"] for e in spoken if over.get(e["id"]) == "end"] or None

        return wait_until(ended, f"the end of what {key} says")

    def hears_only(self, key, *texts):
        """Presses a key and hears this to its end."""
        self.assertEqual(self.press(key), list(texts))

    def until(self, key, ending):
        """Presses a key until words with that ending are heard. Returns what was heard
        on the way."""
        way = []
        for _ in range(30):
            way += self.press(key)
            if way[-1].endswith(ending):
                return way
        self.fail(f"never heard {ending}, but {way}")

    def go(self, path, title):
        """Goes to a page as the guide says."""
        self.corvane.keys("ctrl+l")
        self.corvane.type(self.base + path)
        self.hears("Return", "Working...", *READING, title)

    # Going somewhere ------------------------------------------------------------

    def test_address_is_reached_with_tab_typed_and_opened(self):
        corvane = self.begin()
        self.until("Tab", " Address Box")
        corvane.transcript.mark()
        corvane.type(self.base + "/start.html")
        self.said("h", "t", "m", "l")
        self.hears("Return", self.base + "/start.html", "Working...", *READING, "Done", "The local news")
        self.assertEqual(corvane.text_of("Address"), self.base + "/start.html")
        last = [e for e in corvane.transcript.events() if e["event"] == "speak"][-1]
        wait_until(lambda: any(e["event"] == "end" and e["id"] == last["id"] for e in corvane.transcript.events()),
                   "the title to its end")

    def test_search_word_searches(self):
        corvane = self.begin()
        self.until("Tab", " Address Box")
        corvane.type("Search cats")
        self.hears("Return", "Search cats", "Working...", *READING, "Done", "Search for cats")

    def test_earlier_addresses_are_heard(self):
        self.begin()
        self.go("/start.html", "The local news")
        self.hears("ctrl+l", self.base + "/start.html Address Box")
        self.hears("ctrl+l", self.base + "/start.html Address Box")
        self.hears("Up", "https://www.mozilla.org/")
        self.hears("Down", self.base + "/start.html")

    def test_address_given_in_a_terminal_opens_a_window(self):
        corvane = self.begin()
        corvane.transcript.mark()
        subprocess.run([str(PROGRAM), self.base + "/weather.html"], check=True)
        self.said("The weather")
        wait_until(lambda: corvane.window_names().count("Corvane") == 2, "a second window")

    # Reading --------------------------------------------------------------------

    def test_text_is_read_by_arrows_and_on(self):
        corvane = self.begin()
        self.go("/tale.html", "A tale")
        self.until("Tab", "Text Box")
        self.hears_only("ctrl+Home", "A tale")
        self.hears_only("Right", "A")
        self.hears_only("Right", " ")
        self.hears_only("Left", " ")
        self.hears("ctrl+l", self.base + "/tale.html Address Box")
        self.hears("F7", "The first paragraph tells who it is about.", "It has two sentences.")
        corvane.keys("Control_L")
        self.user.wait_for_silence()
        self.hears("F7", "It has two sentences.", "The second goes on.", "The third ends it.")

    def test_links_are_walked_followed_and_loaded_again(self):
        self.begin()
        self.go("/start.html", "The local news")
        self.assertIn("3 Links in The local news Links List", self.until("Tab", " Links List"))
        self.hears_only("Down", "The weather")
        self.hears_only("Down", "All the sports")
        self.hears_only("Up", "The weather")
        self.hears_only("Up", "3 Links in The local news")
        self.hears("Return", "Working...", *READING, "Done", "The local news")
        self.until("Tab", " Links List")
        self.hears_only("Down", "The weather")
        self.hears("Return", "Working...", *READING, "Done", "The weather")

    def test_page_itself_says_what_tab_comes_to_and_what_changes(self):
        self.begin()
        self.go("/shop.html", "Shop")
        self.until("Tab", "WebBrowser")
        self.hears_only("Tab", "navigation, Shoes, link")
        self.hears("Return", "Working...", *READING, "Done", "Shop: Shoes")
        self.hears("alt+Left", *READING, "Done", "Shop")
        self.until("Tab", "WebBrowser")
        self.until("Tab", "Terms, link")
        self.hears_only("Return", "Terms and conditions")
        self.until("Tab", "button, More offers")
        self.hears_only("space", "The page has changed. F9 reads it again.")
        self.hears_only("Tab", "button, Menu, collapsed")
        self.hears("space", "expanded")
        self.hears("F9", *READING, "Done", "Shop")
        self.assertIn("Two for one", self.corvane.text_of("Text"))

    def test_tab_goes_round_everything_in_both_directions(self):
        self.begin()
        self.go("/weather.html", "The weather")
        round_trip = ["WebBrowser", "Back to the news, link", "Text Box", "Back Button",
                      self.base + "/weather.html Address Box", "HTML_Internet Explorer document Sidebar Item",
                      "1 Links in The weather Links List"]
        self.until("Tab", " Links List")
        self.assertEqual(self.until("Tab", " Links List"), round_trip)
        back = self.until("shift+Tab", " Links List")
        self.assertEqual([words for words in back if words not in round_trip], ["Print Button"])
        self.until("Tab", "Back Button")
        self.hears_only("Right", "Forward Button")
        self.hears_only("Left", "Back Button")
        self.hears("space", *READING, "Done", "Corvane home page")

    # Choosing how it works ------------------------------------------------------

    def test_menus_are_said_and_choices_kept(self):
        corvane = self.begin()
        self.hears_only("F10", "File")
        for title in ("Edit", "Go", "Settings", "View", "Speech", "Help"):
            self.hears_only("Right", title)
        corvane.keys("Escape")
        for title, key, first in (("Settings", "b", "None unchecked"), ("Settings", "t", "Clear with New Page checked"),
                                  ("Settings", "h", "None unchecked"), ("Settings", "f", "None unchecked")):
            corvane.transcript.mark()
            corvane.keys(*menu(title), key)
            self.user.hear(first)
            corvane.keys("Escape")
            self.user.wait_for_silence()
        corvane.transcript.mark()
        corvane.keys(*menu("Speech"), "Down", "Down", "Down")
        self.said("Enable Speech checked", "Enable Keyboard Echo unchecked", "Rate popup", "Pitch popup")
        corvane.keys("Escape")
        self.user.side_bar("history")
        self.go("/weather.html", "The weather")
        self.hears("ctrl+d", "The weather added to Favorites")
        config, data = (pathlib.Path(self.home) / folder / "corvane" for folder in ("config", "data"))
        self.assertIn("SideBar=3", (config / "pnlBrowser.ini").read_text())
        self.assertTrue((data / "Favorites/The weather.url").is_file())
        wait_until(lambda: list(data.glob("History/*/The weather.url")), "the page in the history")

    # Files ----------------------------------------------------------------------

    def test_file_is_asked_for_saved_and_listed(self):
        corvane = self.begin()
        corvane.keys("ctrl+l")
        corvane.type(self.base + "/file/data.zip")
        self.hears("Return",
                   "Download. Save a file from 127.0.0.1? Its size is 9 bytes. File name, edit box, data.zip")
        self.hears("Return", "Download begins: data.zip", "Download finished: data.zip is in Downloads")
        corvane.transcript.mark()
        corvane.keys("ctrl+j")
        self.user.hear("Downloads. ")
        self.assertIn("data.zip", " ".join(corvane.transcript.spoken()))
        self.until("Tab", "Open folder Button")

    def test_page_is_saved_and_opened_again(self):
        corvane = self.begin()
        self.go("/rhyme.html", "A rhyme")
        corvane.transcript.mark()
        corvane.keys(*menu("File"), "s")
        self.user.hear("Save as. Folder Downloads. ", "edit box, A rhyme.mhtml")
        path = f"{self.home}/Downloads/A rhyme.mhtml"
        self.hears("Return", f"Saved as {path}")
        corvane.keys("ctrl+l")
        corvane.type(path)
        self.hears("Return", *READING, "Done", "A rhyme")

    # When something goes wrong --------------------------------------------------

    def test_page_that_does_not_come_says_so_and_is_tried_again(self):
        self.begin()
        gone = web_server.start()
        gone.server_close()
        self.corvane.keys("ctrl+l")
        self.corvane.type(f"http://127.0.0.1:{gone.server_address[1]}/")
        self.hears("Return", *READING, "Done", "Connection refused: 127.0.0.1")
        self.hears("F5", *READING, "Done", "Connection refused: 127.0.0.1")

    def test_window_asks_before_it_leaves_a_page_and_closes_the_second_time(self):
        corvane = self.begin()
        self.go("/leave.html", "A page that is not left easily")
        self.until("Tab", "WebBrowser")
        corvane.keys("Tab")
        corvane.type("unsaved")
        corvane.transcript.mark()
        corvane.keys("alt+F4")
        self.user.hear("Leave this page? ", "Leave Button")
        self.hears("Tab", "Stay Button")
        corvane.keys("Return")
        wait_until(lambda: "Leave this page?" not in corvane.window_names(), "the end of the question")
        self.assertEqual(corvane.close(), 0)

    def test_what_is_printed_for_a_report_holds_nothing_typed_and_no_addresses(self):
        corvane = self.begin(CORVANE_LOG="debug")
        self.go("/form.html", "The order")
        self.until("Tab", "WebBrowser")
        corvane.keys("Tab", "ctrl+a")
        corvane.type("confidential")
        self.go("/page/secret-place", "Page secret-place")
        self.assertEqual(corvane.close(), 0)
        log = corvane.log_text()
        self.assertTrue(log)
        for word in ("confidential", "secret-place", self.base.removeprefix("http://")):
            self.assertNotIn(word, log)


if __name__ == "__main__":
    unittest.main()
