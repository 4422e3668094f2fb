"""Measures the lists of a page's elements in the real program: how long it takes from the
key that opens them to the words of the list.
"""
import subprocess
import time

from measured import Browser, median

RUNS = 3
FOCUS_TEXT = 5


def timed(browser, keys, words):
    """Milliseconds from a key to the words, and the longest stall of the window
    meanwhile."""
    time.sleep(1)
    browser.forget_stalls()
    before = time.monotonic()
    subprocess.run(["xdotool", "key", *keys], check=True)
    end = before + 30
    said = None
    while said is None:
        said = next((e["t"] for e in browser.speaks() if e["text"] == words and e["t"] > before), None)
        if time.monotonic() > end:
            raise RuntimeError(f"never spoken: {words}, but {[e['text'] for e in browser.speaks()][-5:]}")
        time.sleep(0.005)
    time.sleep(1)
    return (said - before) * 1000, browser.longest_stall()


def links(build, base, count, runs):
    """Opens the list of the links so many times."""
    browser = Browser(build, f"{base}/links/{count}", main={"Manner": 1},
                      pane={"SideBar": 0, "Focus": FOCUS_TEXT})
    try:
        browser.wait_spoken(f"{count} links")
        time.sleep(5)  # no word tells that the text with its elements has come
        timed(browser, ["ctrl+shift+e"], "Headings, no headings")
        timed(browser, ["shift+Tab"], "Kind, Headings")
        timed(browser, ["Down"], f"Links, {count}")
        for _ in range(runs):
            timed(browser, ["Escape"], "Text Box")
            yield timed(browser, ["ctrl+shift+e"], f"Links, Link number 1, 1 of {count}")
    finally:
        browser.end()


def rows(bench):
    """The rows of the table: what, figure, budget."""
    for count in (10_000, 50_000):
        opened = list(links(bench.build, bench.base, count, RUNS))
        yield (f"elements: list of {count} links, from the key to its words, median (longest stall)",
               f"{median([o[0] for o in opened]):.0f} ms ({median([o[1] or 0 for o in opened]):.0f} ms)",
               "300 ms" if count == 10_000 else "")
