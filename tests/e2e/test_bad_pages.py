"""Broken and huge pages: each has an outcome that can be heard."""
from page_test import QUIET, PageTest, wait_until


class BadPages(PageTest):
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
