"""PDF documents for the tests, made by three writers that have nothing in common: a
drawing library that tags, a report library that does not, and a few lines of this file,
which write what neither of them can.

    make_documents.py FOLDER      writes all of them
"""
import pathlib
import sys

import cairo
from reportlab.lib.pdfencrypt import StandardEncryption
from reportlab.pdfbase import pdfmetrics
from reportlab.pdfbase.cidfonts import UnicodeCIDFont
from reportlab.pdfgen import canvas

FONT = "DejaVu Sans"
WIDTH, HEIGHT = 595, 842
PARAGRAPH = ("The quick brown fox jumps over a lazy dog while rain falls on green hills far away "
             "and nobody is there to hear it.")


class Drawn:
    """A page of the drawing library, written from top to bottom."""

    def __init__(self, path):
        self.surface = cairo.PDFSurface(str(path), WIDTH, HEIGHT)
        self.context = cairo.Context(self.surface)
        self.context.select_font_face(FONT)
        self.top = 60

    def line(self, text, tag=None, size=11, left=50, attributes="", step=True):
        self.context.set_font_size(size)
        self.context.move_to(left, self.top)
        if tag:
            self.context.tag_begin(tag, attributes)
        self.context.show_text(text)
        if tag:
            self.context.tag_end(tag)
        if step:
            self.top += size * 1.5

    def inside(self, tag, *write):
        self.context.tag_begin(tag, "")
        for each in write:
            each()
        self.context.tag_end(tag)

    def page(self):
        self.context.show_page()
        self.top = 60

    def finish(self):
        self.surface.finish()


def tagged(path):
    """Headings, a table, a list, links, an empty page; a word broken at a line's end."""
    page = Drawn(path)
    page.surface.set_metadata(cairo.PDFMetadata.TITLE, "Opening hours & more")
    page.line("Opening hours", "H1", 20)
    page.inside("P",
                lambda: page.line("We are open every day from nine to five, but not on Sun-"),
                lambda: page.line("days and holidays."))
    page.line("Prices", "H2", 16)

    def row(words, heads):
        def write():
            for place, word in enumerate(words):
                head = heads or place == 0
                page.line(word, "TH" if head else "TD", left=50 + 100 * place, step=False)
            page.top += 16
        return lambda: page.inside("TR", write)
    page.inside("Table", row(("Ticket", "Price"), True), row(("Adult", "12"), False),
                row(("Child", "6"), False))

    def item(words):
        def write():
            page.line("\N{BULLET}", "Lbl", step=False)
            page.line(words, "LBody", left=70)
        return lambda: page.inside("LI", write)
    page.inside("L", item("Bring a coat."), item("Leave the dog."))
    page.inside("P", lambda: page.line("Our site", "Link",
                                       attributes="uri='https://example.org/?a=1&b=2'"))
    page.page()
    page.page()
    page.line("The map", "H1", 20)
    page.line("Turn left.", "P")
    page.page()
    page.finish()


def report(path, web="https://example.org/", password=None):
    """No tags: an outline, two columns, links within and out of the document."""
    locked = password and StandardEncryption(password, canPrint=0)
    page = canvas.Canvas(str(path), pagesize=(WIDTH, HEIGHT), encrypt=locked)
    page.setTitle("Yearly report")

    def heading(text, name, level, top, size=18):
        page.setFont("Helvetica-Bold", size)
        page.drawString(50, top, text)
        page.bookmarkHorizontal(name, 0, top + size)
        page.addOutlineEntry(text, name, level)

    def link(text, left, top, act):
        page.setFont("Helvetica", 11)
        page.drawString(left, top, text)
        act((left, top - 3, left + page.stringWidth(text), top + 11))

    heading("Contents", "contents", 0, 760)
    link("Go to the second part", 50, 700,
         lambda area: page.linkRect("", "second", area, relative=0))
    entry = "Part two " + ". " * 20
    page.drawString(50, 680, entry)
    link("3", 50 + page.stringWidth(entry), 680, lambda area: page.linkRect("", "second", area, relative=0))
    link("Go out", 50, 660, lambda area: page.linkURL(web, area))
    page.showPage()
    heading("First part", "first", 0, 760)
    page.setFont("Helvetica", 10)
    for column, words in ((50, "left"), (320, "right")):
        for line in range(12):
            page.drawString(column, 700 - 14 * line, f"Words of the {words} column, line {line + 1}")
    page.showPage()
    page.setFont("Helvetica", 11)
    page.drawString(50, 760, "What comes before it on the page.")
    heading("Second part", "second", 0, 500)
    page.setFont("Helvetica", 11)
    page.drawString(50, 460, "The end.")
    page.showPage()
    page.save()


def locked(path):
    report(path, password="open sesame")


def japanese(path):
    """Letters that only a table outside the document tells."""
    pdfmetrics.registerFont(UnicodeCIDFont("HeiseiMin-W3"))
    page = canvas.Canvas(str(path), pagesize=(WIDTH, HEIGHT))
    page.setFont("HeiseiMin-W3", 16)
    page.drawString(50, 700, "\u65e5\u672c\u8a9e")
    page.showPage()
    page.save()


def scanned(path):
    """A page that is a picture, and one with text."""
    page = Drawn(path)
    picture = cairo.ImageSurface(cairo.FORMAT_RGB24, 20, 20)
    page.context.set_source_surface(picture, 50, 50)
    page.context.paint()
    page.context.set_source_rgb(0, 0, 0)
    page.page()
    page.line("Words after all.")
    page.page()
    page.finish()


def big(path, pages=300):
    """As many pages as a book has, tagged as a word processor does it."""
    page = Drawn(path)
    page.surface.set_metadata(cairo.PDFMetadata.TITLE, "A long book")
    for number in range(1, pages + 1):
        page.line(f"Chapter {number}", "H1", 18)
        for _ in range(8):
            page.inside("P", *[lambda: page.line(PARAGRAPH[:85], size=10)] * 5)
        page.page()
    page.finish()


class Written:
    """A document put together by hand."""

    def __init__(self):
        self.objects = []

    def add(self, text):
        self.objects.append(text)
        return len(self.objects)

    def stream(self, text):
        return self.add(f"<< /Length {len(text)} >>\nstream\n{text}\nendstream")

    def write(self, path, root):
        out = b"%PDF-1.7\n"
        places = []
        for number, text in enumerate(self.objects, 1):
            places.append(len(out))
            out += f"{number} 0 obj\n{text}\nendobj\n".encode("latin-1")
        start = len(out)
        out += f"xref\n0 {len(places) + 1}\n0000000000 65535 f \n".encode()
        out += b"".join(b"%010d 00000 n \n" % place for place in places)
        out += f"trailer << /Size {len(places) + 1} /Root {root} 0 R >>\n".encode()
        out += f"startxref\n{start}\n%%EOF\n".encode()
        pathlib.Path(path).write_bytes(out)


# (tag, attributes of the element, what is drawn) of the document written by hand
MARKED = (
    ("H1", "", "Bericht"),
    ("P", "", "Guten Tag."),
    ("P", "/Lang (en-GB)", "Good day."),
    ("Figure", "/Alt (A cat on a mat)", ""),
    ("P", "/ActualText (Spelled out)", "Sp'd"),
)


def by_hand(path):
    """Languages, a picture with words, words given in place of others, cells that head a
    row and span columns, an ornament, and text that no tag holds."""
    made = Written()
    catalog, pages, page = made.add(""), made.add(""), made.add("")
    font = made.add("<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>")
    drawn, elements = [], []
    root = made.add("")
    top = 780
    drawn.append(f"/Artifact BMC BT /F1 9 Tf 50 {top} Td (Running head) Tj ET EMC")
    number = 0

    def draw(tag, text, left=50):
        nonlocal number
        drawn.append(f"/{tag} << /MCID {number} >> BDC BT /F1 11 Tf {left} {top} Td ({text}) Tj ET EMC")
        number += 1
        return number - 1

    for tag, attributes, text in MARKED:
        top -= 30
        mark = draw(tag, text)
        elements.append(made.add(f"<< /S /{tag} /P {root} 0 R /Pg {page} 0 R /K {mark} {attributes} >>"))
    rows = []
    for words in (("Sum", None), ("Rent", "700")):
        top -= 30
        cells = []
        for place, word in enumerate(word for word in words if word):
            tag = "TH" if place == 0 else "TD"
            what = "/ColSpan 2" if words[1] is None else "/Scope /Row" if place == 0 else ""
            mark = draw(tag, word, 50 + 100 * place)
            cells.append(made.add(f"<< /S /{tag} /P {root} 0 R /Pg {page} 0 R /K {mark}"
                                  f" /A << /O /Table {what} >> >>"))
        rows.append(made.add(f"<< /S /TR /P {root} 0 R /K [{' '.join(f'{c} 0 R' for c in cells)}] >>"))
    elements.append(made.add(
        f"<< /S /Table /P {root} 0 R /K [{' '.join(f'{r} 0 R' for r in rows)}] >>"))
    top -= 30
    drawn.append(f"BT /F1 11 Tf 50 {top} Td (Nobody has tagged this.) Tj ET")
    content = made.stream("\n".join(drawn))
    made.objects[root - 1] = ("<< /Type /StructTreeRoot /K ["
                              + " ".join(f"{element} 0 R" for element in elements) + "] >>")
    made.objects[page - 1] = (f"<< /Type /Page /Parent {pages} 0 R /MediaBox [0 0 {WIDTH} {HEIGHT}]"
                              f" /Contents {content} 0 R /StructParents 0"
                              f" /Resources << /Font << /F1 {font} 0 R >> >> >>")
    made.objects[pages - 1] = f"<< /Type /Pages /Kids [{page} 0 R] /Count 1 >>"
    made.objects[catalog - 1] = (f"<< /Type /Catalog /Pages {pages} 0 R /Lang (de-DE)"
                                 f" /MarkInfo << /Marked true >> /StructTreeRoot {root} 0 R"
                                 " /PageLabels << /Nums [0 << /S /r /St 4 >>] >> >>")
    made.write(path, catalog)


def broken(path):
    pathlib.Path(path).write_bytes(b"%PDF-1.7\nNothing of what follows is a document.\n" * 20)


ALL = (tagged, report, locked, japanese, scanned, by_hand, broken)


def make(folder):
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    for write in ALL:
        write(folder / f"{write.__name__}.pdf")


if __name__ == "__main__":
    make(sys.argv[1])
