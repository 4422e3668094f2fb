"""Long pages, and what there is on them for somebody who reads by ear: taken from their
source, without the program."""
import html.parser
import re

BLANK = re.compile(r"[ \t\n\r\f]+")


def words(text):
    return BLANK.sub(" ", text).strip()


class Manual(html.parser.HTMLParser):
    """The headings, links, data tables, pictures and lists of a manual in plain HTML, in
    the order in which they begin."""

    def __init__(self, text):
        super().__init__()
        self.found = {kind: [] for kind in ("heading", "link", "table", "picture", "list")}
        self._open = []  # [tag, kind, entry]
        self.feed(text)
        self.close()
        self.headings = [f"{words(e['text'])}, heading level {e['level']}" for e in self._with_words("heading")]
        self.links = [f"{words(e['text'])}, link" for e in self._with_words("link")]
        self.pictures = [f"{e['text']}, picture" for e in self.found["picture"]]
        self.tables = len([e for e in self.found["table"] if e["header"] and not e["nests"]])
        self.lists = len(self.found["list"])

    def _with_words(self, kind):
        return [each for each in self.found[kind] if words(each["text"])]

    def _begin(self, tag, kind, **more):
        entry = {"text": "", **more}
        self.found[kind].append(entry)
        self._open.append((tag, kind, entry))

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        if re.fullmatch("h[1-6]", tag):
            self._begin(tag, "heading", level=tag[1])
        elif tag == "a" and "href" in attributes and "copiable" not in attributes.get("class", ""):  # is hidden
            self._begin(tag, "link")
        elif tag == "table":
            for _, kind, entry in self._open:
                if kind == "table":
                    entry["nests"] = True
            self._begin(tag, "table", header=False, nests=False)
        elif tag in ("th", "thead", "caption"):
            tables = [entry for _, kind, entry in self._open if kind == "table"]
            if tables:
                tables[-1]["header"] = True
        elif tag in ("ul", "ol"):
            self._begin(tag, "list")
        elif tag == "img" and attributes.get("alt"):
            self.found["picture"].append({"text": words(attributes["alt"])})
            self._add(attributes["alt"])

    def handle_endtag(self, tag):
        for i in range(len(self._open) - 1, -1, -1):
            if self._open[i][0] == tag:
                del self._open[i:]
                return

    def handle_data(self, data):
        self._add(data)

    def _add(self, text):
        for _, kind, entry in self._open:
            if kind in ("heading", "link"):
                entry["text"] += text


class Made:
    """A long page that is made, and what is to be heard of it, by the key that leads
    there."""

    def __init__(self, title):
        self.title = title
        self.heard = {key: [] for key in "hklitgexrcbqdo"}
        self._parts = [f"<!doctype html><html lang=en><meta charset=utf-8><title>{title}</title><main>"]
        self.add("", d="main")

    def add(self, content, **heard):
        self._parts.append(content)
        for key, sentence in heard.items():
            self.heard[key] += [sentence] if isinstance(sentence, str) else sentence

    def html(self):
        return "\n".join(self._parts)


def shop(count):
    """Wares with pictures, prices, fields and buttons."""
    page = Made("A long shop")
    for n in range(1, count + 1):
        page.add(f"<h2>Ware <b>{n}</b></h2>", h=f"Ware {n}, heading level 2")
        page.add(f"<p><img src='data:,' alt='Picture of ware {n}'> costs {n} coins, see "
                 f"<a href='/page/{n}'>more of\n ware {n}</a>.",
                 g=f"Picture of ware {n}, picture", k=f"more of ware {n}, link")
        page.add(f"<form action=/page/1><p><label>How many of {n} <input name=a{n} value={n}></label>",
                 e=f"How many of {n}, edit, {n}")
        page.add(f"<p><label><input type=checkbox name=b{n}{' checked' if n % 2 else ''}> Wrap {n}</label>",
                 x=f"Wrap {n}, check box, {'checked' if n % 2 else 'not checked'}")
        page.add(f"<p><label>Colour {n} <select name=c{n}><option>Red<option>Blue</select></label>",
                 c=f"Colour {n}, combo box, Red")
        page.add(f"<p><button type=button>Add {n} to basket</button></form>", b=f"Add {n} to basket, button")
        page.add("<p>Words between the wares, which nobody asks for.</p><img src='data:,' alt=''>")
    return page


def book(count):
    """Chapters with lists in lists, quotations, tables and words from right to left."""
    page = Made("A long book")
    for n in range(1, count + 1):
        page.add(f"<h1>Chapter {n}</h1>", h=f"Chapter {n}, heading level 1")
        page.add(f"<p dir=rtl lang=he>שלום {n} <a href='/page/{n}'>קישור {n}</a>", k=f"קישור {n}, link")
        page.add(f"<ul><li>outer {n}<ol><li>inner {n}</ol><li>last {n}</ul>",
                 l=["list of 2", "list of 1"],
                 i=[f"outer {n}, list item", f"inner {n}, list item", f"last {n}, list item"])
        page.add(f"<blockquote>Said {n}</blockquote>", q=f"Said {n}, quotation")
        page.add(f"<table><caption>Table {n}</caption><tr><th>A<th>B<tr><td>{n}<td><a href=/page/x>cell {n}</a></table>",
                 t=f"Table {n}, table, 2 rows, 2 columns", k=f"cell {n}, link")
        page.add("<table><tr><td>laid<td>out</table><pre>a  b\n   c</pre>")
    return page


def application(count):
    """Parts made of plain elements with roles, in shadow trees and frames."""
    page = Made("A long application")
    for n in range(1, count + 1):
        page.add(f"<section aria-label='Part {n}'>", d=f"Part {n}, region")
        page.add(f"<div role=heading aria-level=3>Head {n}</div>", h=f"Head {n}, heading level 3")
        page.add(f"<span role=link tabindex=0 aria-label='Go to {n}'><svg width=9 height=9></svg></span>",
                 k=f"Go to {n}, link")
        page.add(f"<div role=button tabindex=0 aria-pressed=true>Bold {n}</div>",
                 b=f"Bold {n}, toggle button, pressed")
        page.add(f"<div role=checkbox tabindex=0 aria-checked=mixed aria-label='All of {n}'></div>",
                 x=f"All of {n}, check box, partly checked")
        page.add(f"<div><template shadowrootmode=open><h4>Shaded {n}</h4><a href=/page/{n}><slot></slot></a>"
                 f"</template>given {n}</div>", h=f"Shaded {n}, heading level 4", k=f"given {n}, link")
        page.add("<p hidden><a href=/>hidden</a><button>no</button></p><p style='visibility:hidden'><a href=/>not seen</a></p>")
        page.add(f"<iframe title='Frame {n}' srcdoc='<h5>Framed {n}</h5>'></iframe>", o=f"Frame {n}, frame",
                 h=f"Framed {n}, heading level 5")
        page.add("</section>")
    return page
