"""What a page can ask of its user: heard, answered with the keyboard, never in
the way."""
from ear_user import menu
from page_test import QUIET, PageTest, wait_until


class PageRequests(PageTest):
    def press_in_page(self, *keys):
        """Puts the focus into the page and presses keys there."""
        self.corvane.focus_page()
        self.corvane.keys(*keys)

    def heard_since(self, first):
        """What was spoken from the text `first` on."""
        spoken = self.corvane.transcript.spoken()
        return spoken[spoken.index(first):] if first in spoken else []

    def test_confirm_is_spoken_and_answered(self):
        self.opened(self.base + "/asking.html")
        self.press_in_page("Tab", "space")
        question = "Question of 127.0.0.1. Delete all mails? OK Button"
        self.said(question)
        self.corvane.keys("Tab")
        self.said(question, "Cancel Button")
        self.corvane.keys("Return")
        self.said("Page Kept")

    def test_prompt_takes_what_is_typed(self):
        self.opened(self.base + "/asking.html")
        self.press_in_page("Tab", "Tab", "space")
        self.said("Question of 127.0.0.1. What is your name? Answer, edit box, Bob")
        self.corvane.keys("ctrl+a")
        self.corvane.type("Ada")
        self.corvane.keys("Return")
        self.said("Page Hello%20Ada")

    def test_popups_are_blocked_and_links_open_windows(self):
        self.opened(self.base + "/windows.html")
        self.assertEqual(self.corvane.transcript.spoken().count("A pop-up window was blocked."), 1)
        self.press_in_page("Tab", "Return")
        self.said("New window", "The weather")
        self.assertEqual(len(self.browser_windows()), 2)
        self.corvane.keys("alt+F4")
        wait_until(lambda: len(self.browser_windows()) == 1, "the window to go")
        self.assert_alive()

    def browser_windows(self):
        return [name for name in self.corvane.window_names() if name.startswith("Corvane")]

    def test_permission_is_asked_once_and_escape_refuses(self):
        self.start(settings=QUIET)
        self.corvane.transcript.mark()
        self.corvane.open(self.base + "/where.html")
        question = "Permission. 127.0.0.1 wants to know where you are. Refuse Button"
        self.said(question)
        self.corvane.keys("Escape")
        self.said("Where are you")
        self.assertEqual(self.corvane.transcript.spoken().count(question), 1)
        self.assert_alive()

    def test_permission_that_was_taken_back_is_asked_for_again(self):
        corvane = self.start(settings=QUIET)
        question = "Permission. 127.0.0.1 wants to know where you are. Refuse Button"
        corvane.transcript.mark()
        corvane.open(self.base + "/where.html")
        self.said(question)
        corvane.keys("alt+n")
        self.said("Where are you")
        corvane.transcript.mark()
        corvane.keys("F5")
        self.said("Where are you")
        self.assertNotIn(question, corvane.transcript.spoken())

        corvane.keys(*menu("Settings"), "i")
        self.said("Web options. Start page, edit box, corvane://home/cv/")
        corvane.transcript.mark()
        corvane.keys("alt+m")
        words = f"{self.base}, location, never allowed"
        self.said(f"Sites' permissions. 1 decision is kept. Site, list, {words}, 1 of 1")
        corvane.keys("alt+t")
        self.said(f"Sites' permissions. Taken back: {words}. The site has to ask again. "
                  "No site is allowed or refused anything for good. Close Button")
        corvane.keys("Return")
        self.said("Web options. Start page, edit box, corvane://home/cv/")
        corvane.keys("Escape")
        wait_until(lambda: "Web options" not in corvane.window_names(), "the dialog to go")
        corvane.transcript.mark()
        corvane.keys("F5")
        self.said(question)
        corvane.keys("Escape")
        self.said("Where are you")

    def test_password_is_asked_hidden_and_never_spoken(self):
        self.start(settings=QUIET)
        self.corvane.transcript.mark()
        self.corvane.open(self.base + "/private")
        host = self.base.removeprefix("http://")
        self.said(f"Sign in. The server {host} asks for a user name and a password. "
                  "It says: The vault. User name, edit box, empty")
        self.corvane.type("ada")
        self.corvane.keys("Tab")
        self.said("Password, password box, empty")
        self.corvane.type("secret")
        self.corvane.keys("Return")
        self.said("Inside the vault")
        self.assertNotIn("secret", " ".join(self.corvane.transcript.spoken()))
