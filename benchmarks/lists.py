"""Measures the lists of a page's elements in the real program: how long it takes from the
key that opens them to the words of the list.

By itself, below scripts/with-desktop: lists.py BUILD_FOLDER
"""
import pathlib
import subprocess
import sys
import threading
import time

SOURCE = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(SOURCE / "tests/e2e"))
import web_server  # noqa: E402  (lies beside the end-to-end tests)
from measured import Browser, median, row  # noqa: E402  (beside this file)

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


def rows(build, base, runs=3):
    """The rows of the table: what, figure, budget."""
    for count in (10_000, 50_000):
        opened = list(links(build, base, count, runs))
        yield (f"elements: list of {count} links, from the key to its words, median (longest stall)",
               f"{median([o[0] for o in opened]):.0f} ms ({median([o[1] or 0 for o in opened]):.0f} ms)",
               "300 ms" if count == 10_000 else "")


def main():
    server = web_server.start()
    threading.Thread(target=server.serve_forever, daemon=True).start()
    build = pathlib.Path(sys.argv[1])
    base = f"http://127.0.0.1:{server.server_address[1]}"
    for figures in rows(build, base):
        row(*figures)
    server.shutdown()


if __name__ == "__main__":
    main()
