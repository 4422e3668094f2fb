"""The Debian package, from its making to its removal."""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCE = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(os.environ.get("CORVANE_BUILD", SOURCE / "build"))
VERSION = os.environ.get("CORVANE_VERSION", "0.1.0")
sys.path.insert(0, str(SOURCE / "tests/e2e"))

import harness  # noqa: E402  (its folder must be known first)


def run(*command, **named):
    result = subprocess.run([str(part) for part in command], capture_output=True, text=True, **named)
    if result.returncode != 0:
        raise AssertionError(f"{command}:\n{result.stdout}\n{result.stderr}")
    return result.stdout


def setUpModule():
    global work, deb, root
    work = pathlib.Path(tempfile.mkdtemp(prefix="corvane-package-"))
    os.chmod(work, 0o755)
    run("cpack", "--config", BUILD / "CPackConfig.cmake", "-B", work / "packed")
    deb, = (work / "packed").glob("*.deb")
    root = work / "root"
    run("dpkg-deb", "-x", deb, root)


def tearDownModule():
    shutil.rmtree(work, ignore_errors=True)


class Contents(unittest.TestCase):
    def test_it_is_named_after_its_version(self):
        architecture = run("dpkg", "--print-architecture").strip()
        self.assertEqual(deb.name, f"corvane_{VERSION}_{architecture}.deb")

    def test_command_leads_to_the_program_with_its_data_beside_it(self):
        command = root / "usr/bin/corvane"
        self.assertEqual(os.readlink(command), "../lib/corvane/corvane")
        for name in ("corvane", "corvane-pdf", "talker.acf", "talker-idle.svg", "talker-speaking.svg"):
            self.assertTrue((root / "usr/lib/corvane" / name).is_file(), name)
        self.assertTrue(list((root / "usr/lib/corvane/web-process").glob("*.so")))
        help_text = SOURCE / "data/cvhelp.txt"
        self.assertEqual((root / "usr/lib/corvane/cvhelp.txt").exists(), help_text.exists())

    def test_system_defaults_switch_speech_on_and_can_be_changed_by_the_administrator(self):
        self.assertIn("Speech=True", (root / "etc/xdg/corvane/Corvane.ini").read_text())
        run("dpkg-deb", "-e", deb, work / "control")
        self.assertEqual((work / "control/conffiles").read_text(), "/etc/xdg/corvane/Corvane.ini\n")

    def test_desktop_entry_is_valid_and_opens_web_addresses_and_files(self):
        entry = root / "usr/share/applications/org.corvane.Corvane.desktop"
        self.assertNotIn("warning", run("desktop-file-validate", entry))
        text = entry.read_text()
        self.assertIn("Exec=corvane %u\n", text)
        for kind in ("http", "https", "file"):
            self.assertIn(f"x-scheme-handler/{kind};", text)

    def test_metainfo_is_valid(self):
        run("appstreamcli", "validate", "--no-net", root / "usr/share/metainfo/org.corvane.Corvane.metainfo.xml")

    def test_manual_page_has_no_warnings(self):
        page = root / "usr/share/man/man1/corvane.1.gz"
        result = subprocess.run(["man", "--warnings", "-l", str(page)], capture_output=True, text=True,
                                env=dict(os.environ, MANROFFSEQ="", MANWIDTH="80", LC_ALL="C.UTF-8"))
        self.assertEqual(result.stderr, "")
        self.assertIn(VERSION, result.stdout)

    def test_bus_service_starts_the_installed_command(self):
        service = (root / "usr/share/dbus-1/services/org.corvane.Corvane.service").read_text()
        self.assertEqual(service, "[D-BUS Service]\nName=org.corvane.Corvane\nExec=/usr/bin/corvane\n")

    def test_debian_finds_no_fault(self):
        result = subprocess.run(["lintian", "--allow-root", "--fail-on", "error,warning", str(deb)],
                                capture_output=True, text=True)
        self.assertEqual(result.returncode, 0, result.stdout + result.stderr)


class Use(harness.EndToEndTest):
    def test_it_is_installed_started_and_removed(self):
        """Into a root of its own, with a package database of its own."""
        if os.getuid() != 0:
            self.skipTest("only root can install a package")
        clean = work / "clean"
        for folder in ("var/lib/dpkg/info", "var/lib/dpkg/updates", "var/log"):
            (clean / folder).mkdir(parents=True)
        (clean / "var/lib/dpkg/status").touch()
        before = self.files(clean)
        dpkg = ["dpkg", f"--root={clean}", "--log=/dev/null", "--force-depends", "--force-not-root"]
        run(*dpkg, "--install", deb)
        self.start_from(clean)
        self.corvane.close()
        run(*dpkg, "--purge", "corvane")
        self.assertEqual(self.files(clean) - before, set())

    @staticmethod
    def files(folder):
        """What is not dpkg's own."""
        return {path.relative_to(folder) for path in folder.rglob("*") if "dpkg" not in path.parts}

    def start_from(self, folder):
        """Starts the command in that root: it speaks from its first start and reads a page."""
        self.addCleanup(setattr, harness, "PROGRAM", harness.PROGRAM)
        harness.PROGRAM = folder / "usr/bin/corvane"
        corvane = self.start(environment={"XDG_CONFIG_DIRS": str(folder / "etc/xdg")})
        self.read("/weather.html")
        self.said("The weather")
        maps = pathlib.Path(f"/proc/{corvane.process.pid}/maps").read_text()
        self.assertIn(str(folder / "usr/lib/corvane/corvane"), maps)

    def test_pages_that_block_scripts_are_read_by_the_installed_page_part(self):
        self.start_from(root)
        self.read("/no-scripts")
        self.said("No scripts here")

    def test_what_it_needs_is_in_debian(self):
        depends = run("dpkg-deb", "-f", deb, "Depends")
        self.assertIn("libwebkit2gtk-4.1-0", depends)
        run("apt-get", "satisfy", "--simulate", depends)


if __name__ == "__main__":
    unittest.main()
