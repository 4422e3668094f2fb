"""How soon a page with many links is heard."""
import shutil
import subprocess
import time

from measured import Browser, median


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
            times.append(browser.go(f"{base}/links/{links}", f"{links} links"))
            time.sleep(1)
            stalls.append(browser.longest_stall())
        finally:
            browser.end()
    return times, stalls


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


def rows(bench):
    for links in (10_000, 50_000):
        others = text_browsers(bench.base, links, 3)
        times, stalls = reading(bench.build, bench.base, links, 3)
        yield (f"Enter → title of a page with {links} links spoken, coming from a small one, median",
               f"{median(times):.0f} ms", "350 ms" if links == 10_000 else "",
               ", ".join(f"{name} -dump: {value:.0f} ms" for name, value in others.items()))
        yield (f"longest stall of the window while {links} links are read, median",
               f"{median(stalls):.0f} ms", "50 ms" if links == 10_000 else "", "")
