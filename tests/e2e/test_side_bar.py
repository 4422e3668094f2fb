"""The side bar's trees, walked with the keyboard."""
import os
import pathlib
import unittest

from harness import EndToEndTest, wait_until

FAVORITES, HISTORY, PAGE_STRUCTURE = 2, 3, 4
PICTURES = os.environ.get("CORVANE_PICTURES")  # a folder for pictures of the trees


class SideBar(EndToEndTest):
    def begin(self, content, title="Corvane home page", **settings):
        return self.start(
            settings={"Corvane": {"Speech": "True"}, "pnlBrowser": {"SideBar": str(content), "Focus": "0", **settings}},
            title=title,
        )

    def to_tree(self, words):
        self.corvane.focus("Sidebar")
        self.said(words)
        self.corvane.transcript.mark()

    def press(self, keys, *expected):
        """Presses keys and expects exactly these words."""
        self.corvane.transcript.mark()
        self.corvane.keys(*keys.split())
        self.said(*expected)
        self.assertEqual(self.corvane.transcript.spoken(), list(expected))

    def picture(self, name):
        if PICTURES:
            self.corvane.screenshot(pathlib.Path(PICTURES) / name)

    def file(self, path, content):
        file = pathlib.Path(self.home) / "data/corvane" / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(content)
        return file

    def shortcut(self, path, address):
        return self.file(path, f"[InternetShortcut]\r\nURL={address}\r\n")

    # Favorites -----------------------------------------------------------------

    def test_favorites_are_walked_and_followed(self):
        weather = self.shortcut("Favorites/The weather.url", self.base + "/weather.html")
        self.shortcut("Favorites/News/Local.url", self.base + "/start.html")
        self.shortcut("Favorites/Trap.url", "javascript:alert(1)")
        self.shortcut("Favorites/Void.url", "")
        self.file("Favorites/Kept.desktop", "[Desktop Entry]\nType=Link\nName=A kept page\n"
                  f"URL={self.base}/page/7\n")
        self.begin(FAVORITES)
        self.to_tree("Favorites Sidebar Item")
        self.press("Right", "Favorites Opened")
        self.press("Right", "News Closed")
        self.press("Return", "News Opened")
        self.press("Right", "Local ")
        self.press("Down", "A kept page ")
        self.press("Down", "The weather ")
        self.press("F1", str(weather))
        self.picture("favorites-tree.png")
        self.press("Down", "Trap ")
        self.press("Return", "Address refused: javascript:alert(1)")
        self.press("Down", "Void ")
        self.press("Return", "No address in Void")
        self.corvane.keys("Up", "Up")
        self.said("The weather ")
        self.corvane.keys("Return")
        self.said("1 Links in The weather", "The weather")
        self.corvane.keys("Up", "Return")
        self.said("A kept page ", "Page 7")

    def test_page_is_kept_renamed_and_removed(self):
        corvane = self.begin(FAVORITES)
        self.read("/weather.html")
        self.said("The weather")
        self.press("ctrl+d", "The weather added to Favorites")
        folder = pathlib.Path(self.home) / "data/corvane/Favorites"
        self.assertEqual((folder / "The weather.url").read_text(),
                         f"[InternetShortcut]\nURL={self.base}/weather.html\n")
        self.press("ctrl+d", "The weather is already in Favorites")

        self.to_tree("Favorites Sidebar Item")
        self.press("Right", "Favorites Opened")
        self.press("Right", "The weather ")
        self.press("F2", "Rename. Type a new name for The weather and press Enter. Name, edit box, The weather")
        corvane.type("Rain")
        corvane.transcript.mark()
        corvane.keys("Return")
        self.said("The weather renamed to Rain")
        wait_until(lambda: corvane.focused_name() == "Sidebar", "the focus back in the tree")
        self.assertTrue((folder / "Rain.url").exists())
        self.press("F1", str(folder / "Rain.url"))

        self.press("Delete ctrl+Delete", "Press Control Delete again to remove Rain")
        self.press("ctrl+Delete", "Rain removed. Favorites Sidebar Item")
        self.assertEqual(list(folder.iterdir()), [])

    def test_bookmarks_of_another_browser_are_taken_over(self):
        self.file("Favorites/exported.html",
                  "<!DOCTYPE NETSCAPE-Bookmark-file-1>\n<TITLE>Bookmarks</TITLE>\n<DL><p>\n"
                  "<DT><H3>Daily</H3>\n<DL><p>\n"
                  f'<DT><A HREF="{self.base}/weather.html">Weather &amp; wind</A>\n</DL><p>\n'
                  '<DT><A HREF="javascript:x">Trap</A>\n</DL><p>\n')
        self.begin(FAVORITES)
        self.to_tree("Favorites Sidebar Item")
        self.press("Right", "Favorites Opened")
        self.press("Right", "exported.html ")
        self.press("ctrl+i", "1 bookmark taken over into exported, 1 left out")
        self.press("Up", "exported Closed")
        self.press("Right", "exported Opened")
        self.press("Right", "Daily Closed")
        self.press("Right", "Daily Opened")
        self.press("Right", "Weather & wind ")
        self.corvane.keys("Return")
        self.said("1 Links in The weather", "The weather")

    def test_what_is_dropped_into_the_folder_appears_when_the_tree_is_made_anew(self):
        self.begin(FAVORITES)
        self.to_tree("Favorites Sidebar Item")
        self.press("Right", "Favorites ")
        self.shortcut("Favorites/Dropped in.url", self.base + "/weather.html")
        self.press("Escape", "Favorites Sidebar Item")
        self.press("Right", "Favorites Opened")
        self.press("Right", "Dropped in ")

    def test_search_page_finds_what_the_side_bar_shows(self):
        self.shortcut("Favorites/Cats one.URL", self.base + "/weather.html")
        self.file("Favorites/two.desktop", f"[Desktop Entry]\nType=Link\nName=Cats two\nURL={self.base}/page/7\n")
        self.file("Favorites/three.html", "<title>Cats &amp; three</title><p>Saved words.")
        corvane = self.start(settings={"Corvane": {"Speech": "True", "SearchService": ""},
                                       "pnlBrowser": {"SideBar": str(FAVORITES), "Focus": "0"}})
        found = (("Cats two", "Page 7"), ("Cats & three", "Cats & three"), ("Cats one", "The weather"))
        for to_first in (["Down"], ["Tab", "Tab"]):  # in the links list, in the page
            for line, (link, title) in enumerate(found):
                corvane.open("Search cats")
                self.said("Extracting Links ...", "Done", "Search for cats")
                corvane.focus("Links")
                corvane.transcript.mark()
                corvane.keys(*to_first, *to_first[-1:] * line)
                in_page = f"{'' if line else 'main, '}{link}, link"
                self.said(link if to_first == ["Down"] else in_page)
                corvane.keys("Return")
                self.said("Extracting Links ...", "Done", title)

    # History -------------------------------------------------------------------

    def test_history_is_walked_followed_and_forgotten(self):
        corvane = self.begin(HISTORY)
        self.read("/weather.html")
        self.said("The weather")
        self.to_tree("History Sidebar Item")
        self.press("Right", "History Opened")
        days = list((pathlib.Path(self.home) / "data/corvane/History").iterdir())
        self.assertEqual(len(days), 1)
        self.press("Right", f"{days[0].name} Closed")
        self.press("Right", f"{days[0].name} Opened")
        self.press("Right", "The weather ")
        self.press("F1", self.base + "/weather.html")
        self.picture("history-tree.png")
        corvane.keys("Return")
        self.said("1 Links in The weather", "The weather")
        self.press("ctrl+Delete", "Press Control Delete again to remove The weather")
        self.press("ctrl+Delete", f"The weather removed. {days[0].name} Sidebar Item")
        self.assertEqual(list(days[0].iterdir()), [])

    # Page structure --------------------------------------------------------------

    def test_structure_of_a_page_is_walked_to_any_depth(self):
        corvane = self.begin(PAGE_STRUCTURE)
        corvane.transcript.mark()
        corvane.open(self.base + "/structure.html")
        self.said("Done", "Extracting Data ...", "Extracting Forms ...", "Extracting Links ...", "Done",
                  "All kinds of things")
        self.to_tree("All kinds of things Sidebar Item")
        self.press("Right", "All kinds of things Opened")
        self.press("Right", "Links 3 Closed")
        self.press("Down", "Frames 1 Closed")
        self.press("Down", "Anchors 2 Closed")
        self.press("Down", "Forms 2 Closed")
        self.press("Right", "Forms 2 Opened")
        self.press("Right", "Contents Closed")
        self.press("Right", "Contents Opened")
        self.press("Right", " - user ")
        self.press("Down", " - go - Send it ")
        self.press("Down", "Contents ")
        self.corvane.keys("Left", "Up")
        self.said("Forms 2 Opened", "Anchors 2 Closed")
        self.press("Right", "Anchors 2 Opened")
        self.press("Right", "The beginning ")
        self.press("Down", "bare ")
        self.corvane.keys("Left", "Up")
        self.said("Anchors 2 Opened", "Frames 1 Closed")
        self.press("Right", "Frames 1 Opened")
        self.press("Right", "The weather Closed")
        self.press("Right", "The weather Opened")
        self.press("Right", "Links 1 Closed")
        self.picture("page-structure-tree.png")
        self.corvane.keys("Left", "Left", "Left", "Up")
        self.said("Links 3 Closed")
        self.press("Right", "Links 3 Opened")
        self.press("Right", "The weather ")
        self.press("Down", self.base + "/empty-link.html ")
        self.press("Down", "Secrets ")
        self.press("F1", "file:///etc/passwd")
        self.press("Return", "Address refused: file:///etc/passwd")
        self.corvane.keys("Up", "Up")
        self.said("The weather ")
        self.corvane.transcript.mark()
        self.corvane.keys("Return")
        self.said("Extracting Data ...", "1 Links in The weather", "The weather")
        self.press("Down", "The weather Closed")
        self.press("Right", "The weather Opened")

    def test_tree_is_made_anew_with_escape(self):
        self.begin(PAGE_STRUCTURE)
        self.read("/weather.html")
        self.said("The weather")
        self.to_tree("The weather Sidebar Item")
        self.press("Right", "The weather Opened")
        self.press("Escape", "The weather Sidebar Item")
        self.press("Left Right", "The weather Opened")

    def test_escape_shows_what_the_page_has_become(self):
        corvane = self.begin(PAGE_STRUCTURE)
        self.read("/growing.html")
        self.said("1 Links in Growing", "Growing")
        self.to_tree("Growing Sidebar Item")
        self.press("Right", "Growing Opened")
        self.press("Right", "Links 1 Closed")
        corvane.focus_page()
        wait_until(lambda: corvane.page().get_name() == "Grown", "the page with one link more")
        corvane.focus("Sidebar")
        self.press("Escape", "Grown Sidebar Item")
        self.press("Right", "Grown Opened")
        self.press("Right", "Links 2 Closed")
        self.press("Right", "Links 2 Opened")
        self.press("Right", "The first link ")
        self.press("Down", "A later link ")

    # Help --------------------------------------------------------------------------

    def test_help_is_walked_explained_and_left(self):
        corvane = self.begin(FAVORITES)
        corvane.transcript.mark()
        corvane.keys("alt+f", *["Right"] * 6, "Return")  # the first item of the last menu
        wait_until(lambda: corvane.focused_name() == "Sidebar", "the help")
        self.said("About this help Sidebar Item")
        self.press("Down", "Starting Closed")
        self.press("F1", "What happens first.")
        self.press("Right", "Starting Opened")
        self.press("Right", "The window ")
        self.press("Down", "The first page ")
        self.press("Return", "The Home choice in the Settings menu tells which page is opened first.")
        self.picture("help-tree.png")
        self.press("Left", "Starting Opened")
        self.press("Left", "Starting Closed")
        self.press("Escape", "Favorites Sidebar Item")

    def test_side_bar_without_content_is_not_there(self):
        corvane = self.begin(0)
        reached = []
        for _ in range(24):
            corvane.move("Tab")
            reached.append(corvane.focused_name())
        self.assertIn("Address", reached)
        self.assertNotIn("Sidebar", reached)


if __name__ == "__main__":
    unittest.main()
