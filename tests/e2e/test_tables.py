"""Tables in the text pane: Alt+Shift and the arrows lead from cell to cell."""
import unittest

from text_pane import TextPaneTest


class Tables(TextPaneTest):
    def begin(self):
        return self.begin_in_text("/tables.html", "Tables", "closed in winter")

    def test_arrows_lead_from_cell_to_cell(self):
        self.begin()
        self.walk(
            ("alt+shift+Down", "Not in a table"),
            ("t", "Rooms, table, 4 rows, 3 columns"),
            ("alt+shift+Down", "blank, row 1, column 1"),
            ("alt+shift+Right", "Monday, column 2"),
            ("alt+shift+Down", "Small, free, row 2"),
            ("alt+shift+Right", "Tuesday, link, book it, column 3"),
            ("alt+shift+Right", "Edge of table"),
            ("alt+shift+Down", "Large, taken, row 3"),
            ("alt+shift+Left", "Monday, blank, column 2"),
            ("alt+shift+Right", "Tuesday, taken, column 3"),
            ("alt+shift+Down", "Garden, Monday, closed in winter, row 4, columns 2 to 3"),
            ("alt+shift+Up", "Large, taken, row 3, column 3"),
            ("alt+shift+Up", "Small, link, book it, row 2"),
            ("alt+shift+End", "Garden, Monday, Tuesday, closed in winter, row 4, columns 2 to 3"),
            ("alt+shift+Down", "Edge of table"),
            ("alt+shift+Home", "blank, row 1, column 1"),
            ("Down", "Small, free, link, book it"),
            ("alt+shift+Right", "Monday, free, column 2"),
        )

    def test_what_is_reached_can_be_used(self):
        corvane = self.begin()
        self.hear("t")
        self.hear("alt+shift+Down")
        self.hear("alt+shift+Down")
        self.hear("alt+shift+Right")
        self.walk(("alt+shift+Right", "Tuesday, link, book it, column 3"))
        corvane.transcript.mark()
        corvane.keys("Return")
        self.said("Extracting Links ...", "Done", "Page 7")

    def test_a_table_of_roles_is_one_and_a_layout_is_none(self):
        self.begin()
        self.hear("t")
        self.walk(
            ("t", "Seats, grid, 2 rows, 2 columns"),
            ("t", "No next table"),
            ("alt+shift+End", "One, Window, 1 A, row 2, column 2"),
            ("Up", "grid, Seats, 2 rows, 2 columns, Row Window"),
            ("Up", "This is, a layout"),
            ("alt+shift+Up", "Not in a table"),
        )


if __name__ == "__main__":
    unittest.main()
