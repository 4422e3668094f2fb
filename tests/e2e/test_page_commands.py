"""What the user does with a page: finding, zooming, printing, filling the screen,
leaving it. All of it by keyboard and by ear."""
import pathlib
import subprocess
import unittest

from page_test import PageTest, wait_until


class Hearing(PageTest):
    def heard_that(self, fits):
        spoken = self.corvane.transcript.spoken
        return wait_until(lambda: next((said for said in spoken() if fits(said)), None), "a sentence")


class PageCommands(Hearing):
    def find(self, words, before="empty"):
        self.corvane.keys("ctrl+f")
        self.said(f"Find in page. Find, edit box, {before}")
        self.corvane.keys("ctrl+a")
        self.corvane.type(words)
        self.corvane.keys("Return")

    def test_found_next_and_from_the_beginning(self):
        self.opened(self.base + "/rhyme.html")
        self.corvane.transcript.mark()
        self.find("rain")
        self.said("1 of 3: Rain, rain, go away.")
        self.corvane.keys("F3")
        self.said("2 of 3: Rain, rain, go away.")
        self.corvane.keys("F3")
        self.said("3 of 3: The rain is gone.")
        self.corvane.keys("F3")
        self.said("From the beginning. 1 of 3: Rain, rain, go away.")
        self.corvane.keys("shift+F3")
        self.said("From the end. 3 of 3: The rain is gone.")

    def test_not_found(self):
        self.opened(self.base + "/rhyme.html")
        self.find("snow")
        self.said("Not found: snow")
        self.find("day", before="snow")
        self.said("1 of 1: Come again another day.")

    def test_zoom(self):
        self.opened(self.base + "/rhyme.html")
        self.corvane.keys("ctrl+plus", "ctrl+plus", "ctrl+minus", "ctrl+0")
        self.said("110 percent", "120 percent", "110 percent", "100 percent")

    def test_full_screen_is_told_and_left_with_escape(self):
        self.opened(self.base + "/full-screen.html")
        self.corvane.focus_page()
        self.corvane.keys("Tab", "space")
        self.said("Full screen. Press Escape to leave it.")
        self.corvane.keys("Escape")
        self.said("Full screen. Press Escape to leave it.", "Full screen is over.")
        self.assert_alive()

    def test_leaving_is_asked_when_the_window_is_closed_but_only_once(self):
        self.opened(self.base + "/leave.html")
        self.corvane.focus_page()
        self.corvane.keys("Tab")
        self.corvane.type("unsaved")
        self.corvane.transcript.mark()
        self.corvane.keys("alt+F4")
        self.said("Leave this page? The page 127.0.0.1 asks whether you want to leave it. "
                  "What you have entered there may be lost. Leave Button")
        self.corvane.keys("Tab")
        self.said("Stay Button")
        self.corvane.keys("Return")
        wait_until(lambda: "Leave this page?" not in self.corvane.window_names(), "the end of the question")
        self.assertIsNone(self.corvane.process.poll())
        self.assertEqual(self.corvane.close(), 0)

    def test_leaving_the_page_by_closing_the_window(self):
        self.opened(self.base + "/leave.html")
        self.corvane.focus_page()
        self.corvane.keys("Tab")
        self.corvane.type("unsaved")
        self.corvane.keys("ctrl+w")
        self.heard_that(lambda said: said.startswith("Leave this page? "))
        self.corvane.keys("Return")
        self.assertEqual(self.corvane.process.wait(60), 0)

    def test_tab_leaves_a_page_that_hangs(self):
        self.opened(self.base + "/hang-on-tab.html")
        self.corvane.focus_page()
        self.corvane.transcript.mark()
        self.corvane.keys("Tab")
        wait_until(lambda: self.corvane.focused_name() == "Text", "the control behind the page")
        self.corvane.keys("F6")
        wait_until(lambda: self.corvane.focused_name() == "Address", "the next area")
        self.assertNotIn("Link The weather", self.corvane.transcript.spoken())
        self.corvane.open(self.base + "/weather.html")
        # Who is slow hears before that the page does not answer.
        self.said("Extracting Links ...", "Done", "The weather")


class Printing(Hearing):
    def setUp(self):
        super().setUp()
        self.config = pathlib.Path(self.home) / "config/gtk-3.0"
        self.config.mkdir(parents=True)

    def backends(self, names):
        (self.config / "settings.ini").write_text(f"[Settings]\ngtk-print-backends={names}\n")

    def print_page(self, folder):
        """Opens the dialog, with a file in the folder for a printer, and goes to the
        printer."""
        self.backends("file")
        (self.config.parent / "user-dirs.dirs").write_text(f'XDG_DOWNLOAD_DIR="{folder}"\n')
        self.opened(self.base + "/rhyme.html")
        self.corvane.transcript.mark()
        self.corvane.keys("ctrl+p")
        self.said("Print. General tab")
        self.corvane.keys("Tab")
        self.said("Printer, list, Print to File")

    def tab_to(self, fits):
        """Presses Tab until what is said fits, and returns that."""
        for _ in range(10):
            self.corvane.press_and_hear("Tab")
            said = self.corvane.transcript.spoken()[-1]
            if fits(said):
                return said
        raise AssertionError(f"Tab led nowhere: {self.corvane.transcript.spoken()}")

    def test_a_page_is_printed_into_a_file(self):
        folder = pathlib.Path(self.home) / "Printed"
        folder.mkdir()
        self.print_page(folder)
        self.corvane.keys("Return")
        self.said(f"Printed into {folder}/A rhyme.pdf")
        self.assertEqual((folder / "A rhyme.pdf").read_bytes()[:5], b"%PDF-")
        self.assert_alive()

    def test_each_part_of_the_dialog_says_name_kind_and_value(self):
        folder = pathlib.Path(self.home) / "Printed"
        self.print_page(folder)
        file = self.tab_to(lambda said: said.endswith("A rhyme.pdf Button"))
        self.assertTrue(file.startswith("File, "), file)
        self.tab_to(lambda said: said == "Output format, PDF, choice, chosen")
        self.tab_to(lambda said: said == "Range, All Pages, choice, chosen")
        self.tab_to(lambda said: said == "Cancel Button")
        self.tab_to(lambda said: said == "Print Button")
        self.tab_to(lambda said: said == "General tab")
        self.corvane.press_and_hear("Right")
        self.said("Page Setup tab")
        self.corvane.keys("Escape")
        wait_until(lambda: "Print" not in self.corvane.window_names(), "the end of the dialog")
        self.assertEqual(list(folder.glob("*")), [])

    def test_another_file_is_chosen_for_a_printed_page(self):
        folder = pathlib.Path(self.home) / "Printed"
        folder.mkdir()
        self.print_page(folder)
        self.tab_to(lambda said: said.endswith("A rhyme.pdf Button"))
        self.corvane.keys("space")
        self.said("Select a filename. Name, edit box, A rhyme.pdf")
        self.corvane.keys("ctrl+a")
        self.corvane.type("mine.pdf")
        self.corvane.keys("Return")
        self.heard_that(lambda said: said.endswith("mine.pdf Button"))
        self.tab_to(lambda said: said == "Print Button")
        self.corvane.keys("Return")
        self.said(f"Printed into {folder}/mine.pdf")
        self.assertEqual((folder / "mine.pdf").read_bytes()[:5], b"%PDF-")

    def test_a_folder_that_vanishes_before_the_page_is_printed_is_told(self):
        folder = pathlib.Path(self.home) / "Printed"
        folder.mkdir()
        self.print_page(folder)
        folder.rmdir()
        self.corvane.keys("Return")
        self.heard_that(lambda said: said.startswith("The page could not be printed: "))
        self.assertFalse(any(said.startswith("Printed") for said in self.corvane.transcript.spoken()))
        self.assert_alive()

    def test_a_full_disk_is_told(self):
        folder = pathlib.Path(self.home) / "Printed"
        folder.mkdir()
        mount = ["mount", "-t", "tmpfs", "-o", "size=4k", "tmpfs", str(folder)]
        if subprocess.run(mount, stderr=subprocess.DEVNULL).returncode:
            raise unittest.SkipTest("no small disk can be mounted here")
        self.addCleanup(subprocess.run, ["umount", "--lazy", str(folder)], check=True)
        self.print_page(folder)
        self.corvane.keys("Return")
        self.heard_that(lambda said: said.startswith("The page could not be printed: "))
        self.assertFalse(any(said.startswith("Printed") for said in self.corvane.transcript.spoken()))
        self.assert_alive()

    def test_no_printer_is_told(self):
        self.backends("lpr-is-not-here")
        self.opened(self.base + "/rhyme.html")
        self.corvane.keys("ctrl+p")
        self.said("No printer was found")
        wait_until(lambda: "Print" not in self.corvane.window_names(), "the end of the dialog")
        self.assert_alive()
