"""Files from the network: asked, told while they come and when they are there,
stopped by the user, by the server or for want of room."""
import pathlib
import subprocess
import unittest

from page_test import QUIET, FilesTest, wait_until


class Downloads(FilesTest):
    def setUp(self):
        super().setUp()
        self.server.gate.clear()
        self.addCleanup(self.server.gate.set)

    def download(self, path, size, name="data.zip"):
        """Asks for a file and saves it under the name that is proposed."""
        if self.corvane is None:
            self.start(settings=QUIET)
        self.corvane.transcript.mark()
        self.corvane.open(self.base + path)
        self.said(f"Download. Save a file from 127.0.0.1? Its size is {size}. File name, edit box, {name}")
        self.corvane.keys("Return")

    def goes_on(self):
        """The program goes on as if nothing had happened."""
        self.corvane.open(self.base + "/weather.html")
        self.said("The weather")

    def files(self):
        return {file.name: file.read_bytes() for file in self.folder.glob("*")}

    def test_asked_told_and_never_overwritten(self):
        self.download("/file/data.zip", "9 bytes")
        self.said("Download begins: data.zip", "Download finished: data.zip is in Downloads")
        self.assertEqual(self.files(), {"data.zip": b"/file/dat"})
        (self.folder / "data.zip").write_text("mine")
        self.download("/file/data.zip", "9 bytes")
        self.said("Download begins: data 2.zip", "Download finished: data 2.zip is in Downloads")
        self.assertEqual(self.files(), {"data.zip": b"mine", "data 2.zip": b"/file/dat"})

    def test_the_question_is_heard_to_its_end(self):
        self.start(settings=QUIET)
        self.corvane.open(self.base + "/weather.html")
        self.said("The weather")
        self.corvane.transcript.mark()
        self.corvane.open(self.base + "/file/data.zip")
        self.heard("Download. Save a file")
        events = self.corvane.transcript.events
        question = next(e["id"] for e in events() if e.get("text", "").startswith("Download. Save"))
        over = wait_until(lambda: next((e["event"] for e in events() if e.get("id") == question
                                        and e["event"] in ("end", "cut")), None), "its end")
        self.assertEqual(over, "end")
        self.assertNotIn("Extracting Links ...", self.corvane.transcript.spoken())

    def test_refused_with_escape(self):
        self.start(settings=QUIET)
        self.corvane.transcript.mark()
        self.corvane.open(self.base + "/file/data.zip")
        self.heard("Download. Save a file")
        self.corvane.keys("Escape")
        self.goes_on()
        self.assertEqual(self.files(), {})

    def test_progress_is_told_now_and_then_and_in_the_list(self):
        self.download("/slow-file/data.zip", "100.0 kB")
        self.said("Download begins: data.zip")
        progress = self.heard_that(lambda said: said.endswith(" percent of data.zip"))
        self.assertGreaterEqual(int(progress.split()[0]), 25)
        self.corvane.keys("ctrl+j")
        listed = self.heard("Downloads. 1 file is coming, 0 files are over. File, list, data.zip, ")
        self.assertTrue(listed.endswith(" percent of 100.0 kB, 1 of 1"), listed)
        self.corvane.keys("Escape")
        self.server.gate.set()
        self.said("Download finished: data.zip is in Downloads")
        self.assertEqual(len(self.files()["data.zip"]), 100_000)

    def test_stopped_by_the_user(self):
        self.download("/endless-file/data.zip", "100.0 kB")
        wait_until(lambda: len(self.files().get("data (not complete).zip", b"")) == 40_000, "the first part")
        self.corvane.keys("ctrl+j")
        self.said("Downloads. 1 file is coming, 0 files are over. File, list, data.zip, 40 percent of 100.0 kB, 1 of 1")
        self.corvane.keys("alt+s")
        self.said("Download stopped: data.zip. 40.0 kB of 100.0 kB came and are kept as data (not complete).zip.")
        wait_until(lambda: list(self.files()) == ["data (not complete).zip"], "what is kept alone")
        self.corvane.keys("ctrl+j")
        self.said("Downloads. 0 files are coming, 1 file is over. File, list, data.zip, stopped, 1 of 1")
        self.corvane.keys("Escape")
        self.goes_on()

    def test_stopped_halfway_by_the_server(self):
        self.download("/broken-file/data.zip", "100.0 kB")
        self.heard("Download failed: data.zip. ")
        self.assertNotIn("data.zip", self.files())
        self.goes_on()

    def test_a_folder_that_cannot_be_written(self):
        self.folder.write_text("a file where the folder should be")
        self.download("/file/data.zip", "9 bytes")
        self.heard("Download failed: data.zip. ")
        self.goes_on()

    def test_a_full_disk(self):
        self.folder.mkdir()
        mount = ["mount", "-t", "tmpfs", "-o", "size=64k", "tmpfs", str(self.folder)]
        if subprocess.run(mount, stderr=subprocess.DEVNULL).returncode:
            raise unittest.SkipTest("no small disk can be mounted here")
        self.addCleanup(subprocess.run, ["umount", str(self.folder)], check=True)
        self.server.gate.set()
        self.download("/slow-file/data.zip", "100.0 kB")
        self.heard("Download failed: data.zip. ")
        self.assertNotIn("data.zip", self.files())
        self.goes_on()
        self.corvane.kill()

    def test_the_folder_opens_in_another_program(self):
        programs = pathlib.Path(self.home) / "data/applications"
        programs.mkdir(parents=True)
        told = pathlib.Path(self.home) / "told"
        (programs / "files.desktop").write_text(
            "[Desktop Entry]\nType=Application\nName=Files\nMimeType=inode/directory;\n"
            f"Exec=sh -c 'echo \"$1\" > {told}' sh %f\n")
        (programs / "mimeapps.list").write_text("[Default Applications]\ninode/directory=files.desktop\n")
        self.download("/file/data.zip", "9 bytes")
        self.said("Download finished: data.zip is in Downloads")
        self.corvane.keys("ctrl+j")
        self.said("Downloads. 0 files are coming, 1 file is over. File, list, data.zip, finished, 1 of 1")
        self.corvane.keys("alt+o")
        wait_until(lambda: told.exists() and told.read_text().strip(), "the other program")
        self.assertEqual(told.read_text().strip(), str(self.folder))

    def test_no_program_for_folders(self):
        self.download("/file/data.zip", "9 bytes")
        self.said("Download finished: data.zip is in Downloads")
        self.corvane.keys("ctrl+j", "alt+o")
        self.said(f"No program could open the folder {self.folder}. OK Button")
