"""What the program leans on is killed under it: the next page is read aloud and
the window answers keys."""
import processes
from ear_user import EarUser
from harness import EndToEndTest, wait_until
from victims import AccessibilityBus, SoundServer, end, end_one_of

QUIET = {"Corvane": {"Speech": "True"}, "pnlBrowser": {"SideBar": "0", "Focus": "0"}}


class KilledHelpers(EndToEndTest):
    def begin(self, side_bar=0, **environment):
        """Starts the program without listening on the accessibility bus: who listens
        there dies with it."""
        settings = {**QUIET, "pnlBrowser": {"SideBar": str(side_bar), "Focus": "0"}}
        self.start(settings=settings, environment=environment, wait=False)
        self.said("Hello, welcome to Corvane 2000", "Corvane home page")
        self.user = EarUser(self.corvane, self.base)
        self.user.open("/page/1", "Page 1")

    def assert_goes_on(self, page):
        self.user.hear_window()
        self.user.open(f"/page/{page}", f"Page {page}")
        self.user.follow("The local news")
        self.user.back(f"Page {page}")
        self.assertIsNone(self.corvane.process.poll())

    def test_page_process_dies_while_a_page_is_shown(self):
        self.begin()
        self.corvane.transcript.mark()
        end_one_of(self.corvane, processes.PAGE)
        self.said("Extracting Links ...", "Done")
        self.assert_goes_on(2)

    def test_page_process_dies_while_a_page_is_loaded(self):
        self.begin()
        self.user.go("/stall")
        self.said("Working...")
        end_one_of(self.corvane, processes.PAGE)
        self.said("Done", "Extracting Links ...", "Done")
        self.assert_goes_on(2)

    def test_network_process_dies_while_a_page_is_shown(self):
        self.begin()
        end_one_of(self.corvane, processes.NETWORK)
        self.assert_goes_on(2)

    def test_network_process_dies_while_a_page_is_loaded(self):
        self.begin()
        self.user.go("/stall")
        self.said("Working...")
        end_one_of(self.corvane, processes.NETWORK)
        self.said("Done", "Extracting Links ...", "Done")
        self.assert_goes_on(2)

    def test_sound_server_dies_and_comes_back(self):
        server = SoundServer()
        self.addCleanup(server.close)
        server.start()
        self.begin(**server.environment())
        wait_until(server.is_played_to, "sound")
        server.kill()
        self.assert_goes_on(2)
        server.start()
        self.assert_goes_on(3)

        def played_again():
            self.user.hear_window()
            return server.is_played_to()

        wait_until(played_again, "sound on the new server")

    def test_accessibility_bus_dies_while_its_elements_are_shown(self):
        self.begin(side_bar=5)
        bus = AccessibilityBus()
        end(bus.daemon)
        self.assert_goes_on(2)

    def test_accessibility_bus_dies_with_all_that_belongs_to_it(self):
        self.begin()
        bus = AccessibilityBus()
        for pid in (bus.registry, bus.daemon, bus.launcher):
            if processes.is_alive(pid):
                end(pid)
        self.assert_goes_on(2)
