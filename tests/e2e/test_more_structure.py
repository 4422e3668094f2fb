"""The page structure in the side bar has the page's headings, landmarks and tables."""
import unittest

from text_pane import TextPaneTest

SIDE_BAR = {"Corvane": {"Speech": "True"}, "pnlBrowser": {"SideBar": "4", "Focus": "5"}}


class MoreStructure(TextPaneTest):
    def test_a_heading_leads_to_its_place(self):
        corvane = self.begin_in_text("/market.html", "The market", "A cat", SIDE_BAR)
        for _ in range(8):
            if self.hear("F6")[-1].endswith("Sidebar Item"):
                break
        self.walk(
            ("Right", "The market Opened"),
            ("Down", "Links 3 Closed"),
            ("Down", "Frames 0 "),
            ("Down", "Anchors 0 "),
            ("Down", "Forms 1 Closed"),
            ("Down", "Headings 3 Closed"),
            ("Right", "Headings 3 Opened"),
            ("Down", "Prices, level 1 "),
            ("Down", "Fruit, level 2 "),
            ("Down", "Your order, level 2 "),
            ("Down", "Landmarks 2 Closed"),
            ("Down", "Tables 1 Closed"),
            ("Right", "Tables 1 Opened"),
            ("Down", "Fruit by weight, table, 3 rows, 2 columns "),
            ("Return", "Fruit by weight, table, 3 rows, 2 columns"),
        )
        self.assertEqual(corvane.focused_name(), "Text")
        self.walk(("alt+shift+Down", "Fruit, row 1, column 1"))


if __name__ == "__main__":
    unittest.main()
