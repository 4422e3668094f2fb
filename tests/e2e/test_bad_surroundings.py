"""Broken settings, a missing character, no sound: an outcome that can be heard or seen."""
import pathlib
import shutil

from harness import PROGRAM, EndToEndTest, wait_until
import harness


class BadSurroundings(EndToEndTest):
    def write_settings(self, content):
        folder = pathlib.Path(self.home) / "config/corvane"
        folder.mkdir(parents=True, exist_ok=True)
        (folder / "Corvane.ini").write_bytes(content)
        return folder

    def test_settings_full_of_rubbish_are_kept_aside_and_told(self):
        folder = self.write_settings(b"\x00\xff rubbish [[[ = \n no = section")
        corvane = self.start()
        wait_until(lambda: list(folder.glob("*.broken")), "the broken file kept")
        wait_until(lambda: any("settings" in text.lower() for text in corvane.transcript.spoken()), "a word about it")

    def test_placement_that_is_no_number_stops_the_established_load(self):
        self.write_settings(b"[Settings]\nSpeech=True\nManner=0\nMainLeft=left\n")
        corvane = self.start(wait=False)
        self.said("FormLoad Error: Type mismatch. OK Button")
        corvane.keys("Return")

    def test_values_that_cannot_be_used_are_told_once_and_the_session_speaks(self):
        self.write_settings(b"[Settings]\nSpeech=True\nMainLeft=left\nRate=9\nPitch=-3\n")
        corvane = self.start(wait=False)
        words = "The stored settings MainLeft, Rate, Pitch cannot be used. Their defaults hold. OK Button"
        self.said("Hello, welcome to Corvane 2000", words)
        wait_until(lambda: "Corvane message" in corvane.window_names(), "the message")
        corvane.keys("Return")
        wait_until(lambda: "Corvane message" not in corvane.window_names(), "its end")
        corvane.transcript.mark()
        corvane.keys("ctrl+l")
        wait_until(lambda: any(text.endswith("Address Box") for text in corvane.transcript.spoken()), "the address box")
        said = [event for event in corvane.transcript.events() if event["event"] == "speak"]
        self.assertEqual([event["text"] for event in said].count(words), 1)
        self.assertEqual((said[-1]["speed"], said[-1]["pitch"]), (150, 90))
        self.assertFalse([event for event in said if "Spd=" in event["text"]])

    def test_settings_that_cannot_be_written_are_told(self):
        # A folder in the file's place cannot be replaced, by nobody.
        folder = pathlib.Path(self.home) / "config/corvane/Corvane.ini"
        folder.mkdir(parents=True)
        corvane = self.start()
        corvane.keys("Escape")
        corvane.keys("alt+c", "r", "f")
        wait_until(lambda: any("settings" in text.lower() for text in corvane.transcript.spoken()), "a word about it")

    def copy_program(self):
        """The program in a folder of its own, whose character file can be spoilt."""
        folder = pathlib.Path(self.home) / "program"
        shutil.copytree(PROGRAM.parent, folder, ignore=shutil.ignore_patterns("*test*", "*bench*"))
        self.addCleanup(setattr, harness, "PROGRAM", PROGRAM)
        harness.PROGRAM = folder / PROGRAM.name
        return folder

    def open_help(self):
        self.corvane.transcript.mark()
        self.corvane.keys("alt+f", "Left", "Return")

    def test_missing_help_file_is_told_and_the_focus_stays(self):
        (self.copy_program() / "cvhelp.txt").unlink()
        corvane = self.start(settings={"Corvane": {"Speech": "True"}, "pnlBrowser": {"SideBar": "2", "Focus": "0"}})
        corvane.focus("Address")
        self.open_help()
        words = "The help text cvhelp.txt was not found. Installing Corvane again brings it back."
        self.said(words + " OK Button")
        self.assertTrue(any(words in (node.get_name() or "") for node in corvane.accessibles()))
        corvane.keys("Return")
        wait_until(lambda: corvane.focused_name() == "Address", "the address box again")

    def test_help_file_that_cannot_be_read_is_told(self):
        help_file = self.copy_program() / "cvhelp.txt"
        help_file.unlink()
        help_file.mkdir()  # even the superuser cannot read a folder
        corvane = self.start(settings={"Corvane": {"Speech": "True"}, "pnlBrowser": {"SideBar": "2", "Focus": "0"}})
        corvane.focus("Address")
        self.open_help()
        self.said(f"GetHelp Error: The file {help_file} cannot be read. OK Button")
        corvane.keys("Return")
        wait_until(lambda: corvane.focused_name() == "Address", "the address box again")

    def test_missing_character_file_is_told_and_the_browser_works(self):
        (self.copy_program() / "talker.acf").unlink()
        corvane = self.start(wait=False)
        wait_until(lambda: any("talker.acf" in text for text in corvane.transcript.spoken()), "the error spoken")
        corvane.keys("Return")
        wait_until(lambda: "Corvane" in corvane.text_of("Text"), "the home page")
        self.assertIsNone(corvane.process.poll())

    def test_alert_of_a_page_is_spoken_without_a_character_and_control_silences_it(self):
        (self.copy_program() / "talker.acf").unlink()
        corvane = self.start(wait=False)
        wait_until(lambda: any("talker.acf" in text for text in corvane.transcript.spoken()), "the error spoken")
        wait_until(lambda: corvane.focused_name() == "OK", "the box")
        corvane.keys("Return")
        wait_until(lambda: "Corvane" in corvane.text_of("Text"), "the home page")
        wait_until(lambda: corvane.focused_name() not in (None, "OK"), "the box to go")
        corvane.open(self.base + "/alert.html")
        words = "Your session ends soon. OK Button"
        self.said(words)
        corvane.keys("Control_L")
        wait_until(lambda: self.became_of(words), "the end of the alert's words")
        self.assertEqual(self.became_of(words), "cut")

    def became_of(self, text):
        events = self.corvane.transcript.events()
        ids = [e["id"] for e in events if e["event"] == "speak" and e["text"] == text]
        return next((e["event"] for e in events if e["id"] == ids[-1] and e["event"] in ("end", "cut")), None)

    def test_broken_character_file_is_told(self):
        (self.copy_program() / "talker.acf").write_bytes(b"\x00\x01\x02 not a character")
        corvane = self.start(wait=False)
        wait_until(lambda: any("talker.acf" in text for text in corvane.transcript.spoken()), "the error spoken")

    def test_without_a_sound_server_it_speaks_on_and_says_so(self):
        corvane = self.start(environment={"CORVANE_AUDIO": "", "PULSE_SERVER": "unix:/nonexistent"})
        self.assertIn("sound", corvane.log_text().lower())
        notice = [n.get_name() or "" for n in corvane.accessibles()]
        self.assertTrue(any("sound" in text.lower() for text in notice), notice)

    def test_automation_start_without_a_running_instance_is_refused(self):
        corvane = self.start(environment={"DBUS_STARTER_ADDRESS": "unix:path=/nonexistent"}, wait=False)
        self.said("Main Error: Application can't be started with Automation. OK Button")
        self.assertIsNone(corvane.find("Address"))
        corvane.keys("Return")
        self.assertEqual(corvane.process.wait(60), 0)
