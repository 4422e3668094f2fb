"""Addresses that lead nowhere: each has an outcome that can be heard."""
from page_test import QUIET, PageTest, wait_until


class BadAddresses(PageTest):
    def test_addresses_that_are_no_addresses(self):
        for address in ["http://", "nosuchscheme://x", "http://[::1", "javascript:alert(1)", "a b c d"]:
            with self.subTest(address=address):
                title = self.opened(address)
                self.assertTrue(title)
                self.assertGreater(len(self.text()), len(title))
        self.assert_alive()

    def test_empty_address(self):
        self.start(settings=QUIET)
        self.corvane.focus("Address")
        self.corvane.keys("ctrl+a", "Delete")
        self.corvane.transcript.mark()
        self.corvane.keys("Return")
        self.said("Extracting Links ...", "Done")
        self.assertTrue(wait_until(lambda: self.title(), "a title"))
        self.assert_alive()

    def test_address_of_a_megabyte(self):
        self.start(settings=QUIET)
        self.corvane.focus("Address")
        self.corvane.paste("Address", self.base + "/" + "x" * 1024 * 1024)
        self.corvane.transcript.mark()
        self.corvane.keys("Return")
        self.said("Extracting Links ...", "Done")
        self.assertTrue(wait_until(lambda: self.title(), "a title"))
        self.assertGreater(len(self.text()), 20)
        self.assert_alive()

    def test_unknown_host(self):
        title = self.opened("http://does-not-exist.invalid/")
        self.assertIn("does-not-exist.invalid", title)
        self.assert_alive()

    def test_refused_connection_and_missing_file(self):
        self.assertTrue(self.opened("http://127.0.0.1:1/"))
        self.assertTrue(self.opened("/no/such/file.html"))
        self.assert_alive()

    def test_page_the_server_does_not_have(self):
        self.assertEqual(self.opened(self.base + "/nowhere"), "Not here")

    def test_endless_redirects(self):
        self.assertTrue(self.opened(self.base + "/redirects/"))
        self.assert_alive()
