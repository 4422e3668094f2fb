"""Documents (PDF) that a link or an address leads to are pages like any other: read, gone
through by letters, left and come back to."""
import pathlib
import subprocess
import sys
import unittest

from harness import SOURCE, wait_until
from text_pane import IN_TEXT, TextPaneTest

sys.path.append(str(SOURCE / "tests/documents"))
import make_documents  # noqa: E402  (its folder must be known first)


class Documents(TextPaneTest):
    def setUp(self):
        super().setUp()
        self.server.documents = pathlib.Path(self.home) / "documents"
        make_documents.make(self.server.documents)

    def begin(self, page, title, part):
        """Opens a page and waits until that part of it stands in the text."""
        corvane = self.start(settings=IN_TEXT)
        self.read(page)
        self.said(title)
        self.in_text(part)
        self.quiet()
        return corvane

    def in_text(self, part):
        wait_until(lambda: self.corvane.focused_name() == "Text", "the text pane")
        wait_until(lambda: part in self.corvane.text_of("Text"), f"{part!r} in the text")

    def heard(self, beginning):
        """Waits for a sentence of which only the beginning is known."""
        wait_until(lambda: any(said.startswith(beginning) for said in self.corvane.transcript.spoken()),
                   beginning)

    def readers(self):
        """The program's processes that read a document."""
        parent = str(self.corvane.process.pid)
        return subprocess.run(["pgrep", "-x", "-P", parent, "corvane-pdf"], capture_output=True).stdout.split()

    def address(self):
        return self.corvane.text_of("Address")

    def test_a_link_leads_to_a_document_that_letters_lead_through(self):
        corvane = self.begin("/documents.html", "Papers", "Papers of the house")
        self.walk(("k", "Opening hours, link"))
        corvane.transcript.mark()
        corvane.keys("Return")
        self.said("Working...", "Extracting Links ...", "Done", "Opening hours & more")
        self.in_text("Leave the dog")
        self.quiet()
        self.assertEqual(self.address(), self.base + "/documents/tagged.pdf")
        self.walk(
            ("h", "Opening hours, heading level 1"),
            ("h", "Prices, heading level 2"),
            ("t", "table, 3 rows, 2 columns"),
            ("l", "list of 2"),
            ("i", "Bring a coat., list item"),
            ("k", "Our site, link"),
            ("d", "Page 2, region"),
            ("d", "Page 3, region"),
            ("h", "The map, heading level 1"),
            ("h", "No next heading"),
        )
        corvane.transcript.mark()
        corvane.keys("alt+Left")
        self.said("Papers", "Opening hours, visited link")
        self.assertEqual(self.readers(), [])

    def test_a_link_within_leads_to_its_place_and_alt_left_back(self):
        corvane = self.begin("/documents/report.pdf", "Yearly report", "The end.")
        self.walk(("k", "Go to the second part, link"))
        corvane.transcript.mark()
        corvane.keys("Return")
        self.said("Second part")
        self.quiet()
        self.assertEqual(corvane.transcript.spoken(), ["Second part"])
        self.walk(("Down", "blank"), ("Down", "The end."))
        corvane.transcript.mark()
        corvane.keys("alt+Left")
        wait_until(lambda: self.address() == self.base + "/documents/report.pdf", "the address")

    def test_an_attachment_is_asked_for(self):
        corvane = self.begin("/documents.html", "Papers", "Papers of the house")
        corvane.transcript.mark()
        corvane.open(self.base + "/attached/tagged.pdf")
        self.heard("Download. Save a file from 127.0.0.1?")

    def test_a_password_is_asked_for(self):
        corvane = self.start(settings=IN_TEXT)
        corvane.transcript.mark()
        corvane.open(self.base + "/documents/locked.pdf")
        wait_until(lambda: "Password" in corvane.window_names(), "a question")
        self.heard("Password. The document locked.pdf asks for a password.")
        corvane.type("wrong")
        corvane.keys("Return")
        self.heard("Password. The password was not right. The document locked.pdf asks")
        wait_until(lambda: "Password" in corvane.window_names(), "a question")
        corvane.transcript.mark()
        corvane.type("open sesame")
        corvane.keys("Return")
        self.said("Extracting Links ...", "Done", "Yearly report")
        self.assertFalse([said for said in corvane.transcript.spoken() if "sesame" in said])

    def test_without_the_password_and_of_broken_files_a_page_tells(self):
        corvane = self.start(settings=IN_TEXT)
        corvane.transcript.mark()
        corvane.open(self.base + "/documents/locked.pdf")
        wait_until(lambda: "Password" in corvane.window_names(), "a question")
        corvane.keys("Escape")
        self.said("Extracting Links ...", "Done", "The document is locked: locked.pdf")
        self.in_text("can be read only with its password")
        corvane.transcript.mark()
        corvane.open(self.base + "/documents/broken.pdf")
        self.said("Extracting Links ...", "Done", "The document cannot be read: broken.pdf")
        self.in_text("is damaged, or it is no PDF document.")

    def test_a_document_of_the_disk_opens_by_its_path(self):
        corvane = self.start(settings=IN_TEXT)
        corvane.transcript.mark()
        corvane.open(str(self.server.documents / "scanned.pdf"))
        self.said("Extracting Links ...", "Done")
        self.in_text("Words after all.")
        self.assertIn("Page 1 is a picture without text.", corvane.text_of("Text"))

    def test_stop_ends_the_wait_for_a_document_without_end(self):
        corvane = self.begin("/documents.html", "Papers", "Papers of the house")
        corvane.transcript.mark()
        corvane.open(self.base + "/endless-document")
        self.said("Working...", "Working...")
        corvane.button("Stop")
        self.said("Done")
        self.read("/documents/tagged.pdf")
        self.said("Opening hours & more")


if __name__ == "__main__":
    unittest.main()
