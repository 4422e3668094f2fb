"""Measures the side bar's tree in the real program: how long it takes to open a
node with very many children, from the key to the word "Opened".
"""
import subprocess
import time

from measured import Browser, median

RUNS = 2
FAVORITES, PAGE_STRUCTURE, ACCESSIBILITY = 2, 4, 5
FOCUS_SIDE_BAR = 3


def keep(browser, count):
    """So many link files in Favorites."""
    folder = browser.home / "data/corvane/Favorites"
    folder.mkdir(parents=True)
    for i in range(count):
        (folder / f"Page {i}.url").write_text(f"[InternetShortcut]\r\nURL=http://localhost/{i}\r\n")


def press(*keys):
    subprocess.run(["xdotool", "key", "--delay", "40", *keys], check=True)


def opening(browser, words):
    """Milliseconds from the key that opens the selected node to the words that
    tell so, and the longest stall of the window meanwhile."""
    time.sleep(1)
    browser.forget_stalls()
    before = time.monotonic()
    press("Right")
    opened = browser.wait_spoken(words)
    time.sleep(1)
    return (opened - before) * 1000, browser.longest_stall()


def folder(build, base, count):
    browser = Browser(build, f"{base}/page/1", prepare=lambda b: keep(b, count),
                   pane={"SideBar": FAVORITES, "Focus": FOCUS_SIDE_BAR})
    try:
        browser.wait_spoken("Page 1")
        time.sleep(1)
        press("Tab", "shift+Tab")
        browser.wait_spoken("Favorites Sidebar Item")
        return opening(browser, "Favorites Opened")
    finally:
        browser.end()


def links(build, base, count):
    title = f"{count} links"
    browser = Browser(build, f"{base}/links/{count}", pane={"SideBar": PAGE_STRUCTURE, "Focus": FOCUS_SIDE_BAR})
    try:
        browser.wait_spoken(title)
        time.sleep(1)
        press("Tab", "shift+Tab")
        browser.wait_spoken(f"{title} Sidebar Item")
        first, _ = opening(browser, f"{title} Opened")
        press("Right")
        browser.wait_spoken(f"Links {count} Closed")
        children, stall = opening(browser, f"Links {count} Opened")
        return first, children, stall
    finally:
        browser.end()


def elements(build, base, count):
    """The accessible elements of a page with so many links, each in a paragraph:
    twice as many nodes."""
    browser = Browser(build, f"{base}/links/{count}", pane={"SideBar": ACCESSIBILITY, "Focus": FOCUS_SIDE_BAR})
    root = "HTML_Internet Explorer document"
    try:
        browser.wait_spoken(f"{count} links")
        time.sleep(1)
        press("Tab", "shift+Tab")
        opened, stall = opening(browser, f"{root} Opened")
        time.sleep(15)  # no word tells that the last of them has come
        return opened, stall, browser.longest_stall()
    finally:
        browser.end()


def rows(bench):
    """The rows of the table: what, figure, budget."""
    files = [folder(bench.build, bench.base, 10_000) for _ in range(RUNS)]
    yield ("tree: open a folder of 10,000 favorites, median (longest stall)",
           f"{median([f[0] for f in files]):.0f} ms ({median([f[1] or 0 for f in files]):.0f} ms)", "300 ms")
    time_of, stall = folder(bench.build, bench.base, 100_000)
    yield ("tree: open a folder of 100,000 favorites", f"{time_of:.0f} ms")
    yield ("tree: longest stall meanwhile", f"{stall or 0:.0f} ms", "50 ms")
    opened, stall, coming = elements(bench.build, bench.base, 10_000)
    yield ("tree: open the accessible elements of a page with 10,000 links (longest stall)",
           f"{opened:.0f} ms ({stall or 0:.0f} ms)", "300 ms")
    yield ("tree: longest stall while the 10,000 of them come", f"{coming or 0:.0f} ms", "50 ms")
    for count in (10_000, 50_000):
        pages = [links(bench.build, bench.base, count) for _ in range(RUNS)]
        yield (f"tree: first level of the structure of a page with {count} links, median",
               f"{median([p[0] for p in pages]):.0f} ms", "")
        yield (f"tree: open its {count} links, median (longest stall)",
               f"{median([p[1] for p in pages]):.0f} ms ({median([p[2] or 0 for p in pages]):.0f} ms)",
               "300 ms" if count == 10_000 else "")
