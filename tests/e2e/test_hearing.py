"""Hearing what one does: form fields, keys and menus, with whole transcripts."""
import time

from harness import ESTABLISHED, ESTABLISHED_SENTENCES, EndToEndTest, wait_until

PANE = {"SideBar": "0", "Focus": "0"}
TODAY = {"Corvane": {"Speech": "True"}, "pnlBrowser": PANE}
SPOKEN = {"Corvane": {"Speech": "True"}, "pnlBrowser": {**PANE, **ESTABLISHED_SENTENCES}}
ECHO = {"Corvane": {"Speech": "True", "KeyEcho": "True"}, "pnlBrowser": SPOKEN["pnlBrowser"]}


class Hearing(EndToEndTest):
    def open_form(self, path, title, settings=SPOKEN):
        """Opens a page and goes into it; the next Tab leads to its first element."""
        corvane = self.start(settings=settings)
        self.read(path)
        self.said(title)
        corvane.focus("Address")
        corvane.transcript.mark()
        corvane.keys("Tab")
        self.said("WebBrowser")
        return corvane

    def hears(self, keys, *texts):
        """Presses keys, one after the other has been heard, and compares all that
        was said."""
        corvane = self.corvane
        corvane.transcript.mark()
        corvane.keys(*keys.split())
        if texts:
            self.said(*texts)
        time.sleep(0.3)  # nothing more may follow
        self.assertEqual(corvane.transcript.spoken(), list(texts), keys)

    def test_form_is_filled_in_by_ear_in_todays_sentences(self):
        self.open_form("/form.html", "The order", settings=TODAY)
        self.hears("Tab", "text, Your name, Ann")
        self.hears("Home", "A")
        self.hears("Right", "n")
        self.hears("End", "end")
        self.hears("x", "x")
        self.hears("BackSpace", "x")
        self.hears("shift+Left", "n selected")
        self.hears("shift+Home", "An selected")
        self.hears("Right", "end")
        self.hears("Tab", "password, Secret")
        self.hears("1", "1")
        self.hears("Tab", "radio, Large, selected, 2 of 2")
        self.hears("Up", "radio, Small, selected, 1 of 2")
        self.hears("Tab", "checkbox, terms, unchecked")
        self.hears("space", "checked")
        self.hears("Tab", "select-one, colour, Red, 1 of 3")
        self.hears("Down", "Green, 2 of 3")
        self.hears("Tab", "textarea, Letter, Dear")
        self.hears("Tab", "submit, Send")
        self.hears("Tab", "News, link")

    def test_form_is_filled_in_by_ear(self):
        self.open_form("/form.html", "The order")
        self.hears("Tab", "text, user, Your name, Ann")
        self.hears("End", "Ann")
        self.hears("x", "x")
        self.hears("Home", "Annx")
        self.hears("shift")
        self.hears("Tab", "password, pin, Secret, ")
        self.hears("1", "1")
        self.hears("2", "2")
        self.hears("Left", "2")
        self.hears("Tab", "radio, size, Large, selected")
        self.hears("Up", "radio, size, Small, selected")
        self.hears("Tab", "checkbox, terms, on, unchecked")
        self.hears("space", "checked")
        self.hears("space", "unchecked")
        self.hears("Tab", "select-one, colour, Red")
        self.hears("Down", "Green")
        self.hears("Down", "Blue")
        self.hears("Tab", "textarea, letter, Letter, Dear")
        self.hears("ctrl+End", "Dear")
        self.hears("y", "y")
        self.hears("Tab", "submit, Send")
        self.hears("Tab", "News")
        self.hears("shift+Tab", "submit, Send")
        self.corvane.transcript.mark()
        self.corvane.keys("Return")
        self.said("The weather")

    def test_every_kind_of_field_has_its_sentence(self):
        self.open_form("/kinds.html", "All kinds")
        self.hears("Tab", "text, bare, cats")
        self.hears("Tab", "text, , Label, x")
        self.hears("Tab", "text, mail, Mail, ")
        self.hears("Tab", "radio, size, s, unselected")
        self.hears("Tab", "checkbox, news, News, checked")
        self.hears("Tab", "select-multiple, many, One")
        self.hears("Tab", "textarea, free, Text")
        self.hears("Tab", "file, ")
        self.hears("Tab", "image, picture")
        self.hears("Tab", "button, Press")
        self.hears("Tab", "reset, Clear")
        self.hears("Tab", "submit, Search")

    def test_what_is_said_of_the_form_stands_in_the_text_pane(self):
        corvane = self.open_form("/form.html", "The order")
        self.hears("Tab", "text, user, Your name, Ann")
        wait_until(lambda: corvane.text_of("Text").endswith("text, user, Your name, Ann\n"), "the line")

    def test_button_in_the_established_manner_stops_the_walk_behind_a_message(self):
        self.start(settings=dict(SPOKEN, **ESTABLISHED))
        self.corvane.transcript.mark()
        self.corvane.open(self.base + "/buttons.html")
        self.said("ResetStructure Error: Object variable or With block variable not set. OK Button")
        self.corvane.transcript.mark()
        self.corvane.keys("Return")
        self.said("Extracting Links ...", "Done", "The buttons")
        self.corvane.focus("Address")
        self.hears("Tab", "WebBrowser")
        self.hears("Tab", "text, first, First, ")
        self.hears("Tab", "button, Send")
        self.hears("Tab")  # as established: the form behind the button has no announcers
        self.hears("Tab", "text, alone, Alone, ")

    def test_button_costs_the_fields_behind_it_nothing(self):
        self.open_form("/buttons.html", "The buttons")
        self.hears("Tab", "text, first, First, ")
        self.hears("Tab", "button, Send")
        self.hears("Tab", "text, second, Second, ")
        self.hears("Tab", "text, alone, Alone, ")
        self.hears("a", "a")
        self.hears("Tab", "text, late, Late, ")
        self.hears("Tab", "More")

    def test_every_part_and_step_of_later_kinds_is_heard(self):
        self.open_form("/later-kinds.html", "Later kinds")
        self.hears("Tab", "date field, day, Day, 2024-05-17, month, 05")
        self.hears("Up", "06")
        self.hears("Tab", "day, 17")
        self.hears("3", "03")
        self.hears("Tab", "year, 2024")
        self.hears("Tab", "time field, when, When, , hour, empty")
        self.hears("Up", "00")
        self.hears("Tab", "minutes, empty")
        self.hears("Tab", "number field, many, How many, 5")
        self.hears("Up", "6")
        self.hears("Down", "5")
        self.hears("Home", "5")
        self.hears("Tab", "slider, loud, Loud, 50")
        self.hears("Right", "51")
        self.hears("Left", "50")
        self.hears("Tab", "text, mail, Mail, ")
        self.hears("a", "a")
        self.hears("b", "b")
        self.hears("Left", "b")
        self.hears("Home", "a")
        self.hears("End", "ab")
        self.hears("BackSpace", "b")
        self.hears("Tab", "select-multiple, several, A")
        self.hears("Down", "B")
        self.hears("shift+Down", "C")
        self.hears("shift+Up", "C, unselected")

    def test_words_of_authors_stand_where_there_are_no_others(self):
        self.open_form("/author-words.html", "Words of authors")
        self.hears("Tab", "text, q, Search the shop, ")
        self.hears("Tab", "text, town, Your town, ")
        self.hears("Tab", "checkbox, cb, I agree, unchecked")
        self.hears("Tab", "button, Menu")
        self.hears("Tab", "Weather picture")
        self.hears("Tab", "Home")
        self.hears("Tab", self.base + "/nameless.html")

    def test_removed_and_replaced_characters_are_heard(self):
        self.open_form("/form.html", "The order")
        self.hears("Tab", "text, user, Your name, Ann")
        self.hears("End", "Ann")
        self.hears("BackSpace", "n")
        self.hears("Home", "An")
        self.hears("Delete", "A")
        self.hears("ctrl+a", "n")
        self.hears("x", "x")

    def test_hidden_password_is_stars_in_field_and_echo_and_not_in_the_text_pane(self):
        settings = {"Corvane": dict(ECHO["Corvane"]), "pnlBrowser": dict(ECHO["pnlBrowser"], Passwords="hidden")}
        corvane = self.open_form("/form.html", "The order", settings=settings)
        self.hears("Tab", "Tab", "text, user, Your name, Ann")
        self.hears("Tab", "Tab", "password, pin, Secret, ")
        self.hears("7", "star", "star")
        self.hears("q", "star", "star")
        self.hears("Left", "Left", "star")
        self.hears("BackSpace", "Backspace", "star")
        self.hears("shift+Tab", "Shift", "Tab", "text, user, Your name, Ann")
        self.hears("z", "Z", "z")
        text = corvane.text_of("Text")
        self.assertNotIn("7", text.split("Secret", 1)[1])

    def test_field_that_a_page_focuses_as_it_opens_is_heard_behind_the_title(self):
        corvane = self.open_form("/log-in.html", "Log in here")
        self.said("text, user, Your name, ")
        corvane.transcript.mark()
        corvane.keys("Return")  # from one page to the next with the focus in the page
        self.said("Log in here", "text, user, Your name, ")
        spoken = corvane.transcript.spoken()
        self.assertEqual(spoken[-2:], ["Log in here", "text, user, Your name, "])
        events = corvane.transcript.events()
        title = [e["id"] for e in events if e.get("text") == "Log in here"][-1]
        self.assertIn("end", [e["event"] for e in events if e["id"] == title], "the title is heard in full")
        self.hears("a", "a")
        self.hears("Tab", "password, pin, Secret, ")

    def test_script_that_moves_the_focus_after_a_key_and_what_it_shows_are_heard(self):
        self.open_form("/opens.html", "It opens")
        self.hears("Tab", "button, Find")
        self.hears("Return", "text, q, Search, ")
        self.hears("Tab", "button, Show")
        self.corvane.transcript.mark()
        self.corvane.keys("Return")
        self.said("Opened: Times of opening")

    def test_every_key_is_named_while_echo_is_on(self):
        corvane = self.start(settings=ECHO)
        corvane.focus("Address")
        corvane.keys("ctrl+a")
        self.hears("BackSpace", "Backspace", "corvane://home/cv/")
        self.hears("a", "A", "a")
        self.hears("b", "B", "b")
        self.hears("5", "5", "5")
        self.hears("Left", "Left", "5")
        self.hears("F2", "F2")
        self.hears("shift", "Shift")
        self.hears("Control_L", "Control")
        urgent = [e["urgent"] for e in corvane.transcript.events() if e["event"] == "speak"]
        self.assertTrue(urgent[-1])

    def test_punctuation_and_special_keys_are_named_by_words(self):
        corvane = self.start(settings=ECHO)
        corvane.focus("Address")
        corvane.keys("ctrl+a")
        self.hears("BackSpace", "Backspace", "corvane://home/cv/")
        self.hears("comma", "comma", ",")
        self.hears("slash", "slash", "/")
        self.hears("F13", "F13")

    def test_punctuation_is_the_character_of_its_code_in_the_established_manner(self):
        settings = {**ECHO, "Corvane": {**ECHO["Corvane"], **ESTABLISHED["Corvane"]}}
        corvane = self.start(settings=settings)
        corvane.focus("Address")
        corvane.keys("ctrl+a")
        self.hears("BackSpace", "\b")
        self.hears("comma", "\u00bc", ",")
        self.hears("period", "\u00be", ".")

    def test_keys_are_named_in_the_page_too(self):
        self.open_form("/form.html", "The order", settings=ECHO)
        self.hears("Tab", "Tab", "text, user, Your name, Ann")
        self.hears("q", "Q", "q")

    def test_control_silences_at_once(self):
        corvane = self.open_form("/form.html", "The order")
        corvane.keys("Tab")
        self.said("text, user, Your name, Ann")
        corvane.keys("Control_L")

        def cut():
            events = corvane.transcript.events()
            last = [e for e in events if e["event"] == "speak"][-1]["id"]
            return any(e["event"] == "cut" and e["id"] == last for e in events)

        wait_until(cut, "silence")

    def test_rate_item_is_heard_at_its_own_rate(self):
        corvane = self.start()
        corvane.press_and_hear("alt+c", "Down", "Down", "Right", "Down", "Down", "Down")
        self.said("Fast unchecked")
        events = [e for e in corvane.transcript.events() if e["event"] == "speak"]
        self.assertEqual(events[-1]["speed"], 200)
        corvane.keys("Left")
        wait_until(lambda: corvane.transcript.spoken()[-1] == "Rate popup", "the item that opened the submenu")
        events = [e for e in corvane.transcript.events() if e["event"] == "speak"]
        self.assertEqual(events[-1]["speed"], 150)
        corvane.keys("Escape", "Escape")

    def walks(self, items):
        """Goes down a menu whose title and first item have been heard; an item may
        be a pair of itself and its submenu's items."""
        for index, item in enumerate(items):
            words, inner = item if isinstance(item, tuple) else (item, None)
            if index > 0:
                self.hears("Down", words)
            if inner:
                self.hears("Right", inner[0])
                for each in inner[1:]:
                    self.hears("Down", each)
                self.hears("Left", words)

    def test_every_menu_is_walked_with_the_keyboard(self):
        self.start(settings=SPOKEN)
        sides = ["None checked", "Favorites unchecked", "History unchecked", "Page Structure unchecked",
                 "Accessibility Browser unchecked"]
        homes = ["None unchecked", "Use Start Page of Web Options unchecked", "Use Corvane's checked", "Last one Opened unchecked"]
        focus = ["None checked", "Links unchecked", "SideBar unchecked", "WebBrowser unchecked", "Text Box unchecked"]
        rates = ["Very Slow unchecked", "Slow unchecked", "Normal checked", "Fast unchecked", "Very Fast unchecked"]
        pitches = ["Very Low unchecked", "Low unchecked", "Normal checked", "High unchecked", "Very High unchecked"]
        menus = [
            ("File", ["New Window", "Open Web Site", "Open File", "Save as", "Print", "Exit"]),
            ("Edit", ["Cut", "Copy", "Paste", "Select All"]),
            ("Go", ["Back", "Forward", "Stop", "Refresh", "Home", "Search"]),
            ("Settings", ["Web Options", ("SideBar popup", sides),
                          ("Text History popup", ["Clear with New Page checked", "Never Clear unchecked"]),
                          ("Home popup", homes), ("AutoFocus popup", focus),
                          "Enable Status Change Feedback unchecked"]),
            ("View", ["Toolbar checked", "Statusbar checked"]),
            ("Speech", ["Enable Speech checked", "Enable Keyboard Echo unchecked", ("Rate popup", rates),
                        ("Pitch popup", pitches)]),
            ("Help", ["Contents", "About"]),
        ]
        for index, (title, items) in enumerate(menus):
            first = items[0][0] if isinstance(items[0], tuple) else items[0]
            self.hears("alt+f" if index == 0 else "Right", title, first)
            self.walks(items)
            if isinstance(items[-1], tuple):
                self.hears("Down", first)  # round the end: Right would open the submenu
        self.hears("Escape", "Back Button")

    def test_alert_of_a_page_is_shown_again_and_spoken(self):
        corvane = self.start(settings=SPOKEN)
        corvane.transcript.mark()
        corvane.open(self.base + "/alert.html")
        wait_until(lambda: "Message Box" in corvane.window_names(), "the program's own box")
        self.assertTrue([e for e in corvane.transcript.events() if e.get("urgent")])
        corvane.keys("Return")
        self.said("Extracting Links ...", "Done")

    def test_flood_of_keys_leaves_no_backlog(self):
        corvane = self.start(settings=ECHO)
        corvane.focus("Address")
        corvane.keys("ctrl+a", "BackSpace")
        text = "the quick brown fox " * 10
        corvane.type(text)
        wait_until(lambda: corvane.text_of("Address") == text, "the typed text")
        events = corvane.transcript.events()
        wait_until(lambda: corvane.transcript.spoken()[-1] in (" ", "Space"), "the last key")
        said = {e["id"] for e in events if e["event"] == "speak"}
        over = {e["id"] for e in events if e["event"] in ("cut", "end")}
        self.assertLess(len(said - over), 6)


if __name__ == "__main__":
    import unittest

    unittest.main()
