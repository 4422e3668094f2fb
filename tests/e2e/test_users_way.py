"""The main job, from the first start to the second, with keys alone."""
import re

from harness import EndToEndTest, wait_until


class UsersWay(EndToEndTest):
    def test_first_start_speaks_and_reads_the_home_page(self):
        corvane = self.start()
        spoken = corvane.transcript.spoken()
        self.assertEqual(spoken[0], "Hello, welcome to Corvane 2000")
        self.assertIn("Corvane", corvane.window_names())
        wait_until(lambda: "Corvane" in corvane.text_of("Text"), "the home page's text")

    def test_nothing_is_spoken_before_the_welcome_has_ended(self):
        corvane = self.start()
        events = corvane.transcript.events()
        welcome = events[0]["id"]
        ended = next(i for i, e in enumerate(events) if e["event"] == "end" and e["id"] == welcome)
        begun = [e["id"] for e in events[:ended] if e["event"] == "begin"]
        self.assertEqual(begun, [welcome], "what came meanwhile waits")

    def test_page_is_opened_and_read_in_the_words_that_stand(self):
        corvane = self.start(settings={"Corvane": {"Speech": "True"}, "pnlBrowser": {"SideBar": "2", "Focus": "0"}})
        corvane.focus("Address")
        corvane.keys("ctrl+a")
        corvane.type(self.base + "/start.html")
        self.said("m", "l")  # the echo of what was typed has ended
        corvane.transcript.mark()
        corvane.keys("Return")
        self.said("The local news")
        spoken = [text for text in corvane.transcript.spoken() if text != "Working..."]
        self.assertEqual(
            spoken,
            [
                self.base + "/start.html",
                "Done",
                "Extracting Forms ...",
                "Extracting Links ...",
                "3 Links in The local news",
                "Done",
                "The local news",
            ],
        )
        self.assertEqual(corvane.transcript.spoken().count("Working..."), 1)
        text = corvane.text_of("Text")
        self.assertTrue(text.startswith("The local news\n"), text)
        self.assertIn("Nothing much happened today in the village.", text)

    def test_link_is_found_followed_and_left_again(self):
        corvane = self.start()
        self.read("/start.html")
        corvane.focus("Links")
        self.said("3 Links in The local news Links List")
        corvane.transcript.mark()
        corvane.keys("Down", "Down", "Down")
        self.said("The weather", "All the sports", self.base + "/empty-link.html")
        corvane.keys("Up", "Up")
        corvane.transcript.mark()
        corvane.keys("Return")
        self.said("1 Links in The weather", "The weather")
        self.assertIn("Rain in the morning", corvane.text_of("Text"))
        self.assertEqual(corvane.text_of("Address"), self.base + "/weather.html")

        corvane.transcript.mark()
        corvane.button("Back")
        self.said("3 Links in The local news", "The local news")

    def test_header_of_the_links_list_loads_the_page_again(self):
        corvane = self.start()
        self.read("/weather.html")
        corvane.focus("Links")
        corvane.transcript.mark()
        corvane.keys("shift+Return")
        corvane.keys("Return")
        self.said("1 Links in The weather", "The weather")
        self.assertEqual(corvane.transcript.spoken().count("Done"), 2)

    def test_search_goes_to_the_search_page(self):
        corvane = self.start(settings={"Corvane": {"Speech": "True", "SearchService": ""}})
        corvane.transcript.mark()
        corvane.open('search cats "a+b"')
        self.said("Extracting Links ...", "Done")
        wait_until(lambda: "cats" in corvane.text_of("Text"), "the words searched")
        self.assertIn(
            "/cgi-bin/query?pg=q&text=yes&kl=XX&q=+cats+%22a%2Bb%22", corvane.text_of("Address")
        )

    def test_every_area_is_reached_with_tab_and_announced(self):
        corvane = self.start()
        self.read("/start.html")
        corvane.focus("Address")
        reached = []
        for _ in range(24):
            corvane.move("Tab")
            reached.append(corvane.focused_name())
        for name in ["Address", "Sidebar", "Links", "Text", "Back"]:
            self.assertIn(name, reached)
        corvane.focus("Back")
        corvane.keys("Right", "Right", "Right", "Right", "Right", "Right")
        self.said("Forward Button", "Stop Button", "Refresh Button", "Home Button", "Search Button", "Print Button")
        spoken = corvane.transcript.spoken()
        for words in [" Address Box", " Links List", "Back Button", "Text Box", "WebBrowser"]:
            self.assertTrue(any(text.endswith(words) for text in spoken), words)

    def test_choices_and_window_are_kept_for_the_next_start(self):
        corvane = self.start()
        self.choose(corvane, "pnlBrowser", "TextHistory=1", "alt+e", "Right", "Right", "t", "Down", "Return")
        self.choose(corvane, "pnlBrowser", "Home=4", "alt+e", "Right", "Right", "h", "Down", "Down", "Down", "Return")
        self.choose(corvane, "pnlBrowser", "Focus=5", "alt+e", "Right", "Right", "f", "Up", "Return")
        self.choose(corvane, "Corvane", "Rate=3", "alt+c", "Up", "Up", "Right", "Down", "Down", "Down", "Return")
        self.choose(corvane, "Corvane", "Pitch=3", "alt+c", "p", "Down", "Down", "Down", "Return")
        self.read("/weather.html")
        self.assertEqual(corvane.close(), 0)

        pane, main = corvane.settings("pnlBrowser"), corvane.settings("Corvane")
        for line in ["TextHistory=1", "Home=4", "Focus=5", f"StartingAddress={self.base}/weather.html"]:
            self.assertIn(line, pane)
        for line in ["Rate=3", "Pitch=3"]:
            self.assertIn(line, main)
        geometry = dict(re.findall(r"(Main\w+)=(\S+)", main))
        self.assertEqual(set(geometry), {"MainLeft", "MainTop", "MainWidth", "MainHeight"})

        again = self.start(wait=False)
        self.said("The weather")
        wait_until(lambda: again.focused_name() == "Text", "the focus in the text pane")
        last = [event for event in again.transcript.events() if event["event"] == "speak"][-1]
        self.assertEqual((last["speed"], last["pitch"]), (200, 110))
        self.assertEqual(again.close(), 0)
        self.assertEqual(dict(re.findall(r"(Main\w+)=(\S+)", again.settings("Corvane"))), geometry)

    def choose(self, corvane, application, stored, *keys):
        """Walks the menus with keys until the choice is stored."""
        corvane.press_and_hear(*keys[:-1])
        corvane.keys(keys[-1])
        wait_until(lambda: stored in corvane.settings(application), stored, patience=10)

    def test_speech_switched_off_is_silent_and_on_again_speaks(self):
        corvane = self.start()
        corvane.keys("alt+c", "Return")  # Enable Speech is the first item
        wait_until(lambda: "Speech=False" in corvane.settings("Corvane"), "speech switched off")
        corvane.transcript.mark()
        corvane.open(self.base + "/weather.html")
        wait_until(lambda: "Rain in the morning" in corvane.text_of("Text"), "the page's text")
        self.assertEqual(corvane.transcript.spoken(), [])
        corvane.keys("alt+c", "Return")
        self.said("Hello, welcome to Corvane 2000")

    def test_stop_ends_a_page_that_stalls(self):
        corvane = self.start()
        corvane.transcript.mark()
        corvane.open(self.base + "/stall")
        self.said("Working...", "Working...")  # it keeps the user informed
        corvane.transcript.mark()
        corvane.button("Stop")
        self.said("Done", "Extracting Links ...", "Done")
        wait_until(lambda: "The rest never comes" in corvane.text_of("Text"), "the half page")

    def test_typing_goes_on_when_a_page_completes(self):
        corvane = self.start()
        corvane.transcript.mark()
        self.server.gate.clear()
        self.addCleanup(self.server.gate.set)
        corvane.open(self.base + "/gated")
        self.said("Working...")
        corvane.keys("ctrl+a")
        corvane.type(self.base[7:] + "/start")
        self.server.gate.set()
        self.said("Extracting Links ...", "Done", "Worth the wait")
        corvane.type(".html")
        corvane.keys("Return")
        self.said("Worth the wait", ".", "h", "t", "m", "l", self.base[7:] + "/start.html")
        self.said("Extracting Links ...", "Done", "The local news")
