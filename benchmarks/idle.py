"""How often the program wakes up while nothing happens: what wakes a processor keeps
it from sleeping, and the battery with it."""
import pathlib
import re
import subprocess
import time

from measured import Browser
import processes

SETTLED = 30  # seconds until a page has come to rest: the caret has ceased to blink, too
SPAN = 20     # seconds
AT_MOST = 20  # times in the span, of all processes: the engine looks how full the memory is, and tidies up

PLACES = {  # what is shown, and the keys that lead to where the focus is
    "no page": ("about:blank", []),
    "a page": ("/links/300", []),
    "a page, the address box in use": ("/links/300", ["ctrl+l"]),
}


def switches(pid):
    """How often each thread of a process has gone to sleep of its own accord."""
    counts = {}
    for task in pathlib.Path(f"/proc/{pid}/task").iterdir():
        try:
            found = re.search(r"^voluntary_ctxt_switches:\s+(\d+)", (task / "status").read_text(), re.M)
        except OSError:
            continue  # it has just ended
        counts[task.name] = int(found[1])
    return counts


def wakes(pids):
    """How often these processes wake up in the span."""
    before = [switches(pid) for pid in pids]
    time.sleep(SPAN)
    return sum(count - old.get(thread, 0) for pid, old in zip(pids, before) for thread, count in switches(pid).items())


def family_wakes(pid):
    """The process itself and all that it has started."""
    time.sleep(SETTLED)
    return wakes(processes.family(pid))


def program(build, address, keys):
    browser = Browser(build, address, measures_stalls=False)
    try:
        time.sleep(5)  # the welcome
        if keys:
            subprocess.run(["xdotool", "key", *keys], check=True)
        return family_wakes(browser.process.pid)
    finally:
        browser.end()


def bare(build, address):
    process = subprocess.Popen([str(build / "bin/bare_view"), address], stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL)
    try:
        return family_wakes(process.pid)
    finally:
        process.terminate()
        process.wait()


def rows(bench):
    for place, (page, keys) in PLACES.items():
        address = page if ":" in page else bench.base + page
        figure, reference = program(bench.build, address, keys), bare(bench.build, address)
        yield (f"wake-ups of all its processes in {SPAN} s, idle, {place}", f"{figure} times",
               f"{max(AT_MOST, reference)} times", f"a bare view: {reference} times")
