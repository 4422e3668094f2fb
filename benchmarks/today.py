#!/usr/bin/env python3
"""Walks the pages of today's widgets by keys and tells how much of what a stop must
convey is said: names, roles, states, values, places, groups that are entered, live
words; and how much of the names, roles and states that the accessibility bus tells an
outside client of the same stop. Then walks each page again at 20 keys a second: the
last words must be those of where the user has come to. Prints a table and, with
--misses, each stop where something was lacking.

Runs below scripts/with-desktop: today.py BUILD_FOLDER [--page NAME] [--misses]
"""
import argparse
import collections
import os
import pathlib
import re
import sys
import tempfile
import threading
import time

import page_on_bus

SOURCE = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(SOURCE / "tests/e2e"))

QUIET = 0.35    # seconds without a new word until a stop is over
PATIENCE = 8    # that words may take to come
FAST = 50       # milliseconds from key to key of a fast walk
LAST = 6        # of what is said: the end of a fast walk, with what its last keys changed
# How a role may be said.
ROLES = {
    "alertdialog": ["alert dialog"], "cell": ["cell", "row"], "checkbox": ["check box", "checkbox"],
    "columnheader": ["column header"], "combobox": ["combo box", "select"], "contentinfo":
    ["content information"], "gridcell": ["cell", "row"], "img": ["picture"], "listbox": ["list box", "select"],
    "menubar": ["menu bar"], "menuitem": ["menu item"], "menuitemcheckbox": ["check menu item"],
    "menuitemradio": ["radio menu item"], "progressbar": ["progress bar"], "radio": ["radio"],
    "radiogroup": ["radio group"], "rowheader": ["row header"], "searchbox": ["search field", "text"],
    "spinbutton": ["spin button"], "tablist": ["tab list"], "tabpanel": ["tab panel"],
    "textbox": ["text", "textarea", "edit", "password"], "toolbar": ["tool bar"], "treegrid": ["tree grid"],
    "treeitem": ["tree item"], "button": ["button", "submit", "reset"],
}
# How a state may be said.
STATES = {
    ("checked", "true"): ["checked", "on", "selected"],
    ("checked", "false"): ["not checked", "unchecked", "off", "unselected"],
    ("checked", "mixed"): ["partly checked"],
    ("pressed", "true"): ["pressed"], ("pressed", "false"): ["not pressed"],
    ("pressed", "mixed"): ["partly pressed"],
    ("expanded", "true"): ["expanded"], ("expanded", "false"): ["collapsed"],
    ("selected", "true"): ["selected"], ("selected", "false"): ["not selected"],
    ("required", "true"): ["required"], ("invalid", "true"): ["invalid"], ("disabled", "true"): ["unavailable"],
    ("readonly", "true"): ["read only"], ("haspopup", "true"): ["has menu"], ("haspopup", "menu"): ["has menu"],
    ("haspopup", "listbox"): ["has list", "combo box"], ("haspopup", "dialog"): ["has dialog"],
    ("haspopup", "grid"): ["has grid"], ("haspopup", "tree"): ["has tree"],
    ("current", "true"): ["current"], ("sort", "ascending"): ["sorted ascending"],
    ("sort", "descending"): ["sorted descending"], ("modal", "true"): ["dialog"],
    ("multiselectable", "true"): ["list box", "tree", "grid", "multiple"], ("invalid", "false"): ["valid"],
    ("multiline", "true"): ["textarea"], ("orientation", "vertical"): ["vertical"],
}


def squeezed(text):
    return re.sub(r"\s+", " ", text).strip().lower()


def has(said, words):
    return squeezed(words) in said


def any_of(said, alternatives):
    return any(re.search(rf"(^|[^a-z]){re.escape(squeezed(each))}($|[^a-z])", said) for each in alternatives)


def wanted(step):
    """What a step must convey: (kind, description, check) each."""
    if step.get("silent"):
        return
    # What the arrows reach in a select is chosen by that: its words and its place are
    # said, not that it is an option and selected; what is let go is called so.
    chosen = step.get("native") and step.get("states", {}).get("selected") == "true"
    if "role" in step and not step.get("stays") and not chosen:
        words = ROLES.get(step["role"], [step["role"]])
        yield "role", step["role"], lambda said, words=words: any_of(said, words)
    if step.get("name") and not step.get("stays"):
        yield "name", step["name"], lambda said: has(said, step["name"])
    for state, value in step.get("states", {}).items():
        if chosen and state == "selected":
            continue
        words = STATES.get((state, value))
        if words is None and state == "current":
            words = ["current " + value]
        if words is None:
            words = [value]
        yield "state", f"{state} {value}", lambda said, words=words: any_of(said, words)
    # What is typed is heard as it is typed.
    typed = step.get("stays") and (len(step["key"]) == 1 or step["key"] == "BackSpace")
    if typed and "value" in step:
        letter = step.get("text", step["key"])
        yield "value", letter, lambda said, letter=letter: has(said, letter)
    for kind in ("value", "description", "place"):
        if kind in step and not (typed and kind == "value"):
            yield kind, str(step[kind]), lambda said, kind=kind: has(said, str(step[kind]))
    if "text" in step and not typed:
        yield "text", step["text"], lambda said: has(said, step["text"])
    if "level" in step:
        yield "level", str(step["level"]), lambda said: has(said, f"level {step['level']}")
    for group in step.get("enters", ()):
        role, name = group[0], group[1]
        words = ROLES.get(role, [role])
        yield "group", f"{role} {name}", lambda said, words=words, name=name: (
            (any_of(said, words) or has(said, step.get("roledescription", "\0"))) and has(said, name or ""))
    live = step.get("live", ())
    for each in [live] if isinstance(live, str) else live:
        yield "live", each, lambda said, each=each: has(said, each)


class Walker:
    def __init__(self, corvane, user, misses):
        self._corvane, self._user, self._misses = corvane, user, misses
        self._bus = page_on_bus.PageOnBus(corvane)
        self.wanted, self.found = collections.Counter(), collections.Counter()
        self.silent, self.boxes, self.stops = 0, 0, 0

    def hear(self, expected):
        """All that is said until nothing more comes."""
        begun = last = time.monotonic()
        heard = 0
        while True:
            said = self._corvane.transcript.spoken()
            now = time.monotonic()
            if len(said) > heard:
                heard, last = len(said), now
            complete = heard > 0 and all(check(squeezed(" | ".join(said))) for _, _, check in expected)
            # Live words come behind what is being said.
            longest = PATIENCE if any(kind == "live" for kind, _, _ in expected) else 3 * QUIET
            if (heard and now - last > QUIET and (complete or now - last > longest)) or now - begun > PATIENCE:
                return said
            time.sleep(0.02)

    def enter(self, page):
        self._corvane.transcript.mark()
        self._user.go(page)
        self._corvane.transcript.wait_for("Extracting Links ...", "Done")
        self._user.wait_for_silence()
        self._user.enter_page()
        self._bus.left()
        time.sleep(QUIET)

    def hold_beside_bus(self, stop, said):
        whole = page_on_bus.squeezed(" | ".join(said))
        for kind, what, words in self._bus.news():
            row = f"{kind}, as the bus tells it"
            self.wanted[row] += 1
            if any(each in whole for each in words):
                self.found[row] += 1
            elif self._misses:
                print(f"{stop}: said {whole!r}, on the bus: {kind} {what!r}", flush=True)

    def walk_fast(self, name, steps, base):
        """Where the user has come to is told by the bus."""
        self.enter(f"{base}/patterns/{name}.html")
        self._corvane.transcript.mark()
        self._corvane.keys(*[step["key"] for step in steps if step.get("key")], delay=FAST)
        self._user.wait_for_silence()
        node = self._bus.focused()
        names = [words for kind, _, words in self._bus.told_of(node) if kind == "name"] if node else []
        if not names:
            return  # nothing has the focus that could be told by its name
        said = [page_on_bus.squeezed(each) for each in self._corvane.transcript.spoken()]
        row = "last words after 20 keys a second"
        self.wanted[row] += 1
        if all(word in " ".join(said[-LAST:]).split() for name in names[0] for word in name.split()):
            self.found[row] += 1
        elif self._misses:
            print(f"{name}, fast: ended with {said[-LAST:]}, the user is at {names[0]}", flush=True)

    def walk(self, name, steps, base):
        self.enter(f"{base}/patterns/{name}.html")
        for number, step in enumerate(steps, 1):
            if not step.get("key"):  # met in reading on only
                continue
            expected = list(wanted(step))
            self._corvane.transcript.mark()
            self._corvane.keys(step["key"])
            said = self.hear(expected) if expected else self.pause()
            self.stops += bool(expected)
            self.boxes += sum("Error: " in each for each in said)
            whole = squeezed(" | ".join(said))
            if expected and not said:
                self.silent += 1
            lacking = []
            for kind, words, check in expected:
                self.wanted[kind] += 1
                if check(whole):
                    self.found[kind] += 1
                else:
                    lacking.append(f"{kind} {words!r}")
            if lacking and self._misses:
                print(f"{name} {number} {step['key']}: said {said}, lacking {', '.join(lacking)}", flush=True)
            self.hold_beside_bus(f"{name} {number} {step['key']}", said)

    @staticmethod
    def pause():
        time.sleep(2 * QUIET)
        return []


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--page")
    parser.add_argument("--misses", action="store_true")
    arguments = parser.parse_args()
    os.environ["CORVANE_PROGRAM"] = str(arguments.build.resolve() / "bin/corvane")
    import harness  # noqa: E402  (it looks for the program when it is read)
    import patterns  # noqa: E402
    import web_server  # noqa: E402
    from ear_user import EarUser  # noqa: E402

    server = web_server.start()
    base = f"http://127.0.0.1:{server.server_address[1]}"
    threading.Thread(target=server.serve_forever, daemon=True).start()
    with tempfile.TemporaryDirectory(prefix="corvane-today-", ignore_cleanup_errors=True) as home:
        corvane = harness.Corvane(home)
        try:
            corvane.transcript.wait_for("Corvane home page")
            walker = Walker(corvane, EarUser(corvane, ""), arguments.misses)
            for name, steps in patterns.WALKS.items():
                if arguments.page in (None, name):
                    walker.walk(name, steps, base)
                    walker.walk_fast(name, steps, base)
        finally:
            corvane.kill()
            server.shutdown()
    print("| what | said | of | percent |\n|---|---|---|---|")
    for kind, of in walker.wanted.items():
        print(f"| {kind} | {walker.found[kind]} | {of} | {100 * walker.found[kind] / of:.1f} |")
    print(f"| silent stops | {walker.silent} | {walker.stops} | |")
    print(f"| error boxes | {walker.boxes} | {walker.stops} | |")
    return 0


if __name__ == "__main__":
    sys.exit(main())
