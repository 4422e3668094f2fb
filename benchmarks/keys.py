"""Keys pressed from outside at known times: how soon their echo begins, and how
soon Control silences the program."""
import ctypes
import ctypes.util
import subprocess
import time

from measured import Browser, p95
import speech

LETTERS = "abcdefghijklmnopqrst"


class Keyboard:
    """Presses keys on the display and tells when, on the clock of the transcript."""

    def __init__(self):
        self._x = ctypes.CDLL(ctypes.util.find_library("X11"))
        self._test = ctypes.CDLL(ctypes.util.find_library("Xtst"))
        self._x.XOpenDisplay.restype = ctypes.c_void_p
        self._x.XStringToKeysym.restype = ctypes.c_ulong
        self._display = ctypes.c_void_p(self._x.XOpenDisplay(None))

    def press(self, name):
        keysym = ctypes.c_ulong(self._x.XStringToKeysym(name.encode()))
        code = self._x.XKeysymToKeycode(self._display, keysym)
        self._test.XTestFakeKeyEvent(self._display, code, 1, 0)
        pressed = time.monotonic()
        self._x.XFlush(self._display)
        self._test.XTestFakeKeyEvent(self._display, code, 0, 0)
        self._x.XFlush(self._display)
        return pressed


def keys(*names):
    subprocess.run(["xdotool", "key", "--delay", "80", *names], check=True)


def echo_delays(events, presses):
    """Milliseconds from each press to its echo's first samples; None for an echo
    that was cut off before it began. `presses` are (time, spoken name)."""
    echoes = [e for e in events if e["event"] == "speak" and e["urgent"]]
    begun = {e["id"]: e["t"] for e in events if e["event"] == "begin"}
    delays = []
    for pressed, name in presses:
        echo = next((e for e in echoes if e["t"] >= pressed and e["text"] == name), None)
        begin = begun.get(echo["id"]) if echo else None
        delays.append((begin - pressed) * 1000 if begin else None)
    return delays


def type_letters(keyboard, count, pause):
    presses = []
    for i in range(count):
        letter = LETTERS[i % len(LETTERS)]
        presses.append((keyboard.press(letter), letter.upper()))
        time.sleep(pause)
    return presses


def silences(browser, keyboard, times):
    """Milliseconds from pressing Control to silence, while a long text is spoken."""
    delays = []
    for _ in range(times):
        keys("Tab", "shift+Tab")
        time.sleep(0.4)
        speaking = browser.events()[-1]
        if speaking["event"] != "begin":
            continue
        pressed = keyboard.press("Control_L")
        time.sleep(0.2)
        cut = next((e for e in browser.events()
                    if e["event"] == "cut" and e["id"] == speaking["id"] and e["t"] >= pressed), None)
        if cut:
            delays.append((cut["t"] - pressed) * 1000)
    return delays


PLACES = {  # where keys are typed: the keys that lead there from the address box
    "address box": ["ctrl+a"],
    "field of a page": ["shift+F6", "shift+F6", "Tab"],
    "text pane": ["shift+F6"],
}


def rows(bench):
    words = speech.first_chunk(speech.figures_of(bench.build))
    keyboard = Keyboard()
    browser = Browser(bench.build, bench.base + "/form.html", main={"KeyEcho": "True"}, pane={"Focus": 0})
    try:
        browser.wait_spoken("The order")
        time.sleep(0.5)
        for place, way in PLACES.items():
            keys("ctrl+l", *way)
            time.sleep(0.5)
            presses = type_letters(keyboard, 60, 0.25)
            time.sleep(0.5)
            yield echo_row(f"key press → first samples of its echo, {place}, p95", browser, presses, words)
        keys("ctrl+l", "ctrl+a")
        presses = type_letters(keyboard, 1200, 0.05)
        time.sleep(0.5)
        yield echo_row("the same, 20 keys a second for a minute", browser, presses, "")
        last = echo_delays(browser.events(), presses[-1:])[0]
        yield ("the last of those keys", f"{last:.1f} ms" if last else "never began", "15 ms")
        quiet = silences(browser, keyboard, 20)
        yield (f"Control → silence, p95 of {len(quiet)}", f"{p95(quiet):.1f} ms" if quiet else "none", "20 ms")
    finally:
        browser.end()


def echo_row(what, browser, presses, reference):
    delays = echo_delays(browser.events(), presses)
    heard = [d for d in delays if d is not None]
    figure = f"{p95(heard):.1f} ms" if heard else "nothing heard"
    if len(heard) < len(delays):
        figure += f" ({len(delays) - len(heard)} of {len(delays)} not begun)"
    return (what, figure, "15 ms", reference)
