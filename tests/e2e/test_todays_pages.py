"""Widgets of today's pages, by keys alone: all that is said at each step."""
import time
import unittest

from ear_user import EarUser
from harness import EndToEndTest

# Walks by more keys than can be heard one by one, to a place that is not the last.
FAST_WALKS = {
    "listbox-single": ["Tab", *["Down"] * 12, *["Up"] * 2],
    "menu-bar": ["Tab", "Down", *["Down"] * 7, "Up"],
    "radio-roving": ["Tab", *["Down"] * 4],
    "slider": ["Tab", *["Right"] * 20],
    "tabs-automatic": ["Tab", *["Right"] * 10],
    "tree-files": ["Tab", "Right", *["Down"] * 5, "Up"],
    "grid-data": ["Tab", *["Right", "Down"] * 3],
    "combobox-select-only": ["Tab", "Down", *["Down"] * 6, "Up"],
}
TODAY = {"Corvane": {"Speech": "True"}, "pnlBrowser": {"SideBar": "0", "Focus": "0"}}


class TodaysPages(EndToEndTest):
    def walk(self, page, title, *steps):
        """Opens a page, goes into it and compares what is said at each step: its keys,
        and the words."""
        corvane = self.start(settings=TODAY)
        self.read(f"/patterns/{page}.html")
        self.said(title)
        corvane.focus("Address")
        corvane.transcript.mark()
        corvane.keys("Tab")
        self.said("WebBrowser")
        for keys, *words in steps:
            corvane.transcript.mark()
            corvane.keys(*keys.split())
            if words:
                self.said(*words)
            time.sleep(0.3)  # nothing more may follow
            self.assertEqual(corvane.transcript.spoken(), words, keys)

    def test_tabs_say_which_is_chosen_and_where(self):
        self.walk("tabs-automatic", "Tabs: the swimming pool",
                  ("Tab", "The swimming pool, tab list, tab, Hours, selected, 1 of 3"),
                  ("Right", "tab, Lessons, selected, 2 of 3"),
                  ("End", "tab, Sauna, selected, 3 of 3"),
                  ("Tab", "tab panel, Sauna"))

    def end_of_walk(self, page, keys, press):
        """What was said last when all is quiet behind the keys."""
        corvane = self.corvane
        ear = EarUser(corvane, self.base)
        corvane.transcript.mark()
        ear.go(f"/patterns/{page}.html")
        self.said("Extracting Links ...", "Done")
        ear.wait_for_silence()
        ear.enter_page()
        ear.wait_for_silence()
        corvane.transcript.mark()
        press(*keys)
        ear.wait_for_silence()
        words = corvane.transcript.spoken()
        self.assertGreater(len(words), 0, page)
        return words[-1]

    def test_last_words_of_a_fast_walk_are_those_of_a_slow_one(self):
        self.start(settings=TODAY)

        def one_by_one(*keys):
            for key in keys:
                self.corvane.keys(key)
                time.sleep(0.4)

        for page, keys in FAST_WALKS.items():
            with self.subTest(page):
                slow = self.end_of_walk(page, keys, one_by_one)
                fast = self.end_of_walk(page, keys, self.corvane.keys)
                self.assertEqual(fast, slow)

    def test_list_of_a_combo_box_is_walked_and_left(self):
        self.walk("combobox-list", "Combo box: where to travel",
                  ("Tab", "combo box, Town, collapsed"),
                  ("b", "expanded", "b"),
                  ("Down", "Towns, list box, option, Bergen, selected, 1 of 4"),
                  ("Down", "option, Berlin, selected, 2 of 4"),
                  ("Return", "collapsed, Berlin"),
                  ("Escape", "blank"))

    def test_changes_of_what_has_the_focus_are_said_once(self):
        self.walk("slider", "Slider: how loud",
                  ("Tab", "slider, Loudness, 40"),
                  ("Right", "41"),
                  ("Home", "0"))

    def test_list_of_a_select_is_heard_as_it_is_walked(self):
        self.walk("select", "Select: a journey by ship",
                  ("Tab", "select-one, Harbour, Gdansk, 2 of 3"),
                  ("alt+Down", "expanded, Gdansk, 2 of 3"),
                  ("Down", "Tallinn, 3 of 3"),
                  ("m", "Malmo, 1 of 3"),
                  ("Escape", "collapsed, Gdansk"),
                  ("space", "expanded, Gdansk, 2 of 3"),
                  ("Up", "Malmo, 1 of 3"),
                  ("Return", "collapsed, Malmo"),
                  ("Down", "Gdansk, 2 of 3"),
                  ("Tab", "Warm, group, select-one, Meals, Fish soup, 1 of 3"))

    def test_suggestions_of_a_field_are_counted_and_walked(self):
        self.walk("native-datalist", "Data list: which tree",
                  ("Tab", "combo box, Tree"),
                  ("b", "b", "2 suggestions"),
                  ("Down", "Beech, 1 of 2"),
                  ("Down", "Birch, 2 of 2"),
                  ("Return", "Birch"),
                  ("BackSpace", "h", "1 suggestion"))

    def test_dialog_is_entered_with_its_title_and_keeps_the_focus(self):
        self.walk("dialog-modal", "Dialog: an address book",
                  ("Tab", "main, button, Add an address"),
                  ("Return", "New address, dialog, It is kept on this computer only., text, Street"),
                  ("shift+Tab", "button, Cancel"),
                  ("Tab", "text, Street"),
                  ("Escape", "main, button, Add an address"))

    def test_editor_in_a_frame_says_what_the_caret_reaches(self):
        self.walk("editor-frame", "Editor in a frame: a letter",
                  ("Tab", "text, Subject, The old bridge"),
                  ("Tab", "Text of the letter, frame, textarea, Dear council,"),
                  ("Down", "the bridge is broken."),
                  ("Down", "The rail is loose."),
                  ("Right", "h"),
                  ("ctrl+Right", "The"),
                  ("shift+Left", "e selected"),
                  ("BackSpace", "e"),
                  ("End", "end of line"),
                  ("Home", "T"))

    def test_dialog_that_does_not_take_the_focus_is_reached_with_f6(self):
        corvane = self.start(settings=TODAY)
        self.read("/patterns/consent-banner.html")
        self.said("Consent: soup of the day", "Your privacy, dialog, May we count your visits?")
        corvane.transcript.mark()
        corvane.keys("F6")
        self.said("WebBrowser", "Your privacy, dialog, May we count your visits?, button, Yes, count them")
        corvane.transcript.mark()
        corvane.keys("F6")
        self.said("Text Box")

    def test_page_that_changes_in_place_keeps_its_user(self):
        self.walk("single-page", "Welcome - The cookbook",
                  ("Tab", "banner, Cookbook, navigation, Welcome, link, current page"),
                  ("Tab", "Soups, link"))
        self.corvane.transcript.mark()
        self.corvane.keys("Return")
        self.said("main, heading, Soups, level 1", "Done", "Soups - The cookbook")
        self.corvane.transcript.mark()
        self.corvane.keys("Tab")
        self.said("content information, button, One page back")

    def test_words_of_a_live_region_follow_what_is_being_said(self):
        self.walk("live-atomic", "Live regions in parts: the match",
                  ("Tab", "button, Goal for the village"),
                  ("Return", "Village 1 to 0 Town", "Scored in minute 1"))

    def test_live_words_are_switched_off_with_a_key(self):
        self.walk("live-atomic", "Live regions in parts: the match",
                  ("Tab", "button, Goal for the village"),
                  ("F12", "Live words: important"),
                  ("Return",),
                  ("F12", "Live words: none"),
                  ("F12", "Live words: all"),
                  ("Return", "Village 2 to 0 Town", "Scored in minute 1"))


if __name__ == "__main__":
    unittest.main()
