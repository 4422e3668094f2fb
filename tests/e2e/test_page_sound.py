"""What pages sound like beside speech: held back, lowered, muted; measured at the sink."""
import array
import math
import time
import unittest

from harness import wait_until
from text_pane import IN_TEXT, TextPaneTest
from victims import SoundServer

RATE = 44100
WINDOW = RATE // 20


def tone_in(samples):
    """The strength of the tone of 9,000 hertz in a window."""
    factor = 2 * math.cos(2 * math.pi * 9000 / RATE)
    one = two = 0.0
    for sample in samples:
        one, two = sample + factor * one - two, one
    return 2 * math.sqrt(max(one * one + two * two - factor * one * two, 0)) / len(samples)


def strength(samples):
    return math.sqrt(sum(sample * sample for sample in samples) / len(samples))


class PageSound(TextPaneTest):
    def begin(self, page, title, words, settings=None):
        self.sound_server = SoundServer()
        self.addCleanup(self.sound_server.close)
        self.sound_server.start()
        corvane = self.start(settings=settings or IN_TEXT, environment=self.sound_server.environment())
        self.recorder, self.recording = self.sound_server.record()
        self.addCleanup(self.end_recording)
        self.read(page)
        self.said(title)
        self.in_text(words)
        self.quiet()
        return corvane

    def end_recording(self):
        self.recorder.kill()
        self.recorder.wait()

    def windows(self, beginning=0):
        """What has been recorded since a number of samples, in windows of 50 ms."""
        samples = array.array("h")
        data = self.recording.read_bytes()[2 * beginning:]
        samples.frombytes(data[: len(data) // 2 * 2])
        return [samples[i:i + WINDOW] for i in range(0, len(samples) - WINDOW, WINDOW)]

    def recorded(self):
        return self.recording.stat().st_size // 2

    def tones(self, beginning=0):
        return [tone_in(window) for window in self.windows(beginning)]

    def wait_for_tone(self, fits, what, in_a_row=4):
        """Waits until so many windows in a row are as they are to be, from now on."""
        beginning = self.recorded()

        def heard():
            run = 0
            for tone in self.tones(beginning)[-40:]:
                run = run + 1 if fits(tone) else 0
                if run >= in_a_row:
                    return True
            return False

        wait_until(heard, what)

    def play(self):
        self.hear("b")
        self.corvane.keys("Return")
        self.wait_for_tone(lambda tone: 5500 < tone < 6500, "the tone in full")
        self.quiet()

    def test_a_page_is_low_while_something_is_said_and_rises_behind_it(self):
        self.begin("/sound.html", "Page with sound", "Play the tone")
        self.play()
        beginning = self.recorded()
        self.corvane.transcript.mark()
        self.corvane.keys("F7")
        wait_until(lambda: [e for e in self.corvane.transcript.since_mark() if e["event"] == "begin"], "speech")
        self.wait_for_tone(lambda tone: 1000 < tone < 1500, "the tone at a fifth")
        windows = self.windows(beginning)
        speech = max(strength(window) for window in windows)
        self.assertGreater(speech, 2 * 1200 / math.sqrt(2), "the words are louder than the page")
        self.corvane.keys("ctrl")
        self.wait_for_tone(lambda tone: 5500 < tone < 6500, "the tone in full again")
        tones = self.tones(beginning)
        steps = [abs(after - before) for before, after in zip(tones, tones[1:])]
        self.assertLess(max(steps), 3500, "it sinks and rises by and by")

    def test_a_page_that_would_sound_by_itself_is_held_back_and_that_is_said_once(self):
        self.begin("/loud.html", "Loud page", "It plays by itself")
        self.said("Sound held back")
        self.quiet()
        self.hear("h")
        time.sleep(1)  # in which it could begin
        self.assertLess(max(self.tones()), 300)
        self.assertEqual([e["text"] for e in self.corvane.transcript.events()
                          if e["event"] == "speak"].count("Sound held back"), 1)

    def test_the_established_way_lets_pages_sound_by_themselves(self):
        settings = {"Corvane": {"Speech": "True", "HoldSound": "False"}, "pnlBrowser": IN_TEXT["pnlBrowser"]}
        self.begin("/loud.html", "Loud page", "It plays by itself", settings)
        self.wait_for_tone(lambda tone: tone > 5500, "the tone in full")
        self.corvane.transcript.mark()
        self.assertNotIn("Sound held back", [e.get("text") for e in self.corvane.transcript.events()])

    def test_a_key_mutes_the_page_and_lets_it_sound_again(self):
        self.begin("/sound.html", "Page with sound", "Play the tone")
        self.play()
        self.assertEqual(self.hear("ctrl+m"), ["Page muted"])
        self.wait_for_tone(lambda tone: tone < 100, "silence")
        self.assertEqual(self.hear("ctrl+m"), ["Page sounds"])
        self.wait_for_tone(lambda tone: tone > 5500, "the tone in full")
        self.corvane.keys("ctrl+l")
        self.quiet()
        self.assertEqual(self.hear("ctrl+m"), ["Page muted"])


if __name__ == "__main__":
    unittest.main()
