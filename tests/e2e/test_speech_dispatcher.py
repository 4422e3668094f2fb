"""Speech Dispatcher makes the sound: chosen by keys, in the languages of the page, and
killed, hanging and missing, when the built in voice goes on with what was left unsaid."""
import unittest

from harness import wait_until
from text_pane import TextPaneTest
from victims import SpeechServer

LOST = "Speech Dispatcher does not answer. The built in voice goes on."
CHOSEN = {"Corvane": {"Speech": "True", "SpeechOutput": "dispatcher"},
          "pnlBrowser": {"SideBar": "0", "Focus": "5"}}


class SpeechDispatcherTest(TextPaneTest):
    def setUp(self):
        super().setUp()
        self.speech_server = SpeechServer()
        self.addCleanup(self.speech_server.close)

    def begin(self, settings=None):
        self.speech_server.start()
        return self.start(settings=settings or CHOSEN, environment=self.speech_server.environment())

    def events(self, kind):
        return [event for event in self.corvane.transcript.events() if event["event"] == kind]

    def id_of(self, beginning):
        """The last request to say something that begins so."""
        return [e["id"] for e in self.events("speak") if e["text"].startswith(beginning)][-1]

    def speaker_of(self, beginning):
        """Who has said it: "server", or None for the built in voice."""
        number = self.id_of(beginning)
        begun = wait_until(lambda: [e for e in self.events("begin") if e["id"] == number], f"sound of {beginning!r}")
        return begun[0].get("by")

    def read_aloud(self):
        """Begins to read a long page aloud; returns when the server says its words."""
        self.read("/preise.html")
        self.quiet()
        self.corvane.transcript.mark()
        self.corvane.keys("F7")
        wait_until(lambda: [e for e in self.corvane.transcript.since_mark() if e["event"] == "begin"], "a beginning")
        self.assertEqual([e.get("by") for e in self.corvane.transcript.since_mark() if e["event"] == "begin"],
                         ["server"])

    def goes_on(self):
        """The built in voice says what was left, the loss is told once, and keys are heard."""
        said = wait_until(lambda: [e for e in self.events("speak") if e["text"] == LOST], LOST)
        self.assertEqual(len(said), 1)
        rests = self.events("rest")
        self.assertEqual(len(rests), 1)
        text = next(e["text"] for e in self.events("speak") if e["id"] == rests[0]["id"])
        self.assertTrue(text.replace("\n", " ").endswith(rests[0]["text"].strip()), (text, rests))
        self.corvane.keys("ctrl")
        self.quiet()
        self.hear("ctrl+shift+s")
        begun = self.events("begin")[-1]
        self.assertIsNone(begun.get("by"))
        self.assertLessEqual(len([e for e in self.events("speak") if e["text"] == LOST]), 4)

    def test_it_speaks_from_the_start_in_the_languages_of_the_page(self):
        self.begin()
        self.read("/tongues.html")
        self.quiet()
        self.hear("h")
        self.assertEqual(self.events("begin")[-1].get("by"), "server")
        self.assertEqual(self.events("rest"), [])
        self.assertFalse([e for e in self.events("speak") if e["text"] == LOST])

    def test_a_key_cuts_off_what_it_says(self):
        self.begin()
        self.read_aloud()
        number = [e for e in self.corvane.transcript.since_mark() if e["event"] == "begin"][0]["id"]
        self.corvane.keys("ctrl")
        wait_until(lambda: [e for e in self.events("cut") if e["id"] == number], "the cut")
        self.quiet()
        self.hear("ctrl+shift+s")
        self.assertEqual(self.events("begin")[-1].get("by"), "server")

    def test_it_is_chosen_by_keys_and_given_up_by_keys(self):
        self.begin(settings={"Corvane": {"Speech": "True"}})
        self.assertIsNone(self.events("begin")[-1].get("by"))
        self.hear("alt+s")
        self.hear("i")
        self.hear("alt+e")
        while not self.corvane.transcript.spoken()[-1].startswith("Output, list, built in"):
            self.hear("Tab")
        self.hear("Down")
        self.hear("Up")
        self.hear("Down")
        wait_until(lambda: self.hear("F1") and self.events("begin")[-1].get("by") == "server", "the server's voice")
        self.hear("Return")
        wait_until(lambda: "SpeechOutput=dispatcher" in self.corvane.settings("Corvane"), "the setting")

    def test_it_is_killed_in_the_middle_of_a_sentence(self):
        self.begin()
        self.read_aloud()
        self.speech_server.kill()
        self.goes_on()

    def test_it_hangs_in_the_middle_of_a_sentence(self):
        self.begin()
        self.read_aloud()
        self.speech_server.hang()
        self.goes_on()

    def test_it_is_missing(self):
        self.start(settings=CHOSEN, environment=self.speech_server.environment())
        self.said(LOST)
        self.quiet()
        self.hear("ctrl+shift+s")
        self.assertEqual({e.get("by") for e in self.events("begin")}, {None})
        self.assertEqual(len([e for e in self.events("speak") if e["text"] == LOST]), 1)


if __name__ == "__main__":
    unittest.main()
