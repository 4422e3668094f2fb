"""What is measured: one run of the program, and how a figure is shown."""
import json
import os
import pathlib
import re
import shutil
import statistics
import subprocess
import tempfile
import time


def median(values):
    return statistics.median(values) if values else None


def p95(values):
    return sorted(values)[max(0, round(0.95 * len(values)) - 1)] if values else None


class Browser:
    """One run of the program with a home page and folders of its own."""

    def __init__(self, build, address, pane=None, main=None, prepare=None, measures_stalls=True, **environment):
        self.home = pathlib.Path(tempfile.mkdtemp(prefix="corvane-bench-"))
        config = self.home / "config/corvane"
        config.mkdir(parents=True)
        (config / "Corvane.ini").write_text(
            "[Settings]\nSpeech=True\n" + "".join(f"{k}={v}\n" for k, v in (main or {}).items()))
        settings = {"Home": 4, "StartingAddress": address, "Focus": 5, **(pane or {})}
        (config / "pnlBrowser.ini").write_text(
            "[Settings]\n" + "".join(f"{key}={value}\n" for key, value in settings.items()))
        if prepare:
            prepare(self)
        self.transcript = self.home / "transcript"
        self.stalls = self.home / "stalls"
        env = dict(os.environ, CORVANE_AUDIO="null", CORVANE_TRANSCRIPT=str(self.transcript))
        if measures_stalls:  # which wakes it every millisecond
            env["CORVANE_STALLS"] = str(self.stalls)
        env.update(environment)
        for name in ("CONFIG", "DATA", "CACHE"):
            env[f"XDG_{name}_HOME"] = str(self.home / name.lower())
        self.started = time.monotonic()
        self.process = subprocess.Popen([str(build / "bin/corvane")], env=env,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def events(self):
        try:
            lines = self.transcript.read_text().splitlines()
        except FileNotFoundError:
            return []
        events = []
        for line in lines:
            try:
                events.append(json.loads(line))
            except json.JSONDecodeError:
                break
        return events

    def speaks(self):
        return [e for e in self.events() if e["event"] == "speak"]

    def wait_spoken(self, text, patience=120):
        end = time.monotonic() + patience
        while time.monotonic() < end:
            for event in self.speaks():
                if event["text"] == text:
                    return event["t"]
            time.sleep(0.005)
        raise RuntimeError(f"never spoken: {text}")

    def go(self, address, words):
        """Types an address as a user does, and returns the milliseconds from Enter to
        those words, or to Enter alone without any."""
        subprocess.run(["xdotool", "key", "--delay", "60", "ctrl+l", "ctrl+a"], check=True)
        subprocess.run(["xdotool", "type", "--delay", "5", address], check=True)
        time.sleep(0.3)
        before = time.monotonic()
        subprocess.run(["xdotool", "key", "Return"], check=True)
        return (self.wait_spoken(words) - before) * 1000 if words else 0

    def forget_stalls(self):
        """What comes from now on is measured; twice, because the program may be
        about to write down what was before."""
        self.stalls.unlink(missing_ok=True)
        time.sleep(0.1)
        self.stalls.unlink(missing_ok=True)

    def longest_stall(self):
        """Milliseconds since forget_stalls, or since the start."""
        try:
            return float(self.stalls.read_text().split()[-1])
        except (FileNotFoundError, IndexError):
            return None

    def end(self):
        self.process.terminate()
        self.process.wait()
        shutil.rmtree(self.home, ignore_errors=True)


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


UNITS = {"ms": 0.001, "s": 1, "MB": 1, "times": 1}


def amount(text):
    """The number that a figure or a budget begins with, in seconds, MB or times; None
    where it begins with none."""
    found = re.match(r"([\d.]+) (ms|s|MB|times)\b", text)
    return float(found[1]) * UNITS[found[2]] if found else None


def misses(figure, budget):
    """Whether a figure is over its budget, or should be under one and is no figure."""
    if not budget:
        return False
    measured = amount(figure)
    return measured is None or measured > amount(budget)
