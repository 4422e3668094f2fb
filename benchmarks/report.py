#!/usr/bin/env python3
"""Measures the real program against its budgets and prints a table, each figure
beside a reference measured in the same run where there is one. Ends with 1 when a
budget is missed.

Runs below scripts/with-desktop: report.py BUILD_FOLDER [NAME ...] [--runs N]
"""
import argparse
import dataclasses
import http.server
import pathlib
import sys
import threading

SOURCE = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(SOURCE / "tests/e2e"))
import documents  # noqa: E402  (this and the others lie beside this file)
import engine  # noqa: E402
import idle  # noqa: E402
import keys  # noqa: E402
import leaving  # noqa: E402
import lists  # noqa: E402
import memory  # noqa: E402
import quick_keys  # noqa: E402
import reading  # noqa: E402
import speech  # noqa: E402
import starting  # noqa: E402
import trees  # noqa: E402
import windows  # noqa: E402
from measured import misses  # noqa: E402
import web_server  # noqa: E402  (lies beside the end-to-end tests)

# Each has rows(bench), which yields what was measured, the figure, its budget and a
# reference; the last two may be missing.
MEASUREMENTS = {
    "starting": starting,
    "windows": windows,
    "idle": idle,
    "reading": reading,
    "documents": documents,
    "leaving": leaving,
    "memory": memory,
    "trees": trees,
    "lists": lists,
    "quick_keys": quick_keys,
    "engine": engine,
    "speech": speech,
    "keys": keys,
}


@dataclasses.dataclass
class Bench:
    """What a measurement works with."""

    build: pathlib.Path  # the folder of the build
    server: http.server.ThreadingHTTPServer
    base: str  # its address
    runs: int  # for the median


def measure(bench, names):
    """Prints the rows and returns those that are over their budget."""
    over = []
    print("| what | measured | budget | reference, same run |\n|---|---|---|---|", flush=True)
    for name in names:
        for what, figure, *more in MEASUREMENTS[name].rows(bench):
            budget, reference = (*more, "", "")[:2]
            print(f"| {what} | {figure} | {budget} | {reference} |", flush=True)
            if misses(figure, budget):
                over.append(f"{what}: {figure}, wanted {budget}")
    return over


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("names", nargs="*", metavar="NAME", help=f"what to measure: {', '.join(MEASUREMENTS)}")
    parser.add_argument("--runs", type=int, default=5)
    arguments = parser.parse_args()
    unknown = [name for name in arguments.names if name not in MEASUREMENTS]
    if unknown:
        parser.error(f"no measurement {', '.join(unknown)}; there are {', '.join(MEASUREMENTS)}")

    server = web_server.start()
    threading.Thread(target=server.serve_forever, daemon=True).start()
    base = f"http://127.0.0.1:{server.server_address[1]}"
    over = measure(Bench(arguments.build, server, base, arguments.runs), arguments.names or MEASUREMENTS)
    server.shutdown()
    for miss in over:
        print(f"Over its budget: {miss}", flush=True)
    return 1 if over else 0


if __name__ == "__main__":
    sys.exit(main())
