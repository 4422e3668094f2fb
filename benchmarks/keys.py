"""Keys pressed from outside at known times: how soon their echo begins, and how
soon Control silences the program."""
import ctypes
import ctypes.util
import subprocess
import time

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
