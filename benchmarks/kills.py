"""Kills what the program leans on at random moments of its use: each time the next
page must be read aloud and the window must answer keys."""
import random
import time

import processes
from victims import AccessibilityBus, SoundServer, end, end_one_of

LONGEST_WAIT = 1.5  # seconds from setting off to a page until the kill

# What is being loaded while the kill happens: pages of all sizes, and none at all.
ON_THE_WAY = ["/page/1", "/links/3000", "/frames/1", "/megabytes/1", "/stall", None]


class Kills:
    def __init__(self, corvane, user, sound, seed, row):
        self._corvane, self._user, self._sound, self._row = corvane, user, sound, row
        self._random = random.Random(seed)
        self._page = 0

    def run(self, times):
        """Kills each kind of helper so many times, mixed; the accessibility bus only
        once, at the end: the session starts no second one for programs that run."""
        kinds = [self._kill_page, self._kill_network, self._kill_sound] * times
        self._random.shuffle(kinds)
        for kill in kinds + [self._kill_accessibility]:
            self._one(kill)

    def _one(self, kill):
        path = self._random.choice(ON_THE_WAY)
        wait = self._random.uniform(0, LONGEST_WAIT)
        if path:
            self._user.go(path)
        time.sleep(wait)
        what = kill()
        self._user.wait_for_silence()
        self._user.hear_window()
        self._page += 1
        begin = time.monotonic()
        self._user.open(f"/page/after-{self._page}", f"Page after-{self._page}")
        self._user.follow("The local news")
        self._row(what, path or "nothing", f"{wait:.2f} s", f"{time.monotonic() - begin:.1f} s")

    def _kill_page(self):
        end_one_of(self._corvane, processes.PAGE)
        return "page process"

    def _kill_network(self):
        end_one_of(self._corvane, processes.NETWORK)
        return "network process"

    def _kill_sound(self):
        self._sound.kill()
        if self._random.random() < 0.7:
            self._sound.start()
            return "sound server, started again"
        return "sound server"

    def _kill_accessibility(self):
        bus = AccessibilityBus()
        for pid in (bus.daemon, bus.registry, bus.launcher):
            if processes.is_alive(pid):
                end(pid)
        return "accessibility bus"


def survive(corvane, user, sound, seed, times, row):
    """Prints what was killed when; whatever goes wrong is raised."""
    row("killed", "while loading", "after", "next page and its link read in")
    row("---", "---", "---", "---")
    Kills(corvane, user, sound, seed, row).run(times)
    if corvane.process.poll() is not None:
        raise AssertionError("the program has ended")


def sound_server():
    server = SoundServer()
    server.start()
    return server
