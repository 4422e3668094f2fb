"""Speech from its request to the device, from its own measuring program."""
from measured import json_lines


def figures_of(build):
    return json_lines(build / "bin/speech_bench")


def first_chunk(figures):
    """The reference of everything that is heard, in words."""
    reference = next((f for f in figures if "reference" in f["what"]), None)
    return f"synthesizer's own first chunk: {reference['p95_ms']:.2f} ms" if reference else ""


def rows(bench):
    figures = figures_of(bench.build)
    words = first_chunk(figures)
    for f in figures:
        if "reference" not in f["what"]:
            yield (f"{f['what']} ({f['output']}), p95", f"{f['p95_ms']:.2f} ms", "", words)
