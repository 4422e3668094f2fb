"""The desktop logs out, or the terminal goes: the windows close by themselves."""
import signal

from harness import EndToEndTest, wait_until

QUIET = {"Corvane": {"Speech": "True"}, "pnlBrowser": {"SideBar": "2", "Focus": "0", "Home": "3"}}


class SessionEnd(EndToEndTest):
    def open_two_windows(self):
        """The second shows a page that would ask before it is left."""
        corvane = self.start(settings=QUIET)
        corvane.transcript.mark()
        corvane.keys("ctrl+n")
        wait_until(lambda: corvane.window_names().count("Corvane") == 2, "the second window")
        self.said("Corvane home page")  # one that still comes would write over the address
        corvane.keys("ctrl+l")
        wait_until(lambda: corvane.focused_name() == "Address", "the address box")
        corvane.keys("ctrl+a")
        corvane.type(self.base + "/leave.html")
        corvane.transcript.mark()
        corvane.keys("Return")
        self.said("A page that is not left easily")
        corvane.focus_page()
        corvane.keys("Tab")
        corvane.type("unsaved")
        return corvane

    def ends(self, corvane, number):
        corvane.process.send_signal(number)
        self.assertEqual(corvane.process.wait(60), 0)
        self.assertIn(f"StartingAddress={self.base}/leave.html", corvane.settings("pnlBrowser"))
        for key in ("MainLeft", "MainTop", "MainWidth", "MainHeight"):
            self.assertIn(key + "=", corvane.settings("Corvane"))
        self.assertNotIn("CRITICAL", corvane.log_text())

    def test_logging_out_closes_all_windows_without_a_question_and_keeps_what_they_were(self):
        corvane = self.open_two_windows()
        self.ends(corvane, signal.SIGTERM)
        self.assertNotIn("Leave this page?", " ".join(corvane.transcript.spoken()))

    def test_terminal_that_goes_closes_them_too_also_behind_a_dialog(self):
        corvane = self.open_two_windows()
        corvane.keys("ctrl+f")
        wait_until(lambda: "Find in page" in corvane.window_names(), "a dialog")
        self.ends(corvane, signal.SIGHUP)


if __name__ == "__main__":
    import unittest

    unittest.main()
