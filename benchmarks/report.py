#!/usr/bin/env python3
"""Measures the real program against its budgets and prints a table, each figure
beside a reference measured in the same run where there is one.

Runs below scripts/with-desktop: report.py BUILD_FOLDER [--runs N]
"""
import argparse
import json
import pathlib
import shutil
import subprocess
import sys
import tempfile
import threading
import time

SOURCE = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(SOURCE / "tests/e2e"))
import documents  # noqa: E402  (this and the four next lie beside this file)
import keys  # noqa: E402
import leaving  # noqa: E402
import lists  # noqa: E402
import trees  # noqa: E402
from measured import Browser, median, p95, row  # noqa: E402
import processes  # noqa: E402  (this and the next lie beside the end-to-end tests)
import web_server  # noqa: E402


def start_and_memory(build, base, runs):
    windows, memories = [], []
    for run in range(runs + 1):
        browser = Browser(build, base + "/page/1")
        try:
            window = browser.wait_window()
            browser.wait_spoken("Page 1")
            time.sleep(1)
            memory = processes.family_memory(browser.process.pid)
        finally:
            browser.end()
        if run > 0:  # the first one warms the caches
            windows.append(window)
            memories.append(memory)
    return windows, memories


def reference_browser(base):
    """Another browser of the same engine: its memory with the same page, in MB."""
    program = shutil.which("epiphany-browser") or shutil.which("epiphany")
    if not program:
        return None
    home = tempfile.mkdtemp(prefix="corvane-bench-")
    process = subprocess.Popen([program, "--private-instance", f"--profile={home}", base + "/page/1"],
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        time.sleep(6)
        return processes.family_memory(process.pid) if process.poll() is None else None
    finally:
        process.terminate()
        process.wait()
        shutil.rmtree(home, ignore_errors=True)


def reading(build, base, links, runs):
    """From the program's own words: the page's links and title, and the longest
    time the window took no events meanwhile."""
    times, stalls = [], []
    for _ in range(runs):
        browser = Browser(build, base + "/page/1")
        try:
            browser.wait_spoken("Page 1")
            time.sleep(0.5)
            browser.forget_stalls()
            focus_address()
            subprocess.run(["xdotool", "type", "--delay", "5", f"{base}/links/{links}"], check=True)
            before = time.monotonic()
            subprocess.run(["xdotool", "key", "Return"], check=True)
            done = browser.wait_spoken(f"{links} links")
            times.append((done - before) * 1000)
            time.sleep(1)
            stalls.append(browser.longest_stall())
        finally:
            browser.end()
    return times, stalls


def focus_address():
    """From the text pane, where the focus goes after a page, past the toolbar."""
    subprocess.run(["xdotool", "key", "--delay", "60", "Tab", "Tab", "ctrl+a"], check=True)


def text_browsers(base, links, runs):
    figures = {}
    for program in ("lynx", "w3m"):
        if not shutil.which(program):
            continue
        times = []
        for _ in range(runs):
            begin = time.monotonic()
            subprocess.run([program, "-dump", f"{base}/links/{links}"], check=False,
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            times.append((time.monotonic() - begin) * 1000)
        figures[program] = median(times)
    return figures


def json_lines(program):
    """What a measuring program of the build prints, one object a line."""
    result = subprocess.run([str(program)], check=False, capture_output=True, text=True)
    objects = []
    for line in result.stdout.splitlines():
        try:
            objects.append(json.loads(line))
        except json.JSONDecodeError:
            continue
    return objects


PAGES = {  # the engine's measuring pages: what they are called, budget of their record
    ("links", 100): ("100 links", ""),
    ("links", 10_000): ("10,000 links", "100 ms"),
    ("links", 50_000): ("50,000 links", "500 ms"),
    ("text", 0): ("10 MB of text", ""),
    ("line", 0): ("one line of 2 MB", ""),
}


def engine_rows(figures):
    """The page record and recovery, from the engine's own measuring program."""

    def of(key, **page):
        return [f[key] for f in figures if key in f and all(f.get(k) == v for k, v in page.items())]

    for (page, links), (name, budget) in PAGES.items():
        record = of("finished_to_document_ms", page=page, links=links)
        stall = of("longest_stall_ms", page=page, links=links)
        if record:
            row(f"page finished → record usable, {name}, median (longest stall meanwhile)",
                f"{median(record):.0f} ms ({median(stall):.0f} ms)", budget)
        text = of("text_ms", page=page, links=links)
        if text:
            row(f"its text with all elements in it, {name}, median (longest stall meanwhile)",
                f"{median(text):.0f} ms ({median(of('text_stall_ms', page=page, links=links)):.0f} ms)", budget)
    for element in dict.fromkeys(f["facts"] for f in figures if "facts" in f):
        row(f"page time to tell what has the focus, {element}, median",
            f"{median(of('facts_ms', facts=element)):.2f} ms", "2 ms")
    for key, what in [("crash_to_signal_ms", "page process killed → noticed, median"),
                      ("crash_to_problem_page_ms", "page process killed → page that says so, median"),
                      ("refresh_ms", "Refresh → next load begun, median")]:
        if of(key):
            row(what, f"{median(of(key)):.0f} ms", "")


def first_chunk(figures):
    """The reference of everything that is heard, in words."""
    reference = next((f for f in figures if "reference" in f["what"]), None)
    return f"synthesizer's own first chunk: {reference['p95_ms']:.2f} ms" if reference else ""


def speech_rows(figures):
    """Speech from its request to the device, from its own measuring program."""
    words = first_chunk(figures)
    for f in figures:
        if "reference" not in f["what"]:
            row(f"{f['what']} ({f['output']}), p95", f"{f['p95_ms']:.2f} ms", "", words)


PLACES = {  # where keys are typed: the keys that lead there from the address box
    "address box": ["ctrl+a"],
    "field of a page": ["shift+F6", "shift+F6", "Tab"],
    "text pane": ["shift+F6"],
}


def key_rows(build, base, words):
    """Echo and silence, on the whole program with keys from outside."""
    keyboard = keys.Keyboard()
    browser = Browser(build, base + "/form.html", main={"KeyEcho": "True"}, pane={"Focus": 0})
    try:
        browser.wait_spoken("The order")
        time.sleep(0.5)
        for place, way in PLACES.items():
            keys.keys("ctrl+l", *way)
            time.sleep(0.5)
            presses = keys.type_letters(keyboard, 60, 0.25)
            time.sleep(0.5)
            echo_row(f"key press → first samples of its echo, {place}, p95", browser, presses, words)
        keys.keys("ctrl+l", "ctrl+a")
        presses = keys.type_letters(keyboard, 1200, 0.05)
        time.sleep(0.5)
        echo_row("the same, 20 keys a second for a minute", browser, presses, "")
        last = keys.echo_delays(browser.events(), presses[-1:])[0]
        row("the last of those keys", f"{last:.1f} ms" if last else "never began", "15 ms")
        quiet = keys.silences(browser, keyboard, 20)
        row(f"Control → silence, p95 of {len(quiet)}", f"{p95(quiet):.1f} ms" if quiet else "none", "20 ms")
    finally:
        browser.end()


def echo_row(what, browser, presses, reference):
    delays = keys.echo_delays(browser.events(), presses)
    heard = [d for d in delays if d is not None]
    figure = f"{p95(heard):.1f} ms" if heard else "nothing heard"
    if len(heard) < len(delays):
        figure += f" ({len(delays) - len(heard)} of {len(delays)} not begun)"
    row(what, figure, "15 ms", reference)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--runs", type=int, default=5)
    arguments = parser.parse_args()
    build, runs = arguments.build, arguments.runs

    server = web_server.start()
    threading.Thread(target=server.serve_forever, daemon=True).start()
    base = f"http://127.0.0.1:{server.server_address[1]}"

    print("| what | measured | budget | reference, same run |\n|---|---|---|---|", flush=True)
    windows, memories = start_and_memory(build, base, runs)
    reference = reference_browser(base)
    row("start → first window, warm, median", f"{median(windows):.2f} s", "0.5 s")
    row("memory (sum of PSS), tiny page, median", f"{median(memories):.0f} MB", "300 MB",
        f"another browser of the same engine: {reference:.0f} MB" if reference else "")
    for links in (10_000, 50_000):
        others = text_browsers(base, links, 3)
        times, stalls = reading(build, base, links, 3)
        row(f"Enter → title of a page with {links} links spoken, median", f"{median(times):.0f} ms", "",
            ", ".join(f"{name} -dump: {value:.0f} ms" for name, value in others.items()))
        row(f"longest stall of the window while {links} links are read, median",
            f"{median(stalls):.0f} ms", "50 ms" if links == 10_000 else "")
    for figures in documents.rows(build, server, base):
        row(*figures)
    for figures in leaving.rows(build, base):
        row(*figures)
    for figures in trees.rows(build, base):
        row(*figures)
    for figures in lists.rows(build, base):
        row(*figures)
    engine_rows(json_lines(build / "bin/web_bench"))
    speech = json_lines(build / "bin/speech_bench")
    speech_rows(speech)
    key_rows(build, base, first_chunk(speech))
    server.shutdown()


if __name__ == "__main__":
    main()
