"""A very long page in the text pane: what it keeps the window busy, and how soon the keys
that lead through it are heard."""
import time

from keys import Keyboard
from measured import Browser, p95

MEGABYTES = 10
PRESSES = 40


def delays(browser, keyboard, key):
    """Milliseconds from each press to the first samples of its words."""
    found = []
    for _ in range(PRESSES):
        pressed = keyboard.press(key)
        time.sleep(0.25)
        speaks = [e for e in browser.speaks() if e["t"] >= pressed]
        begun = {e["id"]: e["t"] for e in browser.events() if e["event"] == "begin"}
        if speaks and speaks[0]["id"] in begun:
            found.append((begun[speaks[0]["id"]] - pressed) * 1000)
    return found


def rows(bench):
    browser = Browser(bench.build, bench.base + "/page/1", main={"Manner": "1"}, pane={"SideBar": 0})
    try:
        browser.wait_spoken("Page 1")
        time.sleep(0.5)
        browser.forget_stalls()
        browser.go(f"{bench.base}/chapters/{MEGABYTES}", None)
        time.sleep(10)  # no word tells that the text with its elements has come
        yield (f"longest stall of the window while {MEGABYTES} MB come into the text pane",
               f"{browser.longest_stall() or 0:.0f} ms")
        for key, what in (("h", "heading"), ("k", "link")):
            heard = delays(browser, Keyboard(), key)
            yield (f"{key.upper()} → first samples of the next {what}, page of {MEGABYTES} MB, p95 of {len(heard)}",
                   f"{p95(heard):.1f} ms" if len(heard) == PRESSES else "not all heard", "20 ms")
    finally:
        browser.end()
