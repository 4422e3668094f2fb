"""Measures in the real program how long it takes to come from a page with very many
links to a small one, from Enter to the small one's title, for each content of the side
bar that shows the page: what is told of a page must not make it slow to leave.
"""
import contextlib
import pathlib
import subprocess
import sys
import time

from measured import Browser, median

RUNS = 3
OUTSIDE_READER = pathlib.Path(__file__).with_name("outside_reader.py")
CONTENTS = {"none": 0, "page structure": 4, "accessible elements": 5}
LINKS = 16_000
KNOWN = 4_000  # links that the outside reader asks for one by one
TITLE = "Page 7"


@contextlib.contextmanager
def outside_reader(pid):
    """While another reader listens, which has asked for every element of the windows."""
    process = subprocess.Popen([sys.executable, "-B", str(OUTSIDE_READER), str(pid)], stdout=subprocess.PIPE, text=True)
    try:
        yield int(process.stdout.readline())  # elements
    finally:
        process.kill()
        process.communicate()


def left_in(build, base, content, links, reader=False):
    """Milliseconds from Enter to the title."""
    browser = Browser(build, f"{base}/links/{links}", pane={"SideBar": content})
    try:
        browser.wait_spoken(f"{links} links")
        time.sleep(2)
        with contextlib.ExitStack() as stack:
            if reader and stack.enter_context(outside_reader(browser.process.pid)) < links:
                raise RuntimeError("the outside reader has not come to all links")
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
    yield from reader_rows(bench)


def reader_rows(bench):
    """The same where another reader knows the page: that is the engine's to tell, and
    the accessible view adds nothing to it."""
    times = {"none": [], "accessible elements": []}
    for _ in range(RUNS):
        for name, figures in times.items():
            figures.append(left_in(bench.build, bench.base, CONTENTS[name], KNOWN, reader=True))
    reference = median(times["none"])
    yield (f"the same beside an outside reader that knows all {KNOWN:,} links, side bar: none", f"{reference:.0f} ms")
    figure = median(times["accessible elements"])
    yield ("the same beside that reader, side bar: accessible elements", f"{figure:.0f} ms",
           f"{1.2 * reference:.0f} ms", f"{figure / reference:.2f} of none")
