"""How soon the first window is there, and what the program keeps of the memory."""
import shutil
import subprocess
import tempfile
import time

from measured import Browser, median
import processes


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


def rows(bench):
    windows, memories = start_and_memory(bench.build, bench.base, bench.runs)
    reference = reference_browser(bench.base)
    yield ("start → first window, warm, median", f"{median(windows):.2f} s", "0.5 s", "")
    yield ("memory (sum of PSS), tiny page, median", f"{median(memories):.0f} MB", "300 MB",
           f"another browser of the same engine: {reference:.0f} MB" if reference else "")
