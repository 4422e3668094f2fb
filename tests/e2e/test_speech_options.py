"""How speech sounds: chosen in the options and by keys, heard at once, kept; and whose
voice it is."""
import unittest

from harness import wait_until
from text_pane import IN_TEXT, TextPaneTest


class SpeechOptions(TextPaneTest):
    def spoken_events(self):
        return [event for event in self.corvane.transcript.since_mark() if event["event"] == "speak"]

    def last(self):
        return self.spoken_events()[-1]

    def press(self, *keys):
        """Presses keys and returns what is spoken last, as the transcript has it."""
        for key in keys:
            self.hear(key)
        return self.last()

    def open_page(self):
        """Opens the page "Speech" of the options."""
        self.hear("alt+s")
        self.hear("i")
        self.hear("alt+e")
        self.assertTrue(self.last()["text"].startswith("Speech. Speed, words a minute, list, "), self.last())

    def close_options(self):
        self.hear("Escape")

    def stored(self, line):
        wait_until(lambda: line in self.corvane.settings("Corvane"), line)

    def test_keys_for_faster_and_slower_work_everywhere(self):
        corvane = self.begin_in_text("/preise.html", "Preise der Woche", "Das Wetter")
        event = self.press("ctrl+alt+Prior")
        self.assertEqual((event["text"], event["speed"]), ("Speed 165", 165))
        self.stored("SpeechSpeed=165")
        self.assertEqual(self.press("ctrl+l")["speed"], 165)
        self.assertEqual(self.press("ctrl+alt+Next")["text"], "Speed 148")
        corvane.focus_page()
        self.quiet()
        self.assertEqual(self.press("ctrl+alt+Prior")["text"], "Speed 163")
        self.hear("ctrl+f")
        self.assertEqual(self.press("ctrl+alt+Prior")["text"], "Speed 179")
        self.assertEqual(self.press("Tab")["speed"], 179)
        self.hear("Escape")
        self.hear("alt+f")
        self.assertEqual(self.press("ctrl+alt+Next")["text"], "Speed 161")
        self.assertEqual(self.press("Down")["speed"], 161)
        self.hear("Escape")

    def test_a_choice_is_heard_at_once_and_taken_back_by_escape(self):
        self.begin_in_text("/preise.html", "Preise der Woche", "Das Wetter")
        self.open_page()
        self.assertEqual(self.last()["speed"], 150)
        event = self.press("Down")
        self.assertEqual((event["text"], event["speed"]), ("160, 9 of 56", 160))
        event = self.press("9")
        self.assertEqual((event["text"], event["speed"]), ("900, 56 of 56", 900))
        self.assertEqual(self.press("9")["text"], "90, 2 of 56")
        self.assertEqual(self.press("Escape")["speed"], 150)
        self.close_options()
        self.assertNotIn("SpeechSpeed", self.corvane.settings("Corvane"))

    def test_what_is_chosen_is_kept(self):
        self.begin_in_text("/preise.html", "Preise der Woche", "Das Wetter")
        self.open_page()
        self.hear("Tab")
        self.assertEqual(self.press("Up")["pitch"], 85)
        self.hear("Tab")
        self.assertEqual(self.press("Home")["range"], 0)
        self.hear("Tab")
        self.assertEqual(self.press("Up")["volume"], 90)
        self.hear("Tab")
        self.assertEqual(self.press("Down")["punctuation"], 2)
        self.hear("Tab")
        self.assertEqual(self.press("Down")["capitals"], 1)
        self.hear("Tab")
        event = self.press("space")
        self.assertEqual((event["text"], event["digits"]), ("checked. For example 2048.", 1))
        self.hear("Return")
        self.close_options()
        for line in ("SpeechPitch=45", "PitchRange=0", "Volume=90", "Punctuation=most", "Capitals=pitch",
                     "Digits=True"):
            self.stored(line)
        self.corvane.close()
        self.start()
        event = next(e for e in self.corvane.transcript.events()
                     if e["event"] == "speak" and e["text"] == "Corvane home page")
        self.assertEqual((event["pitch"], event["range"], event["volume"], event["digits"]), (85, 0, 90, 1))

    def test_a_language_gets_its_voice(self):
        self.begin_in_text("/preise.html", "Preise der Woche", "Das Wetter")
        self.open_page()
        while not self.last()["text"].startswith("Language, list, English"):
            self.hear("Tab")
        while not self.last()["text"].startswith("German, "):
            self.hear("g")
        self.hear("Tab")
        self.assertTrue(self.last()["text"].startswith("Words in it are heard, list, as the page says"))
        self.hear("Tab")
        self.hear("Tab")
        while not self.last()["text"].startswith("Annie, "):
            self.hear("a")
        runs = self.last()["runs"]
        self.assertEqual((runs[0]["text"], runs[0]["language"], runs[0]["voice"]), ("Annie", "de", "+Annie"))
        self.hear("Return")
        self.close_options()
        self.stored("LanguageVoices=de:page:+Annie")
        event = self.press("h")
        self.assertEqual(event["runs"][0]["voice"], "+Annie")

    def test_sounds_stand_for_done(self):
        self.start(settings={"Corvane": {"Speech": "True", "Sounds": "True"}})
        self.read("/preise.html")
        done = [event for event in self.spoken_events() if event["text"] == "Done"]
        self.assertTrue(done)
        self.assertEqual({event.get("sound") for event in done}, {2})

    def test_a_language_without_a_voice_is_told_once(self):
        corvane = self.start(settings=IN_TEXT)
        self.read("/tongues.html")
        wait_until(lambda: "Morgen" in corvane.text_of("Text"), "the elements in the text")
        self.quiet()
        for words in ("tlhIngan Hol", "Guete Morge", "wa' cha'", "Guten Morgen"):
            self.assertTrue(self.press("h")["text"].endswith(words + ", heading level 1"), self.last())
        corvane.keys("shift+h")
        self.said("wa' cha', heading level 1")
        self.quiet()
        events = corvane.transcript.events()
        ended = {event["id"] for event in events if event["event"] == "end"}
        heard = [event["text"] for event in events if event["event"] == "speak" and event["id"] in ended]
        self.assertEqual(sum("No voice for Klingon. " in text for text in heard), 1, heard)
        self.assertEqual(sum("No voice for Swiss German, German reads it. " in text for text in heard), 1, heard)
        self.assertFalse(any("No voice for German" in text for text in heard), heard)

    def test_a_language_can_be_left_out(self):
        settings = {"Corvane": {"Speech": "True", "LanguageVoices": "de:not gsw:own"},
                    "pnlBrowser": {"SideBar": "0", "Focus": "5"}}
        self.begin_in_text("/preise.html", "German text", "Das Wetter", settings)
        self.assertEqual(self.press("h")["text"], "German text, heading level 1")

    def test_the_program_has_a_voice_that_no_page_has(self):
        corvane = self.begin_in_text("/imitation.html", "Permission. example.com wants to know where you are.",
                                     "Download")
        self.press("h")
        self.press("b")
        self.hear("Return")
        self.said("Question of 127.0.0.1. Save a file from example.com? OK Button")
        self.quiet()
        self.hear("Return")
        self.said("Download finished: data.zip is in Downloads")
        self.quiet()
        speeches = [event for event in corvane.transcript.events() if event["event"] == "speak"]
        parts = [run for event in speeches for run in event.get("runs", [event])]
        self.assertEqual([run["text"] for run in parts if run.get("voice")], [])
        self.assertEqual(self.press("ctrl+plus")["voice"], "+f4")
        self.assertEqual(self.press("ctrl+f")["voice"], "+f4")
        self.hear("Escape")


if __name__ == "__main__":
    unittest.main()
