"""Measures in the real program how long it takes to come from a page with very many
links to a small one, from Enter to the small one's title, for each content of the side
bar that shows the page: what is told of a page must not make it slow to leave.
"""
import time

from measured import Browser, median

RUNS = 3
CONTENTS = {"none": 0, "page structure": 4, "accessible elements": 5}
LINKS = 16_000
TITLE = "Page 7"


def left_in(build, base, content, links):
    """Milliseconds from Enter to the title."""
    browser = Browser(build, f"{base}/links/{links}", pane={"SideBar": content})
    try:
        browser.wait_spoken(f"{links} links")
        time.sleep(2)
        return browser.go(f"{base}/page/7", TITLE)
    finally:
        browser.end()


def rows(bench):
    """The rows of the table: what, figure, budget, reference."""
    small = median([left_in(bench.build, bench.base, CONTENTS["none"], 100) for _ in range(RUNS)])
    yield ("Enter → title of a small page, coming from 100 links", f"{small:.0f} ms", "120 ms", "")
    times = {name: [] for name in CONTENTS}
    for _ in range(RUNS):  # in turn, so that all meet the same machine
        for name, content in CONTENTS.items():
            times[name].append(left_in(bench.build, bench.base, content, LINKS))
    reference = median(times["none"])
    for name, figures in times.items():
        figure = median(figures)
        yield (f"the same, coming from {LINKS:,} links, side bar: {name}", f"{figure:.0f} ms",
               "" if name == "none" else f"{1.2 * reference:.0f} ms",
               "" if name == "none" else f"{figure / reference:.2f} of none")
