"""The side bar's tree of what the rendering control tells assistive technologies."""
import os
import pathlib
import subprocess
import tempfile

from harness import EndToEndTest, wait_until

TREE = {"Corvane": {"Speech": "True"}, "pnlBrowser": {"SideBar": "5", "Focus": "0"}}
ROOT = "HTML_Internet Explorer document"


class AccessibilityTree(EndToEndTest):
    def walk(self, *keys):
        """Presses keys in the tree, one after the other; returns what was spoken
        after each. A page that is slow lets the user wait on a node of its own."""
        heard = []
        for key in keys:
            self.corvane.transcript.mark()
            self.corvane.keys(key)
            wait_until(lambda: [w for w in self.corvane.transcript.spoken() if w != "Working... "],
                       "words for " + key)
            heard.append(self.corvane.transcript.spoken()[-1])
        return heard

    def open_tree(self, path):
        corvane = self.start(settings=TREE)
        self.read(path)
        wait_until(lambda: self.rows()[:1] == [ROOT], "the tree")
        corvane.transcript.mark()
        corvane.focus("Sidebar")
        self.said(ROOT + " Sidebar Item")
        return corvane

    def rows(self):
        """The rows of the tree that other readers see."""
        tree = self.corvane.find("Sidebar")
        if tree is None:
            return []
        names = [node.get_name() for node in self.corvane.accessibles(tree)]
        return [name for name in names if name and name != "Sidebar"]

    def test_page_is_walked_with_the_keyboard(self):
        corvane = self.open_tree("/elements.html")
        self.assertEqual(
            self.walk("Right", "Down", "Down", "Down", "Right", "Down", "Down"),
            [
                ROOT + " Opened",
                "The village heading ",
                "All that can be known of it. text ",
                "text Closed",
                "text Opened",
                "The weather link ",
                "grouping Closed",
            ],
        )
        self.assertEqual(
            self.walk("Right", "Down", "Down", "Down"),
            ["grouping Opened", "Your name text ", "Your name ", "Send push button "],
        )
        if "CORVANE_PICTURES" in os.environ:
            corvane.screenshot(pathlib.Path(os.environ["CORVANE_PICTURES"]) / "accessibility-tree.png")

    def test_link_is_followed_from_its_node(self):
        corvane = self.open_tree("/elements.html")
        self.walk("Right", "Down", "Down", "Down", "Right")
        self.assertEqual(self.walk("Down"), ["The weather link "])
        corvane.transcript.mark()
        corvane.keys("F1")
        self.said(self.base + "/weather.html")
        corvane.transcript.mark()
        corvane.keys("Return")
        self.said("Done", "Extracting Data ...", "Extracting Forms ...", "The weather")
        self.assertEqual(corvane.text_of("Address"), self.base + "/weather.html")

    def test_escape_shows_the_page_as_it_is_now(self):
        corvane = self.open_tree("/elements.html")
        self.walk("Right", "Down")
        corvane.transcript.mark()
        corvane.keys("Escape")
        wait_until(lambda: self.rows() == [ROOT], "the tree anew")
        self.said(ROOT + " Sidebar Item")
        self.assertEqual(self.walk("Right"), [ROOT + " Opened"])

    def test_roles_are_named_in_the_users_language(self):
        root = "HTML_Internet Explorer Internetseite"
        corvane = self.start(settings=TREE, environment={"LANGUAGE": "de", "LC_ALL": "C.UTF-8"})
        self.read("/elements.html")
        wait_until(lambda: self.rows()[:1] == [root], "the tree")
        corvane.transcript.mark()
        corvane.focus("Sidebar")
        self.said(root + " Sidebar Item")
        self.assertEqual(
            self.walk("Right", "Down", "Down", "Down", "Right", "Down"),
            [
                root + " Opened",
                "The village Überschrift ",
                "All that can be known of it. Beschriftung ",
                "Beschriftung Closed",
                "Beschriftung Opened",
                "The weather Verknüpfung ",
            ],
        )

    def test_stale_address_of_a_bus_harms_nothing(self):
        corvane = self.start(settings=TREE, environment={"AT_SPI_BUS_ADDRESS": "unix:path=/nonexistent/bus"})
        self.read("/elements.html")
        wait_until(lambda: self.rows()[:1] == [ROOT], "the tree over the session's own bus")
        self.assertIsNone(corvane.process.poll())

    def test_bus_that_dies_while_the_tree_is_shown_is_said(self):
        folder = tempfile.TemporaryDirectory(prefix="corvane-bus-", ignore_cleanup_errors=True)
        self.addCleanup(folder.cleanup)
        address = f"unix:path={folder.name}/bus"
        bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--address=" + address])
        self.addCleanup(bus.wait)
        self.addCleanup(bus.kill)
        wait_until(lambda: os.path.exists(folder.name + "/bus"), "the bus")
        corvane = self.start(settings=TREE, wait=False, environment={"AT_SPI_BUS_ADDRESS": address})
        self.said("Corvane home page")
        bus.kill()
        self.said("Accessibility has ended: its service is gone.")
        corvane.transcript.mark()
        corvane.keys("Tab", "Tab")
        wait_until(corvane.transcript.spoken, "a word after it")
        self.assertIsNone(corvane.process.poll())
