"""An hour's use in a few minutes: hundreds of pages opened, followed and left by
keys, each heard, and what the program holds on to counted on the way."""
import collections
import pathlib
import re
import time

import processes
from ear_user import DIALOGS, SIDE_BARS
from web_server import PATTERNS

# A page, its title, and the title that Enter on its first element leads to: a link is
# followed, a form sent.
PAGES = [
    ("/start.html", "The local news", "The weather"),
    ("/page/{}", "Page {}", "The local news"),
    ("/links/300", "300 links", "Page 1"),
    ("/form.html", "The order", "The weather"),
    ("/frames/{}", "Frames {}", "The weather"),
    ("/no-scripts", "No scripts here", "The local news"),
    ("/kinds.html", "All kinds", None),
    ("/right-to-left.html", "שלום עולם", "The local news"),
    ("/elements.html", "Many elements", "The weather"),
    ("/links/3000", "3000 links", "Page 1"),
    ("/page/long-{}", "Page long-{}", "The local news"),
    ("/broken-text", "Broken \ufffd\ufffd text", None),
]
# The pages of today's widgets, each with its title.
WIDGETS = [(f"/patterns/{path.name}", re.search("<title>([^<\n]*)", path.read_text()).group(1).strip())
           for path in sorted(PATTERNS.glob("*.html"))]
STOPS = 4  # that are tabbed to on each
# Among the first hundred pages is the largest one with its accessible elements beside
# it: what that takes from the system at the most, the allocator keeps.
SHIFT = 2
KEPT = 8  # pages; more than the engine keeps for the way back
SETTLED = 16  # seconds: what a page leaves behind is freed a little later, idle threads end

State = collections.namedtuple("State", "pages memory own parts processes descriptors threads files")


def state(corvane, pages):
    """What the program and its helpers hold now."""
    family = processes.family(corvane.process.pid)
    parts = collections.Counter()
    for pid in family:
        parts[processes.name(pid)] += processes.own_memory(pid)
    memory = sum(map(processes.memory, family))
    return State(pages, memory, sum(parts.values()), parts, len(family), sum(map(processes.descriptors, family)),
                 sum(map(processes.threads, family)), files(corvane.home))


def files(home):
    """Sizes in the user's folders in bytes, history and cache by themselves."""
    sizes = collections.Counter()
    for path in pathlib.Path(home).rglob("*"):
        place = path.relative_to(home)
        if place.parts[0] not in ("config", "data", "cache") or not path.is_file():
            continue
        kind = "history" if "History" in place.parts else place.parts[0]
        sizes[kind] += path.stat().st_size
        sizes["history files"] += kind == "history"
    return sizes


class LongUse:
    """Reads page after page in mixed ways; `read` counts them."""

    def __init__(self, corvane, user):
        self._corvane, self._user = corvane, user
        self._round = 0
        self.read = 0

    def go_to(self, pages):
        """Uses the program until that many pages were read; each round is a page
        opened, a link followed, the way back, and a page of today's widgets."""
        while self.read < pages:
            self._one_round()

    def _one_round(self):
        path, title, linked = PAGES[self._round % len(PAGES)]
        path, title = path.format(self._round), title.format(self._round)
        self._user.open(path, title)
        self.read += 1
        if linked:
            self._user.follow(linked)
            self._user.back(title)
            self.read += 2
        self._use_widgets(*WIDGETS[self._round % len(WIDGETS)])
        self._round += 1
        if self._round % 4 == 0:
            self._user.side_bar(list(SIDE_BARS)[(self._round // 4 + SHIFT) % len(SIDE_BARS)])
        if self._round % 5 == 0:
            self._user.leave(list(DIALOGS)[self._round // 5 % len(DIALOGS)])

    def _use_widgets(self, path, title):
        self._user.open(path, title)
        self._corvane.keys(*["Tab"] * STOPS)
        self.read += 1

    def rest(self):
        """The same quiet place each time, so that states can be compared. The engine
        keeps the last few pages for the way back: small ones take their places."""
        self._user.side_bar("none")
        for number in range(KEPT):
            self._user.open(f"/page/{number}", f"Page {number}")
        self._user.open("/weather.html", "The weather")
        time.sleep(SETTLED)
        return state(self._corvane, self.read)
