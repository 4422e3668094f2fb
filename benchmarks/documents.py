"""How soon a long document (PDF) is heard."""
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

from measured import Browser, median

SOURCE = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(SOURCE / "tests/documents"))
import make_documents  # noqa: E402  (its folder must be known first)

PAGES = 300
RUNS = 3


def reference(document):
    """Milliseconds that another program takes for the text alone, in words."""
    if not shutil.which("pdftotext"):
        return ""
    begin = time.monotonic()
    subprocess.run(["pdftotext", str(document), "-"], check=True, stdout=subprocess.DEVNULL)
    return f"its text by pdftotext: {(time.monotonic() - begin) * 1000:.0f} ms"


def rows(bench):
    """The rows of the report."""
    folder = pathlib.Path(tempfile.mkdtemp(prefix="corvane-bench-"))
    try:
        document = folder / "book.pdf"
        make_documents.big(document, PAGES)
        bench.server.documents = folder
        times, stalls = [], []
        for _ in range(RUNS):
            browser = Browser(bench.build, bench.base + "/page/1")
            try:
                browser.wait_spoken("Page 1")
                time.sleep(0.5)
                browser.forget_stalls()
                times.append(browser.go(f"{bench.base}/documents/book.pdf", "A long book"))
                time.sleep(1)
                stalls.append(browser.longest_stall())
            finally:
                browser.end()
        yield (f"Enter → title of a document of {PAGES} pages, median", f"{median(times):.0f} ms", "1 s",
               reference(document))
        yield ("longest stall of the window while it is read, median", f"{median(stalls):.0f} ms", "50 ms")
    finally:
        shutil.rmtree(folder, ignore_errors=True)
