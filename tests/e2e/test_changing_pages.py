"""Pages that change without loading another one, by keys and ear alone."""
import unittest

from harness import EndToEndTest, wait_until

WEB_BROWSER = 4  # where the focus goes after a page has been read
READ = ("Working...", "Done", "Extracting Forms ...", "Extracting Links ...", "2 Links in {0}", "Done", "{0}")


class ChangingPages(EndToEndTest):
    def begin(self):
        corvane = self.start(
            settings={"Corvane": {"Speech": "True"}, "pnlBrowser": {"SideBar": "0", "Focus": str(WEB_BROWSER)}},
            wait=False,  # the focus goes into the page, where start does not look for it
        )
        self.said("Hello, welcome to Corvane 2000", "Corvane home page")
        self.press("ctrl+l", "corvane://home/cv/ Address Box")
        corvane.keys("ctrl+a")
        corvane.type(self.base + "/shop.html")
        self.press("Return", *(text.format("Shop") for text in READ))
        return corvane

    def press(self, key, *expected):
        self.corvane.transcript.mark()
        self.corvane.keys(key)
        self.said(*expected)

    def test_page_that_a_script_shows_is_read_like_any_other(self):
        corvane = self.begin()
        self.press("Tab", "navigation, Shoes, link")
        self.press("Return", *(text.format("Shop: Shoes") for text in READ))
        wait_until(lambda: "All our Shoes." in corvane.text_of("Text"), "the new text")
        self.assertEqual(corvane.text_of("Address"), self.base + "/shop/shoes")
        self.press("alt+Left", *(text.format("Shop") for text in READ))
        wait_until(lambda: corvane.text_of("Address") == self.base + "/shop.html", "the address before")

    def test_link_within_the_page_says_where_it_leads(self):
        self.begin()
        self.press("Tab", "navigation, Shoes, link")
        self.press("Tab", "Terms, link")
        self.press("Return", "Terms and conditions")

    def test_new_text_is_told_and_read_with_f9(self):
        corvane = self.begin()
        for name in ("navigation, Shoes, link", "Terms, link", "button, More offers"):
            self.press("Tab", name)
        self.press("space", "The page has changed. F9 reads it again.")
        self.assertNotIn("Two for one", corvane.text_of("Text"))
        self.press("F9", *(text.format("Shop") for text in READ))
        wait_until(lambda: "Two for one" in corvane.text_of("Text"), "the new text")
        self.press("Tab", "button, Menu, collapsed")  # on from where the user is

    def test_button_that_opens_a_part_says_so(self):
        self.begin()
        for name in ("navigation, Shoes, link", "Terms, link", "button, More offers", "button, Menu, collapsed"):
            self.press("Tab", name)
        self.press("space", "expanded")


if __name__ == "__main__":
    unittest.main()
