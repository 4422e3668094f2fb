"""What a very long page takes: the program and its page process, beside a window with
nothing but the engine's view in it that shows the same page."""
import subprocess
import time

from measured import Browser, median
import processes

LINKS = 50_000
RUNS = 3
SETTLED = 20  # seconds: what the reading of the page has used for a while is given back


def memory(pid):
    """MB of the program and of its page process."""
    pages = processes.named(pid, processes.PAGE)
    return processes.memory(pid), sum(map(processes.memory, pages))


def program(build, base):
    browser = Browser(build, base + "/page/1")
    try:
        browser.wait_spoken("Page 1")
        browser.go(f"{base}/links/{LINKS}", f"{LINKS} links")
        time.sleep(SETTLED)
        return memory(browser.process.pid)
    finally:
        browser.end()


def bare(build, base):
    process = subprocess.Popen([str(build / "bin/bare_view"), f"{base}/links/{LINKS}"], stdout=subprocess.PIPE,
                               stderr=subprocess.DEVNULL)
    try:
        process.stdout.readline()  # loaded
        time.sleep(SETTLED)
        return memory(process.pid)
    finally:
        process.terminate()
        process.communicate()


def rows(bench):
    own, references = [], []
    bare(bench.build, bench.base)  # the first program on a display does some work for all
    for _ in range(RUNS):  # in turn, so that both meet the same machine
        references.append(bare(bench.build, bench.base))
        own.append(program(bench.build, bench.base))

    def told(figures):
        both = median([sum(each) for each in figures])
        parts = [median([each[i] for each in figures]) for i in (0, 1)]
        return both, f"{both:.0f} MB ({parts[0]:.0f} and {parts[1]:.0f} MB)"

    figure, reference = told(own), told(references)
    yield (f"program and page process, page with {LINKS:,} links (sum of PSS)", figure[1],
           f"{1.15 * reference[0]:.0f} MB", f"a bare view: {reference[1]}")
