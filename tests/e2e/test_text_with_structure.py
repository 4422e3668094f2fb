"""A page that is read and used in the text pane: letters lead from heading to heading,
Enter acts on what is there, Escape leads back."""
import unittest

from harness import wait_until
from text_pane import TextPaneTest


class TextWithStructure(TextPaneTest):
    def begin(self, page="/market.html", title="The market"):
        return self.begin_in_text(page, title, "A cat")

    def test_letters_lead_through_the_page(self):
        self.begin()
        self.walk(
            ("h", "Prices, heading level 1"),
            ("h", "Fruit, heading level 2"),
            ("2", "Your order, heading level 2"),
            ("h", "No next heading"),
            ("shift+h", "Fruit, heading level 2"),
            ("1", "No next heading level 1"),
            ("shift+k", "next week, link"),
            ("shift+k", "The weather, link"),
            ("shift+k", "Start, link"),
            ("shift+k", "No previous link"),
            ("g", "A cat, picture"),
            ("t", "Fruit by weight, table, 3 rows, 2 columns"),
            ("q", "An apple a day, quotation"),
            ("e", "Name, edit, Al"),
            ("x", "Fast, check box, not checked"),
            ("c", "Size, combo box, Small"),
            ("b", "Send, button"),
            ("b", "More, disclosure button, collapsed"),
            ("r", "No next radio button"),
            ("m", "No next main part"),
            ("shift+m", "main"),
            ("shift+d", "Site, navigation"),
            ("l", "list of 2"),
            ("i", "Start, list item"),
            ("f", "Name, edit, Al"),
            ("z", "No quick key"),
        )

    def test_lines_are_said_with_what_begins_on_them(self):
        corvane = self.begin()
        self.walk(
            ("Down", "navigation, Site, list of 2, bullet, link, Start"),
            ("Down", "bullet, link, The weather"),
            ("Down", "main, heading level 1, Prices"),
            ("Down", "blank"),
            ("Down", "What things cost link, next week, as far as it is known today."),
        )
        self.hear("g")
        self.walk(
            ("Down", "heading level 2, Fruit"),
            ("Down", "blank"),
            ("Down", "table, Fruit by weight, 3 rows, 2 columns"),
            ("Down", "Fruit, Price"),
        )
        self.assertNotIn("zzz", corvane.text_of("Text"))

    def test_a_link_is_followed_and_alt_left_comes_back_to_it(self):
        corvane = self.begin()
        self.hear("k")
        self.hear("k")
        self.walk(("k", "next week, link"))
        corvane.transcript.mark()
        corvane.keys("Return")
        self.said("Extracting Links ...", "Done", "Page 7")
        self.quiet()
        corvane.transcript.mark()
        corvane.keys("alt+Left")
        self.said("The market", "next week, visited link")
        self.quiet()
        self.walk(("h", "Fruit, heading level 2"), ("shift+v", "next week, visited link"),
                  ("shift+u", "The weather, link"))

    def test_enter_leads_into_a_field_and_escape_back(self):
        corvane = self.begin()
        self.walk(("e", "Name, edit, Al"))
        corvane.transcript.mark()
        corvane.keys("Return")
        wait_until(corvane.transcript.spoken, "the field")
        self.quiet()
        self.assertEqual(corvane.transcript.spoken(), ["main, text, Name, Al"])
        corvane.keys("End")
        corvane.transcript.mark()
        corvane.type("ex")
        self.said("x")
        self.quiet()
        self.walk(("Escape", "Name, edit, Alex"))
        self.walk(("shift+h", "Your order, heading level 2"))

    def test_a_box_is_checked_and_stands_so_in_the_text(self):
        self.begin()
        self.walk(("x", "Fast, check box, not checked"), ("space", "checked"))
        wait_until(lambda: self.hear("shift+h") and self.hear("x") == ["Fast, check box, checked"],
                   "the box as it is now")

    def test_what_a_button_opens_stands_in_the_text(self):
        corvane = self.begin()
        self.walk(("b", "Send, button"), ("b", "More, disclosure button, collapsed"), ("Return", "expanded"))
        wait_until(lambda: "There is more to it." in corvane.text_of("Text"), "the new text")
        self.walk(("Down", "There is more to it."))

    def test_the_page_at_a_glance(self):
        self.begin()
        self.walk(
            ("2", "Fruit, heading level 2"),
            ("ctrl+shift+s", "The market, 3 headings, 3 links, 1 form, 1 table, 2 landmarks, in main, below Fruit, "
             "43 percent"),
        )

    def test_f4_lets_the_pane_be_written_in(self):
        corvane = self.begin()
        self.walk(("F4", "Quick keys off"), ("h", "h"), ("F4", "Quick keys on"))
        self.assertIn("hThe market", corvane.text_of("Text"))


if __name__ == "__main__":
    unittest.main()
