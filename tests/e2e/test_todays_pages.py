"""Widgets of today's pages, by keys alone: all that is said at each step."""
import time
import unittest

from harness import EndToEndTest

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
