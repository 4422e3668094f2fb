"""The fields of the window by ear: what is heard right after arriving, while typing,
looking for an entry, moving a bar; and where the user is when a part is hidden."""
import time
import unittest

from ear_user import menu
from harness import EndToEndTest, wait_until

SETTINGS = {"Corvane": {"Speech": "True"}, "pnlBrowser": {"SideBar": "2", "Focus": "0", "Home": "3"}}
QUIET_TIME = 1  # seconds without a word, until all has been said


class Fields(EndToEndTest):
    def begin(self, path="/start.html", title="The local news", settings=None):
        corvane = self.start(settings=settings or SETTINGS)
        self.press(*"ctrl+l ctrl+a".split())
        corvane.type(self.base + path)
        self.heard_at(title, "Return")
        return corvane

    def press(self, *keys):
        """Presses keys and returns everything that is said of them."""
        transcript = self.corvane.transcript
        transcript.mark()
        self.corvane.keys(*keys)
        return self.all_said()

    def type(self, text):
        self.corvane.transcript.mark()
        self.corvane.type(text)
        return self.all_said()

    def all_said(self):
        """Waits for quiet."""
        events = self.corvane.transcript.events
        count, since = len(events()), time.monotonic()
        while time.monotonic() - since < QUIET_TIME:
            time.sleep(0.05)
            if len(events()) != count:
                count, since = len(events()), time.monotonic()
        return self.corvane.transcript.spoken()

    def heard_at(self, words, *keys):
        """Presses keys and waits for words, then for quiet."""
        self.corvane.transcript.mark()
        self.corvane.keys(*keys)
        self.said(words)
        return self.all_said()

    # What is typed --------------------------------------------------------------
    def test_the_first_character_is_heard_wherever_the_user_comes_from(self):
        self.begin()
        self.press("ctrl+l")
        self.assertEqual(self.type("abc"), ["a", "b", "c"])
        self.press("F6", "F6", "F6")
        self.assertEqual(self.press("ctrl+l"), [self.base + "/start.html Address Box"])
        self.assertEqual(self.type("e"), ["e"])
        self.assertEqual(self.type("x"), ["x"])
        self.heard_at("Search  Address Box", *menu("Go"), "e")
        self.assertEqual(self.type("x"), ["x"])

    def test_what_was_typed_is_taken_back(self):
        self.begin()
        self.press("ctrl+l")
        self.type("zz")
        address = self.base + "/start.html Address Box"
        self.assertEqual(self.press("Escape"), [address])
        self.assertEqual(self.type("y"), ["y"])
        self.press("F6")
        self.assertEqual(self.press("ctrl+l"), [address])

    def test_copying_an_address_is_no_typing(self):
        self.begin()
        self.press("ctrl+l", "ctrl+a")
        self.corvane.type(self.base + "/weather.html")
        self.heard_at("The weather", "Return")
        self.press("ctrl+l", "ctrl+c")
        self.heard_at("The local news", "alt+Left")
        self.press("F6")
        self.assertEqual(self.press("ctrl+l"), [self.base + "/start.html Address Box"])

    def test_what_is_deleted_is_said(self):
        self.begin()
        self.press("ctrl+l")
        self.assertEqual(self.type("a\\"), ["a", "backslash"])
        self.assertEqual(self.press("BackSpace"), ["backslash"])
        self.press("Home")
        self.assertEqual(self.press("Delete"), ["a"])
        self.assertEqual(self.press("Delete"), [])

    # What is looked for -----------------------------------------------------------
    def test_the_address_lists_entries_are_heard(self):
        self.begin()
        self.press("ctrl+l")
        self.assertEqual(self.press("F4"), [self.base + "/start.html"])
        self.assertEqual(self.press("Up"), ["https://www.mozilla.org/"])
        self.assertEqual(self.press("h"), ["corvane://home/cv/"])
        self.assertEqual(self.press("Escape"), [self.base + "/start.html Address Box"])
        self.assertEqual(self.press("F4"), [self.base + "/start.html"])
        self.assertEqual(self.press("h"), ["corvane://home/cv/"])
        self.assertEqual(self.press("Return"), ["corvane://home/cv/"], "said once, as it is chosen")
        self.assertEqual(self.type("x"), ["x"])
        self.assertEqual(self.press("BackSpace"), ["x"])
        self.assertEqual(self.heard_at("Corvane home page", "Return")[0], "corvane://home/cv/")

    def test_a_letter_finds_a_link(self):
        self.begin()
        links = self.press("ctrl+l", "F6", "F6", "F6")
        self.assertEqual(links[-1], "3 Links in The local news Links List")
        first = self.press("Down")
        self.press("Home")
        self.assertEqual(self.press(first[0][0].lower()), first if len(first) == 1 else None)
        down = self.press("Down")
        self.assertEqual(len(down), 1)
        self.assertEqual(self.press("Up"), first)
        self.assertEqual(self.press("x"), first, "who looks in vain hears where he is")

    # The bars --------------------------------------------------------------------
    def test_the_bars_say_their_names_and_places(self):
        corvane = self.begin()
        self.assertEqual(self.press("ctrl+l", "shift+F6")[-1], "Text Box")
        self.assertEqual(self.press("F8"), ["Splitter between left and right"])
        there = self.press("Right")
        back = self.press("Left")
        self.assertRegex(there[0], r"^\d+ percent$")
        self.assertNotEqual(there, back)
        self.assertEqual((len(there), len(back)), (1, 1))
        self.assertEqual(self.press("F8"), ["Splitter between top and bottom"])
        self.assertRegex(self.press("Down")[0], r"^\d+ percent$")
        self.assertEqual(self.press("Return"), ["Text Box"])
        self.press("ctrl+l")
        self.assertEqual(self.press("F8"), ["Splitter between left and right"])
        self.assertEqual(self.press("Return"), [self.base + "/start.html Address Box"])
        self.press("F6")
        self.assertEqual(self.press("shift+F8"), ["Splitter between top and bottom"])
        self.assertEqual(self.press("Escape"), ["Back Button"])
        self.press("shift+F6", "shift+F6")
        self.hide_side_bar()
        self.assertEqual(self.press("F8"), ["Splitter between top and bottom"])
        self.assertEqual(self.press("F8"), ["Text Box"])
        self.assertIsNone(corvane.process.poll())

    # What is hidden ---------------------------------------------------------------
    def hide_side_bar(self):
        """Settings, SideBar, None."""
        self.corvane.keys(*menu("Settings"), "b", "Return")
        wait_until(lambda: "SideBar=0" in self.corvane.settings("pnlBrowser"), "the stored choice")
        return self.all_said()

    def test_who_is_in_a_part_that_goes_is_led_on(self):
        self.begin()
        self.assertEqual(self.press("ctrl+l", "F6", "F6")[-1], "Favorites Sidebar Item")
        self.corvane.transcript.mark()
        self.assertEqual(self.hide_side_bar()[-1], "WebBrowser")

    def test_the_address_box_stays_in_hand_when_the_toolbar_goes(self):
        self.begin()
        address = self.base + "/start.html Address Box"
        self.assertEqual(self.press("ctrl+l"), [address])
        self.assertEqual(self.press(*menu("View"), "Return")[-1], address)
        self.assertEqual(self.type("zz"), ["z", "z"])
        self.assertEqual(self.press(*menu("View"), "Return")[-1], "zz Address Box")

    def test_no_page_leads_into_a_hidden_tree(self):
        settings = {**SETTINGS, "pnlBrowser": {"SideBar": "0", "Focus": "3", "Home": "3"}}
        self.begin(settings=settings)
        self.assertEqual(self.type("x"), ["x"], "the focus is in the address box still")

    # Places -----------------------------------------------------------------------
    def test_a_link_of_the_list_leads_to_its_place_in_the_page(self):
        self.begin("/places.html", "Places")
        self.press("ctrl+l", "F6", "F6", "F6")
        self.press("Down")
        self.assertEqual(self.press("Return"), ["All terms"])
        self.assertEqual(self.press("F6", "F6")[-1], "Text Box")
        self.assertEqual(self.press("Down"), ["blank"])
        self.assertEqual(self.press("Down"), ["The text of the terms"])

    def test_a_place_in_the_text_survives_what_is_announced(self):
        self.begin("/places.html", "Places")
        self.press("ctrl+l", "shift+F6")
        self.press("Down")
        self.press("Down")
        self.assertEqual(self.press("ctrl+plus"), ["110 percent"])
        self.assertEqual(self.press("ctrl+d"), ["Places added to Favorites"])
        self.assertEqual(self.press("Right"), ["Between the links and the terms"])
        self.assertEqual(self.press("Right"), ["B"])
        said = [self.press("Down")[0] for _ in range(2)]
        self.assertIn("blank", said)

    # The start page -----------------------------------------------------------------
    def test_a_problem_is_not_what_the_next_start_begins_with(self):
        settings = {**SETTINGS, "pnlBrowser": {"SideBar": "2", "Focus": "0", "Home": "4"}}
        corvane = self.begin(settings=settings)
        self.press("ctrl+l", "ctrl+a")
        corvane.type("two words")
        self.heard_at("Working...", "Return")
        corvane.close()
        self.assertIn(self.base + "/start.html", corvane.settings("pnlBrowser"))


if __name__ == "__main__":
    unittest.main()
