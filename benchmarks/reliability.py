#!/usr/bin/env python3
"""Uses the real program long and roughly, and fails when it leaks, leaves something
behind or falls silent.

Runs below scripts/with-desktop: reliability.py BUILD_FOLDER [use|kills] [OPTION ...]
"""
import argparse
import os
import pathlib
import sys
import tempfile
import threading
import time

SOURCE = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(SOURCE / "tests/e2e"))
import processes  # noqa: E402  (this and the next lie beside the end-to-end tests)
import web_server  # noqa: E402

FIRST = 100  # pages until the program is warm: later states are compared with this one
MOST_GROWTH = 1.10
END = 3  # seconds until the helpers have gone, too, when both cores are busy
A_FEW = 5  # threads and descriptors come and go with them
QUIET = {"Corvane": {"Speech": "True"}, "pnlBrowser": {"SideBar": "0", "Focus": "0"}}


def row(*cells):
    print("| " + " | ".join(map(str, cells)) + " |", flush=True)


def print_state(state):
    parts = ", ".join(f"{name} {size:.0f}" for name, size in state.parts.most_common() if size >= 1)
    sizes = state.files
    row(state.pages, f"{state.memory:.0f}", f"{state.own:.0f} ({parts})", state.processes, state.descriptors, state.threads,
        f"{sizes['history files']} ({sizes['history']})", sizes["data"], sizes["config"], sizes["cache"])


def growth(first, last):
    """What grew and must not, in words."""
    found = []
    if last.own > first.own * MOST_GROWTH:
        found.append(f"its own memory from {first.own:.0f} to {last.own:.0f} MB")
    for what in ("processes", "descriptors", "threads"):
        before, after = getattr(first, what), getattr(last, what)
        if after > before * MOST_GROWTH + A_FEW:
            found.append(f"{what} from {before} to {after}")
    for what in ("data", "config"):
        if last.files[what] > first.files[what] * MOST_GROWTH:
            found.append(f"bytes in {what} from {first.files[what]} to {last.files[what]}")
    return found


def use(corvane, user, pages):
    """Prints the states of a long use and returns what is wrong."""
    import long_use

    row("pages", "PSS, MB", "of that its own, MB", "processes", "descriptors", "threads", "history files (bytes)",
        "other data, bytes", "settings, bytes", "cache, bytes")
    row(*["---"] * 10)
    use_of = long_use.LongUse(corvane, user)
    states = []
    for goal in range(FIRST, pages + 1, FIRST):
        use_of.go_to(goal)
        states.append(use_of.rest())
        print_state(states[-1])
    family = processes.family(corvane.process.pid)
    corvane.close()
    time.sleep(END)
    left = [processes.name(pid) for pid in family if processes.is_alive(pid)]
    return growth(states[0], states[-1]) + ([f"left behind: {left}"] if left else [])


def run(what, arguments):
    """Starts the program with folders of its own and does one of the two things."""
    import harness  # it looks for the program when it is read
    import kills
    from ear_user import EarUser

    server = web_server.start()
    threading.Thread(target=server.serve_forever, daemon=True).start()
    sound = kills.sound_server() if what == "kills" else None
    with tempfile.TemporaryDirectory(prefix="corvane-reliability-", ignore_cleanup_errors=True) as home:
        corvane = harness.Corvane(home, QUIET, sound.environment() if sound else None)
        try:
            corvane.transcript.wait_for("Hello, welcome to Corvane 2000", "Corvane home page")
            user = EarUser(corvane, f"http://127.0.0.1:{server.server_address[1]}")
            if what == "use":
                return use(corvane, user, arguments.pages)
            print(f"seed {arguments.seed}\n")
            kills.survive(corvane, user, sound, arguments.seed, arguments.times, row)
            return []
        except AssertionError:
            corvane.screenshot(arguments.build / "reliability.png")
            print(*corvane.transcript.events()[-20:], corvane.log_text()[-3000:],
                  f"exit code {corvane.process.poll()}", sep="\n", file=sys.stderr)
            raise
        finally:
            corvane.kill()
            if sound:
                sound.close()
            server.shutdown()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("what", nargs="?", default="all", choices=["use", "kills", "all"])
    parser.add_argument("--pages", type=int, default=500)
    parser.add_argument("--times", type=int, default=10, help="kills of each kind")
    parser.add_argument("--seed", type=int, default=time.time_ns() % 100_000)
    arguments = parser.parse_args()
    os.environ["CORVANE_PROGRAM"] = str(arguments.build.resolve() / "bin/corvane")
    processes.adopt_orphans()
    wrong = []
    for what in ("use", "kills") if arguments.what == "all" else (arguments.what,):
        wrong += run(what, arguments)
        print()
    print("Wrong: " + "; ".join(wrong) if wrong else "Nothing grew, nothing was left behind, nothing fell silent.")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
