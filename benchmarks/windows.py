"""What a window more costs, and what is left of many that were opened and closed."""
import collections
import subprocess
import time

from measured import Browser
import processes
from screen import Screen

TOGETHER = 10  # windows open at a time
TIMES = 5
SETTLED = 10   # seconds: page processes end, caches are given up
BETWEEN = 0.5  # seconds for a new window's page

State = collections.namedtuple("State", "memory own pages count threads descriptors")


def state(pid):
    """What there is: MB of all processes, MB that the program itself has filled and
    those of its page processes, processes, threads, and open files of the program."""
    family = processes.family(pid)
    return State(sum(map(processes.memory, family)), processes.own_memory(pid), page_memory(pid), len(family),
                 sum(map(processes.threads, family)), processes.descriptors(pid))


def page_memory(pid):
    return sum(map(processes.own_memory, processes.named(pid, processes.PAGE)))


def keys(*names):
    subprocess.run(["xdotool", "key", *names], check=True)


def wait_count(screen, count):
    end = time.monotonic() + 30
    while len(screen.windows()) != count or not screen.active():
        if time.monotonic() > end:
            raise RuntimeError(f"{len(screen.windows())} windows, wanted {count}")
        time.sleep(0.01)


def open_windows(screen, count):
    for _ in range(count):
        there = len(screen.windows())
        keys("ctrl+n")
        wait_count(screen, there + 1)
        time.sleep(BETWEEN)


def close_windows(screen, count):
    for _ in range(count):
        there = len(screen.windows())
        keys("alt+F4")
        wait_count(screen, there - 1)
        time.sleep(0.1)


def bare_page(bench):
    """What the page process of a bare view holds of the same page, in MB."""
    process = subprocess.Popen([str(bench.build / "bin/bare_view"), bench.base + "/page/1"], stdout=subprocess.PIPE,
                               stderr=subprocess.DEVNULL)
    try:
        process.stdout.readline()  # loaded
        time.sleep(SETTLED)
        return page_memory(process.pid)
    finally:
        process.terminate()
        process.communicate()


def rows(bench):
    screen = Screen()
    browser = Browser(bench.build, bench.base + "/page/1")
    try:
        browser.wait_spoken("Page 1")
        # What the first windows leave in caches is there once.
        open_windows(screen, TOGETHER)
        close_windows(screen, TOGETHER)
        time.sleep(SETTLED)
        before = state(browser.process.pid)
        for time_ in range(TIMES):
            open_windows(screen, TOGETHER)
            if time_ == 0:
                time.sleep(SETTLED)
                many = state(browser.process.pid)
            close_windows(screen, TOGETHER)
        time.sleep(SETTLED)
        after = state(browser.process.pid)
    finally:
        browser.end()
    yield ("a window more, tiny page, without its page process", f"{(many.own - before.own) / TOGETHER:.1f} MB", "25 MB",
           f"its page process: {(many.pages - before.pages) / TOGETHER:.1f} MB, "
           f"that of a bare view: {bare_page(bench):.1f} MB")
    many_windows = f"after {TIMES * TOGETHER} windows opened and closed"
    yield (f"memory more {many_windows} (sum of PSS)", f"{max(0, after.memory - before.memory):.1f} MB", "5 MB", "")
    yield (f"processes, threads, open files more {many_windows}",
           f"{after.count - before.count}, {after.threads - before.threads}, {after.descriptors - before.descriptors}")
