"""How soon the first window is there and takes keys, and what the program keeps of the
memory."""
import shutil
import subprocess
import tempfile
import time

from measured import Browser, median
import processes
from screen import Screen


def shown(screen, others, started):
    """Seconds from the start to a new window on the screen, and to one that takes keys."""
    window = screen.wait_for(screen.windows, others)
    there = time.monotonic() - started
    screen.wait_for(screen.active, others)
    screen.wait_ready(window)
    return there, time.monotonic() - started


def start(build, base, screen):
    """The same of the program, which opens a page, and the memory it then has in MB."""
    others = screen.windows()
    browser = Browser(build, base + "/page/1")
    try:
        times = shown(screen, others, browser.started)
        browser.wait_spoken("Page 1")
        time.sleep(1)
        return *times, processes.family_memory(browser.process.pid)
    finally:
        browser.end()


def bare_start(build, base, screen):
    """The same of a window with nothing in it but the engine's view."""
    others = screen.windows()
    started = time.monotonic()
    process = subprocess.Popen([str(build / "bin/bare_view"), base + "/page/1"], stdout=subprocess.PIPE,
                               stderr=subprocess.DEVNULL)
    try:
        times = shown(screen, others, started)
        process.stdout.readline()  # loaded
        time.sleep(1)
        return *times, processes.family_memory(process.pid)
    finally:
        process.terminate()
        process.communicate()


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


def rows(bench):
    screen = Screen()
    runs, bare = [], []
    for _ in range(bench.runs + 1):  # in turn, so that both meet the same machine
        runs.append(start(bench.build, bench.base, screen))
        bare.append(bare_start(bench.build, bench.base, screen))
    # The first one warms the caches.
    windows, ready, memories = ([run[i] for run in runs[1:]] for i in range(3))
    bare_windows, bare_ready, bare_memories = ([run[i] for run in bare[1:]] for i in range(3))
    yield ("start → first window, warm, median", f"{median(windows):.2f} s", "0.25 s",
           f"a bare view: {median(bare_windows):.2f} s")
    yield ("start → ready to type an address, warm, median", f"{median(ready):.2f} s", "0.35 s",
           f"a bare view: {median(bare_ready):.2f} s")
    reference = reference_browser(bench.base)
    yield ("memory (sum of PSS), tiny page, median", f"{median(memories):.0f} MB", "300 MB",
           f"a bare view: {median(bare_memories):.0f} MB" +
           (f", another browser of the same engine: {reference:.0f} MB" if reference else ""))
