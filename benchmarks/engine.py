"""The page record, the page's text and recovery, from the engine's own measuring
program."""
from measured import json_lines, median

PAGES = {  # the engine's measuring pages: what they are called, budget of their record
    ("links", 100): ("100 links", ""),
    ("links", 10_000): ("10,000 links", "100 ms"),
    ("links", 50_000): ("50,000 links", "500 ms"),
    ("text", 0): ("10 MB of text", ""),
    ("line", 0): ("one line of 2 MB", ""),
}


def rows(bench):
    figures = json_lines(bench.build / "bin/web_bench")

    def of(key, **page):
        return [f[key] for f in figures if key in f and all(f.get(k) == v for k, v in page.items())]

    for (page, links), (name, budget) in PAGES.items():
        record = of("finished_to_document_ms", page=page, links=links)
        stall = of("longest_stall_ms", page=page, links=links)
        if record:
            yield (f"page finished → record usable, {name}, median (longest stall meanwhile)",
                   f"{median(record):.0f} ms ({median(stall):.0f} ms)", budget)
        text = of("text_ms", page=page, links=links)
        if text:
            yield (f"its text with all elements in it, {name}, median (longest stall meanwhile)",
                   f"{median(text):.0f} ms ({median(of('text_stall_ms', page=page, links=links)):.0f} ms)", budget)
    for element in dict.fromkeys(f["facts"] for f in figures if "facts" in f):
        yield (f"page time to tell what has the focus, {element}, median",
               f"{median(of('facts_ms', facts=element)):.2f} ms", "2 ms")
    for key, what in [("crash_to_signal_ms", "page process killed → noticed, median"),
                      ("crash_to_problem_page_ms", "page process killed → page that says so, median"),
                      ("refresh_ms", "Refresh → next load begun, median")]:
        if of(key):
            yield (what, f"{median(of(key)):.0f} ms")
