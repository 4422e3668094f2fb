"""Each word is spoken in its language: a page's as the page says it or its letters tell
it, the program's own in the program's."""
import unittest

from text_pane import TextPaneTest


class Languages(TextPaneTest):
    def spoken_in(self):
        """What has been said, as (text, language without its country) of each part."""
        parts = []
        for event in self.corvane.transcript.since_mark():
            if event["event"] == "speak":
                runs = event.get("runs", [{"text": event["text"], "language": event["language"]}])
                parts.append([(run["text"], run["language"][:2]) for run in runs])
        return parts

    def test_a_page_and_what_the_program_says_of_it(self):
        self.begin_in_text("/preise.html", "Preise der Woche", "Das Wetter")
        for key, *parts in (
            ("h", ("Preise der Woche", "de"), (", heading level 1", "en")),
            ("k", ("Das Wetter", "de"), (", link", "en")),
            ("e", ("Ihr Name", "de"), (", edit", "en")),
            ("Down", ("blank", "en")),
            ("Down", ("Новости дня", "ru")),
        ):
            self.hear(key)
            self.assertEqual(self.spoken_in(), [parts], key)

    def test_a_field_of_the_page(self):
        corvane = self.begin_in_text("/preise.html", "Preise der Woche", "Das Wetter")
        self.hear("e")
        self.hear("Return")
        self.assertEqual(self.spoken_in(), [[("text, ", "en"), ("Ihr Name", "de")]])
        self.assertNotIn("\U000E0001", corvane.text_of("Text"))

    def test_a_foreign_word_within_a_sentence(self):
        self.begin_in_text("/preise.html", "Preise der Woche", "Das Wetter")
        self.hear("h")
        self.hear("Down")
        self.hear("Down")
        self.assertEqual(self.spoken_in(), [[("Das ", "de"), ("menu du jour", "fr"), (" kostet elf Euro.", "de")]])

    def test_one_voice_when_the_user_wants_one(self):
        self.begin_in_text("/preise.html", "Preise der Woche", "Das Wetter",
                           {"Corvane": {"Speech": "True", "Languages": "False"},
                            "pnlBrowser": {"SideBar": "0", "Focus": "5"}})
        self.hear("k")
        self.assertEqual(self.spoken_in(), [[("Das Wetter, link", "en")]])


if __name__ == "__main__":
    unittest.main()
