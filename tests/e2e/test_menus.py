"""Every item of the menus, reached with keys alone, and what it does."""
import pathlib
import time

from harness import ESTABLISHED, Atspi, EndToEndTest, wait_until

BAR = ("File", "Edit", "Go", "Settings", "View", "Speech", "Help")
QUIET = {"Corvane": {"Speech": "True"}, "pnlBrowser": {"Focus": "5", "Home": "3", "SideBar": "2"}}


class Menus(EndToEndTest):
    """`menu(title, downs)` goes to an item of a menu of the bar by so many presses
    of Down; separators are passed over."""

    def start(self, settings=None, **more):
        return super().start(settings or QUIET, **more)

    def open_menu(self, title):
        """Opens a menu of the bar, its first item chosen."""
        self.corvane.keys("alt+f", *["Right"] * BAR.index(title))

    def menu(self, title, downs, *more):
        self.open_menu(title)
        self.corvane.keys(*["Down"] * downs, *more, "Return")
        time.sleep(0.5)  # the menu is gone before the next key

    def windows(self, name="Corvane"):
        return self.corvane.window_names().count(name)

    def wait_for_window(self, name, count=1):
        wait_until(lambda: self.windows(name) == count, f"{count} windows {name}: {self.corvane.window_names()}")

    def page(self, path="/start.html", title="The local news"):
        self.corvane.transcript.mark()
        self.corvane.keys("ctrl+l")
        wait_until(lambda: self.corvane.focused_name() == "Address", "the address box")
        self.corvane.keys("ctrl+a")
        self.corvane.type(self.base + path)
        self.corvane.keys("Return")
        self.said(title)

    # File ---------------------------------------------------------------------
    def test_new_window_has_its_own_speech_and_outlives_the_first(self):
        corvane = self.start()
        self.menu("File", 0)
        self.wait_for_window("Corvane", 2)
        self.menu("Speech", 0)  # off in the second
        wait_until(lambda: "Speech=False" in corvane.settings("Corvane"), "speech off")
        corvane.transcript.mark()
        corvane.keys("ctrl+l", "F6")
        time.sleep(0.5)
        self.assertEqual(corvane.transcript.spoken(), [])
        corvane.keys("alt+F4")
        self.wait_for_window("Corvane", 1)
        corvane.transcript.mark()
        self.page()  # heard: the first has its own speech
        corvane.keys("ctrl+n")
        self.wait_for_window("Corvane", 2)
        self.menu("File", 5)  # Exit
        self.wait_for_window("Corvane", 1)
        self.assertIsNone(corvane.process.poll())
        corvane.keys("ctrl+w")
        self.assertEqual(corvane.process.wait(60), 0)

    def test_open_web_site_leads_to_an_empty_address_box(self):
        corvane = self.start()
        self.page()
        corvane.transcript.mark()
        self.menu("File", 1)
        self.said(" Address Box")
        wait_until(lambda: corvane.focused_name() == "Address", "the address box")
        self.assertEqual(corvane.text_of("Address"), "")

    def test_open_file_is_spoken_and_opens_the_file(self):
        corvane = self.start()
        page = pathlib.Path(self.home) / "my page.html"
        page.write_text("<title>From a file</title><p>Hello file")
        corvane.transcript.mark()
        self.menu("File", 2)
        wait_until(
            lambda: any(text.startswith("Open. Folder ") for text in corvane.transcript.spoken()),
            "the dialog's own words",
        )
        corvane.type(str(page))
        time.sleep(0.5)
        corvane.keys("Return")
        self.said("From a file")
        self.assertIn("Hello file", corvane.text_of("Text"))

    def test_open_file_takes_any_name(self):
        folder = pathlib.Path(self.home) / "pages"
        folder.mkdir()
        (folder / "100%25 \"quoted\"\n'lines' .html").write_text("<title>Oddly named</title><p>Hello")
        corvane = self.start(folder=folder)
        corvane.keys("ctrl+o")
        wait_until(
            lambda: any("100%25" in text for text in corvane.transcript.spoken()), "the file, which is the only one"
        )
        corvane.keys("Return")
        self.said("Oddly named")

    def test_open_file_refuses_a_name_that_is_no_text_aloud(self):
        folder = pathlib.Path(self.home) / "pages"
        folder.mkdir()
        with open(bytes(folder) + b"/no text \xff.html", "w") as page:
            page.write("<title>Unreachable</title>")
        corvane = self.start(folder=folder)
        corvane.keys("ctrl+o")
        wait_until(
            lambda: any("no text" in text for text in corvane.transcript.spoken()), "the file, which is the only one"
        )
        corvane.keys("Return")
        self.said("File cannot be opened")
        self.assertIn("bytes that are no text", corvane.text_of("Text"))

    def test_open_file_that_vanishes_is_told_and_the_dialog_stays(self):
        corvane = self.start()
        page = pathlib.Path(self.home) / "page.html"
        page.write_text("<title>Gone</title>")
        corvane.keys("ctrl+o")
        self.wait_for_window("Open")
        corvane.type(str(page))
        page.unlink()
        corvane.keys("Return")
        self.said("page.html was not found")
        self.wait_for_window("Open")
        corvane.keys("Escape")
        self.wait_for_window("Open", 0)

    def test_cancelling_open_file_changes_nothing(self):
        corvane = self.start()
        self.page()
        corvane.keys("ctrl+o")
        self.wait_for_window("Open")
        corvane.transcript.mark()
        corvane.keys("Escape")
        self.wait_for_window("Open", 0)
        self.assertEqual(corvane.text_of("Address"), self.base + "/start.html")
        self.assertNotIn("Working...", corvane.transcript.spoken())

    def test_dialogs_after_a_cancelled_open_file_leave_the_window(self):
        corvane = self.start()
        self.page()
        for _ in range(2):
            corvane.keys("ctrl+o")
            self.wait_for_window("Open")
            corvane.keys("Escape")
            self.wait_for_window("Open", 0)
            corvane.keys("ctrl+f")
            self.wait_for_window("Find in page")
            corvane.keys("Escape")
            self.wait_for_window("Find in page", 0)
        self.page("/weather.html", "The weather")
        self.assertIsNone(corvane.process.poll())

    def test_saved_page_opens_again_without_its_server(self):
        corvane = self.start(environment={"HOME": self.home})
        self.page()
        self.menu("File", 3)
        wait_until(lambda: "Save as" in corvane.window_names(), "the question where to")
        corvane.keys("Return")
        wait_until(lambda: list(pathlib.Path(self.home).rglob("The local news*.mhtml")), "the saved file")
        saved = list(pathlib.Path(self.home).rglob("The local news*.mhtml"))[0]
        wait_until(lambda: saved.stat().st_size > 500, "its content")
        self.page("/weather.html", "The weather")
        corvane.keys("ctrl+l")
        wait_until(lambda: corvane.focused_name() == "Address", "the address box")
        corvane.keys("ctrl+a")
        corvane.transcript.mark()
        corvane.type("file://" + str(saved).replace(" ", "%20"))
        corvane.keys("Return")
        self.said("The local news")

    def test_print_asks_in_a_dialog_that_escape_leaves(self):
        corvane = self.start()
        self.page()
        before = set(corvane.window_names())
        self.menu("File", 4)
        wait_until(lambda: set(corvane.window_names()) - before, "a print dialog")
        corvane.keys("Escape")
        wait_until(lambda: not set(corvane.window_names()) - before, "its end")

    # Leaving a menu -----------------------------------------------------------
    def test_escape_from_a_menu_tells_where_it_leads(self):
        corvane = self.start()
        self.page()
        for place, keys in (
            ("Text Box", ["ctrl+l", "shift+F6"]),
            ("WebBrowser", ["ctrl+l", "shift+F6", "shift+F6"]),
            (f"{self.base}/start.html Address Box", ["ctrl+l"]),
        ):
            corvane.transcript.mark()
            corvane.keys(*keys)
            self.said(place)
            corvane.transcript.mark()
            corvane.keys("alt+f", "Down", "Escape")
            self.said("File", "New Window", "Open Web Site", place)

    def test_what_was_chosen_in_a_menu_is_not_followed_by_the_place_behind_it(self):
        corvane = self.start()
        self.page()
        corvane.transcript.mark()
        corvane.keys("alt+v", "Down", "Return", "alt+e")
        self.said("View", "Toolbar checked", "Statusbar checked", "Edit")
        self.assertNotIn("Text Box", corvane.transcript.spoken())

    # Edit ---------------------------------------------------------------------
    def test_edit_works_on_the_text_pane_and_the_clipboard(self):
        corvane = self.start()
        self.page()
        self.menu("Edit", 3)  # Select All
        wait_until(lambda: corvane.focused_name() == "Text", "the text pane")
        before = corvane.text_of("Text")
        self.menu("Edit", 1)  # Copy
        time.sleep(0.3)
        self.menu("Edit", 0)  # Cut
        wait_until(lambda: corvane.text_of("Text") == "", "an empty text pane")
        self.menu("Edit", 2)  # Paste
        wait_until(lambda: corvane.text_of("Text").strip() == before.strip(), "the text again")

    # Go -----------------------------------------------------------------------
    def test_every_menu_has_a_letter_and_no_letter_leaves_the_page(self):
        corvane = self.start()
        self.page()
        for letter, words in (("f", ["File", "New Window"]), ("e", ["Edit", "Cut"]), ("g", ["Go", "Back"]),
                              ("s", ["Settings", "Web Options"]), ("v", ["View", "Toolbar checked"]),
                              ("c", ["Speech", "Enable Speech checked"]), ("h", ["Help", "Contents"])):
            corvane.transcript.mark()
            corvane.keys("alt+" + letter)
            self.said(*words)
            corvane.keys("Escape")
        corvane.keys("ctrl+l")
        for letter in "bwtrhp":
            corvane.keys("alt+" + letter, "Escape", "Escape")
        corvane.transcript.mark()
        corvane.keys("ctrl+l", "F6", "shift+F6")
        self.said(self.base + "/start.html Address Box")
        self.assertNotIn("Working...", corvane.transcript.spoken())
        self.assertEqual(set(corvane.window_names()) - {"Genie"}, {"Corvane"})  # no print dialog

    def test_alt_g_opens_go_every_time_and_settings_when_pressed_again(self):
        corvane = self.start(settings={**QUIET, **ESTABLISHED})
        for _ in range(3):
            corvane.transcript.mark()
            corvane.keys("alt+g")
            self.said("Go", "Back")
            corvane.keys("Escape", "Escape")
        corvane.transcript.mark()
        corvane.keys("alt+g")
        self.said("Go", "Back")
        corvane.keys("alt+g")
        self.said("Go", "Back", "Settings", "IE Settings")
        corvane.keys("alt+g")
        self.said("Go", "Back", "Settings", "IE Settings", "Go", "Back")
        corvane.keys("Escape", "Escape")

    def test_go_menu_is_the_toolbar(self):
        corvane = self.start()
        self.page()
        self.page("/weather.html", "The weather")
        for downs, title in ((0, "The local news"), (1, "The weather"), (3, "The weather")):
            corvane.transcript.mark()
            self.menu("Go", downs)
            self.said(title)
        self.menu("Go", 2)  # Stop
        corvane.transcript.mark()
        self.menu("Go", 5)  # Search
        self.said("Search  Address Box")
        self.assertEqual(corvane.text_of("Address"), "Search ")
        corvane.transcript.mark()
        self.menu("Go", 4)  # Home
        self.said("Corvane home page")

    def test_keys_do_the_same_wherever_the_focus_is(self):
        corvane = self.start()
        self.page()
        self.page("/weather.html", "The weather")
        for key, title in (
            ("alt+Left", "The local news"),
            ("alt+Right", "The weather"),
            ("F5", "The weather"),
        ):
            corvane.transcript.mark()
            corvane.keys(key)
            self.said(title)

    def test_f6_goes_round_the_areas_and_each_says_itself(self):
        corvane = self.start(settings={**QUIET, "pnlBrowser": {"Focus": "0", "Home": "3", "SideBar": "0"}})
        self.page()
        corvane.keys("ctrl+l")
        wait_until(lambda: corvane.focused_name() == "Address", "the address box")
        for words in ("Back Button", "WebBrowser", "Text Box"):
            corvane.transcript.mark()
            corvane.keys("F6")
            self.said(words)
        corvane.transcript.mark()
        corvane.keys("F6")
        self.said(self.base + "/start.html Address Box")
        corvane.transcript.mark()
        corvane.keys("shift+F6")
        self.said("Text Box")

    # Settings -----------------------------------------------------------------
    def test_engine_settings_are_spoken_stored_and_hold_at_once(self):
        corvane = self.start()
        corvane.transcript.mark()
        self.menu("Settings", 0)
        self.said("Web options. Start page, edit box, corvane://home/cv/")
        corvane.type(self.base + "/weather.html")
        corvane.keys("alt+z", "Down")
        self.said("110 percent, 5 of 11")
        corvane.keys("Return")
        self.wait_for_window("Web options", 0)
        wait_until(lambda: "Zoom=110" in corvane.settings("Corvane"), "the stored zoom")
        # "Use Start Page of Web Options" goes there.
        self.open_menu("Settings")
        corvane.keys("h", "Down", "Return")
        wait_until(lambda: "Home=2" in corvane.settings("pnlBrowser"), "the stored choice")
        corvane.transcript.mark()
        self.menu("Go", 4)
        self.said("The weather")

    def test_choices_of_settings_are_stored(self):
        corvane = self.start()
        for submenu, downs, stored in (
            ("b", 0, "SideBar=0"),
            ("b", 1, "SideBar=2"),
            ("b", 2, "SideBar=3"),
            ("b", 3, "SideBar=4"),
            ("b", 4, "SideBar=5"),
            ("t", 1, "TextHistory=1"),
            ("t", 0, "TextHistory=0"),
            ("h", 0, "Home=0"),
            ("h", 1, "Home=2"),
            ("h", 3, "Home=4"),
            ("h", 2, "Home=3"),
            ("f", 0, "Focus=0"),
            ("f", 1, "Focus=2"),
            ("f", 2, "Focus=3"),
            ("f", 3, "Focus=4"),
            ("f", 4, "Focus=5"),
        ):
            self.open_menu("Settings")
            corvane.keys(submenu, *["Down"] * downs, "Return")
            wait_until(lambda: stored in corvane.settings("pnlBrowser"), stored)
        self.menu("Settings", 5)
        wait_until(lambda: "StatusChange=True" in corvane.settings("Corvane"), "status feedback")

    # View ---------------------------------------------------------------------
    def test_view_hides_and_shows_toolbar_and_statusbar(self):
        corvane = self.start()

        def shown(name):
            return any(
                node.get_name() == name and node.get_state_set().contains(Atspi.StateType.SHOWING)
                for node in corvane.accessibles()
                if node.get_role() == Atspi.Role.PUSH_BUTTON
            )

        self.assertTrue(shown("Back"))
        self.menu("View", 0)
        wait_until(lambda: not shown("Back"), "a hidden toolbar")
        self.menu("View", 0)
        wait_until(lambda: shown("Back"), "the toolbar again")

        def bars():
            return [
                n
                for n in corvane.accessibles()
                if n.get_role() == Atspi.Role.STATUS_BAR and n.get_state_set().contains(Atspi.StateType.SHOWING)
            ]

        self.assertTrue(bars())
        self.menu("View", 1)
        wait_until(lambda: not bars(), "a hidden status bar")
        self.menu("View", 1)
        wait_until(bars, "the status bar again")

    # Speech -------------------------------------------------------------------
    def heard_address(self):
        self.corvane.keys("F6", "ctrl+l")
        time.sleep(0.5)
        return any(text.endswith("Address Box") for text in self.corvane.transcript.spoken())

    def test_speech_is_switched_off_and_on_and_sounds_as_before(self):
        corvane = self.start(settings={**QUIET, "Corvane": {"Speech": "True", "Rate": "4", "Pitch": "0"}})
        self.menu("Speech", 0)
        wait_until(lambda: "Speech=False" in corvane.settings("Corvane"), "speech off")
        corvane.transcript.mark()
        corvane.keys("F6", "F6")
        time.sleep(0.5)
        self.assertEqual(corvane.transcript.spoken(), [])
        self.menu("Speech", 0)
        self.said("Hello, welcome to Corvane 2000")
        corvane.transcript.mark()
        wait_until(lambda: self.heard_address(), "speech that is ready")
        spoken = [e for e in corvane.transcript.events() if e["event"] == "speak"]
        self.assertEqual((spoken[-1]["speed"], spoken[-1]["pitch"]), (250, 50))
        self.menu("Speech", 1)
        wait_until(lambda: "KeyEcho=True" in corvane.settings("Corvane"), "the echo")

    def test_rate_and_pitch_are_heard_and_stored(self):
        corvane = self.start()
        self.open_menu("Speech")
        corvane.keys("Down", "Down", "Right", "Down", "Down", "Down", "Return")
        wait_until(lambda: "Rate=3" in corvane.settings("Corvane"), "the rate")
        self.open_menu("Speech")
        corvane.keys("p", "Return")
        wait_until(lambda: "Pitch=0" in corvane.settings("Corvane"), "the pitch")
        corvane.keys("ctrl+l")
        wait_until(
            lambda: any(
                e["event"] == "speak" and e["speed"] == 200 and e["pitch"] == 50
                for e in corvane.transcript.events()
            ),
            "the new sound",
        )

    # Help ---------------------------------------------------------------------
    def test_help_contents_are_read_in_the_side_bar(self):
        corvane = self.start()
        corvane.transcript.mark()
        self.menu("Help", 0)
        wait_until(lambda: corvane.focused_name() == "Sidebar", "the side bar")
        corvane.keys("Down")
        self.said("About this help Sidebar Item", "Starting Closed")

    def test_about_box_reads_itself_once(self):
        corvane = self.start()
        corvane.transcript.mark()
        self.menu("Help", 1)
        self.wait_for_window("About Corvane 2000")
        wait_until(
            lambda: any(text.endswith("O.K. button") for text in corvane.transcript.spoken()), "the whole box"
        )
        read = [text for text in corvane.transcript.spoken() if text.endswith("O.K. button")]
        self.assertEqual(len(read), 1)
        self.assertEqual(read[0].split("\r\n")[0], "Corvane 2000")
        corvane.transcript.mark()
        corvane.keys("Tab")
        self.said("Corvane 2000")
        corvane.keys("shift+Tab")
        self.said("OK")
        corvane.keys("Return")
        self.wait_for_window("About Corvane 2000", 0)
        self.menu("Help", 1)
        self.wait_for_window("About Corvane 2000")
        corvane.keys("Escape")
        self.wait_for_window("About Corvane 2000", 0)
        self.assertIsNone(corvane.process.poll())
