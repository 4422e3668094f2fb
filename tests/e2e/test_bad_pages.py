"""Ugly, huge, hostile and broken pages: each has an outcome that can be heard."""
import os
import signal
import subprocess

from harness import EndToEndTest, wait_until

QUIET = {"Corvane": {"Speech": "True"}, "pnlBrowser": {"SideBar": "2", "Focus": "0"}}


class BadPages(EndToEndTest):
    def opened(self, address):
        """Opens an address and returns the title that was spoken last."""
        corvane = self.corvane or self.start(settings=QUIET)
        corvane.transcript.mark()
        corvane.open(address)
        self.said("Extracting Links ...", "Done")
        return wait_until(lambda: self.title(), "a title")

    def title(self):
        spoken = self.corvane.transcript.spoken()
        last_done = len(spoken) - 1 - spoken[::-1].index("Done")
        return spoken[last_done + 1] if len(spoken) > last_done + 1 else None

    def text(self):
        return self.corvane.text_of("Text")

    def assert_alive(self):
        self.assertIsNone(self.corvane.process.poll())
        self.assertEqual(self.opened(self.base + "/weather.html"), "The weather")

    def test_addresses_that_are_no_addresses(self):
        for address in ["http://", "nosuchscheme://x", "http://[::1", "javascript:alert(1)", "a b c d"]:
            with self.subTest(address=address):
                title = self.opened(address)
                self.assertTrue(title)
                self.assertGreater(len(self.text()), len(title))
        self.assert_alive()

    def test_empty_address(self):
        self.start(settings=QUIET)
        self.corvane.focus("Address")
        self.corvane.keys("ctrl+a", "Delete")
        self.corvane.transcript.mark()
        self.corvane.keys("Return")
        self.said("Extracting Links ...", "Done")
        self.assertTrue(wait_until(lambda: self.title(), "a title"))
        self.assert_alive()

    def test_unknown_host(self):
        title = self.opened("http://does-not-exist.invalid/")
        self.assertIn("does-not-exist.invalid", title)
        self.assert_alive()

    def test_refused_connection_and_missing_file(self):
        self.assertTrue(self.opened("http://127.0.0.1:1/"))
        self.assertTrue(self.opened("/no/such/file.html"))
        self.assert_alive()

    def test_page_the_server_does_not_have(self):
        self.assertEqual(self.opened(self.base + "/nowhere"), "Not here")

    def test_no_body_and_no_title(self):
        self.start(settings=QUIET)
        self.corvane.transcript.mark()
        self.corvane.open(self.base + "/no-body.html")
        self.said("Extracting Links ...", "Done")
        self.corvane.transcript.mark()
        self.corvane.open(self.base + "/no-title.html")
        self.said("Extracting Links ...", "Done")
        wait_until(lambda: "A page that has no title at all." in self.text(), "the page's text")
        self.assert_alive()

    def test_broken_text(self):
        self.assertIn("text", self.opened(self.base + "/broken-text"))
        self.assertIn("\ufffd", self.text())

    def test_right_to_left(self):
        self.assertEqual(self.opened(self.base + "/right-to-left.html"), "שלום עולם")
        self.assertIn("ברוכים הבאים", self.text())
        self.corvane.focus("Links")
        self.corvane.transcript.mark()
        self.corvane.keys("Down")
        self.said("דף הבית")

    def test_endless_redirects(self):
        self.assertTrue(self.opened(self.base + "/redirects/"))
        self.assert_alive()

    def test_fifty_thousand_links(self):
        self.assertEqual(self.opened(self.base + "/links/50000"), "50000 links")
        self.assertIn("50000 Links in 50000 links", self.corvane.transcript.spoken())
        self.corvane.focus("Links")
        self.corvane.transcript.mark()
        self.corvane.keys("Down", "Down")
        self.said("Link number 1", "Link number 2")

    def test_ten_megabytes_of_text(self):
        self.assertEqual(self.opened(self.base + "/megabytes/10"), "10 megabytes")
        self.assert_alive()

    def test_one_line_of_two_megabytes(self):
        self.assertEqual(self.opened(self.base + "/one-line/2"), "2 megabytes")
        self.corvane.focus("Text")
        self.corvane.keys("Down", "Down", "End")
        self.assert_alive()

    def test_alert_is_closed_and_spoken_in_the_message_box(self):
        self.assertEqual(self.opened(self.base + "/alert.html"), "One alert")
        self.said("Your session ends soon")
        wait_until(lambda: "Message Box" in self.corvane.window_names(), "the message box")
        self.corvane.keys("Escape")
        wait_until(lambda: "Message Box" not in self.corvane.window_names(), "the box to go")
        self.assert_alive()

    def test_alerts_in_a_loop_do_not_hold_the_user(self):
        self.opened(self.base + "/alerts.html")
        wait_until(lambda: any(text.startswith("Alert ") for text in self.corvane.transcript.spoken()), "an alert")
        self.corvane.keys("Escape")
        wait_until(lambda: "Message Box" not in self.corvane.window_names(), "the box to go")
        self.assert_alive()

    def test_script_that_never_ends_can_be_stopped(self):
        self.start(settings=QUIET)
        self.corvane.transcript.mark()
        self.corvane.open(self.base + "/endless.html")
        self.said("Working...", "Working...")
        self.corvane.transcript.mark()
        self.corvane.button("Stop")
        self.said("Extracting Links ...", "Done")
        self.assertTrue(wait_until(lambda: self.title(), "a title"))
        self.assert_alive()

    def test_page_process_that_dies_is_announced_and_refresh_brings_the_page_back(self):
        self.opened(self.base + "/weather.html")
        self.corvane.transcript.mark()
        children = subprocess.run(["pgrep", "-f", "WebKitWebProcess"], capture_output=True, text=True)
        mine = [int(pid) for pid in children.stdout.split() if self.descends(int(pid))]
        self.assertTrue(mine)
        os.kill(mine[-1], signal.SIGKILL)
        self.said("Extracting Links ...", "Done")
        self.assertTrue(wait_until(lambda: self.title(), "a title"))
        self.corvane.transcript.mark()
        self.corvane.button("Refresh")
        self.said("The weather")

    def descends(self, pid):
        """Whether a process is a descendant of the program under test."""
        while pid > 1:
            if pid == self.corvane.process.pid:
                return True
            try:
                with open(f"/proc/{pid}/stat") as stat:
                    pid = int(stat.read().rsplit(")", 1)[1].split()[1])
            except OSError:
                return False
        return False
