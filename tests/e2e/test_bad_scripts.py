"""Pages whose scripts or processes go wrong: the user is told and goes on."""
import os
import signal
import subprocess

from page_test import QUIET, PageTest, wait_until


class BadScripts(PageTest):
    def test_alert_is_closed_and_spoken_in_the_message_box(self):
        self.assertEqual(self.opened(self.base + "/alert.html"), "One alert")
        self.said("Your session ends soon")
        wait_until(lambda: "Message Box" in self.corvane.window_names(), "the message box")
        self.corvane.keys("Escape")
        wait_until(lambda: "Message Box" not in self.corvane.window_names(), "the box to go")
        self.assert_alive()

    def test_alerts_in_a_loop_do_not_hold_the_user(self):
        self.opened(self.base + "/alerts.html")
        for number in range(1, 6):  # what a page may show in a short time
            self.said(f"Alert {number}")
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
