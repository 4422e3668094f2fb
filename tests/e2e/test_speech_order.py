"""Who is heard when several have something to say: dialogs, windows, alerts,
reading on, the welcome."""

from harness import ESTABLISHED, Atspi, EndToEndTest, wait_until

WELCOME = "Hello, welcome to Corvane 2000"
PLAIN = {"SideBar": "0", "Focus": "5"}
SPOKEN = {"Corvane": {"Speech": "True"}, "pnlBrowser": PLAIN}


class SpeechOrder(EndToEndTest):
    def events(self):
        return self.corvane.transcript.events()

    def became_of(self, text):
        """How the last utterance of a text ended: "end", "cut", or None as long as it
        has not."""
        ids = [e["id"] for e in self.events() if e["event"] == "speak" and e["text"] == text]
        return next((e["event"] for e in self.events() if ids and e["id"] == ids[-1]
                     and e["event"] in ("end", "cut")), None)

    def wait_for_end(self, text):
        return wait_until(lambda: self.became_of(text), "the end of " + text)

    def wait_for_quiet(self):
        def quiet():
            said = {e["id"] for e in self.events() if e["event"] == "speak"}
            return said == {e["id"] for e in self.events() if e["event"] in ("cut", "end")}

        wait_until(quiet, "silence")

    def windows(self, name):
        return self.corvane.window_names().count(name)

    def wait_for_windows(self, name, count):
        wait_until(lambda: self.windows(name) == count, f"{count} windows {name}: {self.corvane.window_names()}")

    def page(self, path, title):
        corvane = self.corvane
        corvane.transcript.mark()
        corvane.keys("ctrl+l")
        corvane.keys("ctrl+a")
        corvane.type(self.base + path)
        corvane.keys("Return")
        self.said("Extracting Links ...", title)
        self.wait_for_quiet()

    def active_window(self):
        """What names the active one among the program's windows, whatever comes and goes."""
        application = self.corvane.application()
        children = (application.get_child_at_index(i) for i in range(application.get_child_count()))
        return next((child.path for child in children if child is not None
                     and child.get_state_set().contains(Atspi.StateType.ACTIVE)), None)

    # Windows ------------------------------------------------------------------
    def test_dialogs_speak_exactly_when_their_window_does(self):
        corvane = self.start(SPOKEN)
        self.new_window()
        self.speech_off()
        self.assertEqual(self.heard_of_dialogs(), [])
        corvane.transcript.mark()
        corvane.keys("alt+F4")  # leads back to the window that speaks
        self.wait_for_windows("Corvane", 1)
        self.wait_for_quiet()
        heard = self.heard_of_dialogs()
        self.assertEqual(heard[0], "Find in page. Find, edit box, empty")
        self.assertTrue(any(text.startswith("Open. Folder ") for text in heard), heard)
        self.assertIn("Downloads. No file has come from the network since the program was started. Close Button", heard)

    def test_dialogs_speak_where_speech_is_on_while_it_is_off_elsewhere(self):
        corvane = self.start(SPOKEN)
        self.speech_off()
        corvane.keys("ctrl+n")
        self.wait_for_windows("Corvane", 2)
        self.speech_on()
        heard = self.heard_of_dialogs()
        self.assertEqual(heard[0], "Find in page. Find, edit box, empty")
        corvane.keys("alt+F4")
        self.wait_for_windows("Corvane", 1)
        self.assertEqual(self.heard_of_dialogs(), [])

    def new_window(self):
        """Opens a second window and waits until its page has been read."""
        self.wait_for_quiet()
        self.corvane.transcript.mark()
        self.corvane.keys("ctrl+n")
        self.wait_for_windows("Corvane", 2)
        self.said("Extracting Links ...", "Corvane home page")
        self.wait_for_quiet()

    def speech_off(self):
        self.corvane.keys("alt+c", "Return")
        wait_until(lambda: "Speech=False" in self.corvane.settings("Corvane"), "speech to go off")
        self.wait_until_active("Corvane")  # the menu is gone

    def speech_on(self):
        self.corvane.transcript.mark()
        self.corvane.keys("alt+c", "Return")
        self.said(WELCOME)
        self.wait_for_end(WELCOME)
        self.wait_for_quiet()

    def heard_of_dialogs(self):
        """What is said while three dialogs are opened and closed again."""
        self.corvane.transcript.mark()
        for key, name in (("ctrl+f", "Find in page"), ("ctrl+o", "Open"), ("ctrl+j", "Downloads")):
            self.corvane.keys(key)
            self.wait_for_windows(name, 1)
            self.wait_until_active(name)
            self.wait_for_quiet()
            self.corvane.keys("Escape")
            self.wait_for_windows(name, 0)
            self.wait_until_active("Corvane")
        self.wait_for_quiet()
        return self.corvane.transcript.spoken()

    def wait_until_active(self, name):
        def active():
            application = self.corvane.application()
            children = (application.get_child_at_index(i) for i in range(application.get_child_count()))
            return any(child.get_name() == name and child.get_state_set().contains(Atspi.StateType.ACTIVE)
                       for child in children if child is not None)

        wait_until(active, name + " to be active")

    def test_menus_and_keys_are_named_only_where_speech_is_on(self):
        corvane = self.start({"Corvane": {"Speech": "True", "KeyEcho": "True"}, "pnlBrowser": PLAIN})
        self.new_window()
        self.speech_off()
        self.wait_for_quiet()
        corvane.transcript.mark()
        corvane.keys("alt+f", "Down", "Escape", "Escape", "a")
        self.wait_for_quiet()
        self.assertEqual(corvane.transcript.spoken(), [])

    # Alerts -------------------------------------------------------------------
    def tell_twice(self, settings):
        self.start(settings)
        self.page("/two-alerts.html", "Two alerts")
        self.corvane.transcript.mark()
        self.corvane.focus_page()
        self.corvane.keys("Tab")
        wait_until(lambda: any("Tell me" in text for text in self.corvane.transcript.spoken()), "the button")
        self.wait_for_quiet()
        self.corvane.transcript.mark()
        self.corvane.keys("space")

    def test_two_alerts_are_heard_one_after_the_other(self):
        self.tell_twice(SPOKEN)
        self.said("First message", "OK button")
        self.wait_for_quiet()
        self.assertEqual(self.corvane.transcript.spoken(), ["First message", "OK button"])
        self.corvane.transcript.mark()
        self.corvane.keys("F1")
        self.said("First message", "OK button")
        self.wait_for_quiet()
        self.corvane.transcript.mark()
        self.corvane.keys("Return")
        self.said("Second message", "OK button")
        self.wait_for_quiet()
        self.assertEqual(self.corvane.transcript.spoken(), ["Second message", "OK button"])
        self.corvane.keys("Return")
        self.wait_for_windows("Message Box", 0)
        self.wait_until_active("Corvane")

    def test_of_two_alerts_only_the_last_where_that_is_established(self):
        self.tell_twice(dict(ESTABLISHED, pnlBrowser=PLAIN))
        self.said("Second message")
        self.wait_for_quiet()
        self.assertNotIn("First message", self.corvane.transcript.spoken())
        self.corvane.keys("Return")
        self.wait_for_windows("Message Box", 0)

    def test_alert_of_the_second_window_leads_back_to_it(self):
        corvane = self.start(SPOKEN)
        self.new_window()
        second = self.active_window()
        self.page("/alert.html", "One alert")
        self.said("Your session ends soon")
        self.wait_for_windows("Message Box", 1)
        self.wait_for_quiet()
        corvane.keys("Return")
        self.wait_for_windows("Message Box", 0)
        self.wait_until_active("Corvane")
        self.assertEqual(self.active_window(), second)

    # Reading on ---------------------------------------------------------------
    def test_question_ends_reading_on_and_f7_goes_on_where_it_cut_in(self):
        self.server.gate.clear()
        self.addCleanup(self.server.gate.set)
        corvane = self.start(SPOKEN)
        self.page("/late-question.html", "A late question")
        corvane.focus("Text")
        self.wait_for_quiet()
        corvane.transcript.mark()
        corvane.keys("ctrl+Home")
        corvane.keys("F7")
        wait_until(lambda: any(text.startswith("The second") for text in corvane.transcript.spoken()), "the second")
        second = next(text for text in corvane.transcript.spoken() if text.startswith("The second"))
        self.server.gate.set()
        question = "Question of 127.0.0.1. Are you still there? OK Button"
        self.said(question)
        self.assertEqual(self.became_of(second), "cut")
        self.wait_for_quiet()
        self.assertEqual(corvane.transcript.spoken()[-1], question, "nothing is read over the question")
        corvane.keys("Return")
        self.wait_until_active("Corvane")
        self.wait_for_quiet()
        corvane.transcript.mark()
        corvane.keys("F7")
        self.said(second, "The third paragraph ends it.", "End of text")
        self.assertEqual(corvane.transcript.spoken()[0], second)

    # The welcome --------------------------------------------------------------
    def test_control_cuts_the_welcome_and_speech_is_ready(self):
        corvane = self.start(SPOKEN, wait=False)
        self.said(WELCOME)
        wait_until(corvane.focused, "a focus")
        corvane.keys("Control_L")
        wait_until(lambda: self.became_of(WELCOME), "the end of the welcome")
        self.assertEqual(self.became_of(WELCOME), "cut")
        corvane.transcript.mark()
        corvane.keys("alt+f")
        self.said("New Window")
        corvane.keys("Escape")

    def test_page_that_comes_during_the_welcome_is_named_once_behind_it(self):
        self.start(SPOKEN)
        self.wait_for_quiet()
        self.assertEqual(self.became_of(WELCOME), "end")
        self.assertEqual(self.corvane.transcript.spoken().count("Corvane home page"), 1)
        self.assertEqual(self.became_of("Corvane home page"), "end")

    def test_favorite_is_heard_to_its_end_whatever_key_adds_it(self):
        self.start(SPOKEN)
        self.page("/weather.html", "The weather")
        self.corvane.focus("Text")
        self.wait_for_quiet()
        self.corvane.keys("ctrl+d")
        self.said("The weather added to Favorites")
        self.wait_for_quiet()
        self.assertEqual(self.became_of("The weather added to Favorites"), "end")


if __name__ == "__main__":
    import unittest

    unittest.main()
