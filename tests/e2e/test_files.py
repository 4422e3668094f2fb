"""Files that a page is saved to, and files that a page gets: chosen in the
program's own dialog, by ear."""
import pathlib
import threading

import web_server
from page_test import QUIET, FilesTest, wait_until


class Files(FilesTest):
    def save_as(self):
        self.corvane.transcript.mark()
        self.corvane.keys("alt+f", "s")
        return self.heard("Save as. Folder Downloads. ")

    def test_save_as_asks_where_and_the_file_opens_without_the_server(self):
        other = web_server.start()
        threading.Thread(target=other.serve_forever, daemon=True).start()
        self.opened(f"http://127.0.0.1:{other.server_address[1]}/rhyme.html")
        self.assertTrue(self.save_as().endswith("edit box, A rhyme.mhtml"))
        self.corvane.keys("Return")
        self.said(f"Saved as {self.folder}/A rhyme.mhtml")
        other.shutdown()
        self.assertEqual(self.opened(str(self.folder / "A rhyme.mhtml")), "A rhyme")
        self.assertIn("Come again another day.", self.text())

    def test_nothing_is_replaced_without_a_question(self):
        self.opened(self.base + "/rhyme.html")
        self.folder.mkdir()
        mine = self.folder / "A rhyme.mhtml"
        mine.write_text("mine")
        self.assertTrue(self.save_as().endswith("edit box, A rhyme 2.mhtml"))
        self.corvane.keys("ctrl+a")
        self.corvane.type("A rhyme")  # the ending comes by itself
        self.corvane.keys("Return")
        self.said("Replace. A rhyme.mhtml is there already. Replace it? No Button")
        self.corvane.keys("Return")
        wait_until(lambda: "Replace" not in self.corvane.window_names(), "the end of the question")
        self.assertEqual(mine.read_text(), "mine")
        self.corvane.transcript.mark()
        self.corvane.keys("Return")
        self.said("Replace. A rhyme.mhtml is there already. Replace it? No Button")
        self.corvane.keys("alt+y")
        self.said(f"Saved as {mine}")
        self.assertIn("Come again another day.", mine.read_text())

    def test_save_as_can_be_cancelled(self):
        self.opened(self.base + "/rhyme.html")
        self.save_as()
        self.corvane.keys("Escape")
        self.assert_alive()
        self.assertEqual(list(self.folder.glob("*")), [])

    def test_a_new_folder_is_made_while_saving(self):
        self.opened(self.base + "/rhyme.html")
        corvane = self.corvane
        self.save_as()
        for _ in range(20):
            corvane.transcript.mark()
            corvane.keys("Tab")
            wait_until(corvane.transcript.spoken, "a part of the dialog")
            if corvane.transcript.spoken() == ["Create Folder Button"]:
                break
        corvane.keys("space")
        self.said("Folder Name, edit box, empty")
        corvane.type("rhymes")
        corvane.keys("Return")
        self.said("Folder rhymes")
        self.assertTrue((self.folder / "rhymes").is_dir())
        corvane.transcript.mark()
        corvane.keys("F1")
        self.said("Save as. Folder rhymes. Create Folder Button")
        corvane.keys("Escape")
        self.gone("Save as")

    def gone(self, title):
        wait_until(lambda: title not in self.corvane.window_names(), "the end of " + title)

    def send(self, tabs):
        """Goes on from a field of the page to the button and presses it."""
        before = len(self.server.posted)
        self.corvane.keys(*["Tab"] * tabs, "space")
        wait_until(lambda: len(self.server.posted) > before, "the form")

    def open_upload_page(self):
        self.opened(self.base + "/upload.html")
        self.corvane.focus_page()
        self.corvane.transcript.mark()

    def test_a_page_gets_the_file_that_is_chosen(self):
        letter = pathlib.Path(self.home) / "letter.txt"
        letter.write_text("Dear Sir")
        self.open_upload_page()
        self.corvane.keys("Tab", "space")
        self.heard("Choose a file for the page. ")
        self.corvane.type(str(letter))
        self.corvane.keys("Return")
        self.gone("Choose a file for the page")
        self.send(2)
        self.assertIn(b'name="letter"; filename="letter.txt"', self.server.posted[-1])
        self.assertIn(b"Dear Sir", self.server.posted[-1])

    def test_a_page_gets_several_files(self):
        pictures = pathlib.Path(self.home) / "pictures"
        pictures.mkdir()
        for name in ("cat.png", "dog.png"):
            (pictures / name).write_text("picture of a " + name)
        self.start(settings=QUIET, folder=pictures)
        self.open_upload_page()
        self.corvane.keys("Tab", "Tab", "space")
        self.heard("Choose files for the page. Folder pictures. Files, list")
        self.corvane.keys("ctrl+a")
        self.said("2 files chosen")
        self.corvane.keys("Return")
        self.gone("Choose files for the page")
        self.send(1)
        for name in (b"cat.png", b"dog.png"):
            self.assertIn(b'name="pictures"; filename="' + name + b'"', self.server.posted[-1])
            self.assertIn(b"picture of a " + name, self.server.posted[-1])

    def test_a_page_gets_nothing_when_the_dialog_is_left(self):
        self.open_upload_page()
        self.corvane.keys("Tab", "space")
        self.heard("Choose a file for the page. ")
        self.corvane.keys("Escape")
        self.gone("Choose a file for the page")
        self.send(2)
        self.assertIn(b'name="letter"; filename=""', self.server.posted[-1])
