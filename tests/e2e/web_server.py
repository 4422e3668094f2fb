"""A web server on the loopback interface with the project's own pages, kind and
ugly ones alike. Nothing here leaves the machine."""
import http.server
import io
import math
import pathlib
import struct
import threading
import wave

PAGES = pathlib.Path(__file__).resolve().parent / "pages"
PATTERNS = pathlib.Path(__file__).resolve().parent / "patterns"


def _links(count):
    items = "".join(f'<p><a href="/page/{i}">Link number {i}</a></p>\n' for i in range(1, count + 1))
    return f"<!doctype html><title>{count} links</title><body>\n{items}"


def _megabytes(count, line):
    text = (line * (count * 1024 * 1024 // len(line) + 1))[: count * 1024 * 1024]
    return f"<!doctype html><title>{count} megabytes</title><body><p>Beginning</p><pre>{text}</pre>"


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def log_message(self, *arguments):
        pass

    def do_GET(self):
        path, _, _ = self.path.partition("?")
        special = getattr(self, "page_" + path.strip("/").replace("-", "_").split("/")[0], None)
        file = PAGES / path.lstrip("/")
        if special:
            special(path)
        elif file.is_file() and file.parent == PAGES:
            self.reply(file.read_bytes())
        else:
            self.reply("<title>Not here</title><p>There is no such page.", status=404)

    def do_POST(self):
        self.server.posted.append(self.rfile.read(int(self.headers["Content-Length"])))
        self.reply("<title>Received</title><p>Thank you.")

    def reply(self, body, content_type="text/html; charset=utf-8", status=200, headers=()):
        data = body.encode() if isinstance(body, str) else body
        self.send_response(status)
        self.send_header("Content-Type", content_type)
        self.send_header("Content-Length", str(len(data)))
        for name, value in headers:
            self.send_header(name, value)
        self.end_headers()
        self.wfile.write(data)

    def page_page(self, path):
        number = path.rsplit("/", 1)[-1]
        self.reply(f"<title>Page {number}</title><p>This is page {number}. <a href='/start.html'>Back to the start</a>")

    def page_tone(self, path):
        """Half a minute of one tone, 9,000 hertz, where speech has next to nothing."""
        second = b"".join(struct.pack("<h", round(6000 * math.sin(2 * math.pi * 9000 * i / 44100)))
                          for i in range(44100))
        sound = io.BytesIO()
        with wave.open(sound, "wb") as file:
            file.setparams((1, 2, 44100, 0, "NONE", ""))
            file.writeframes(second * 30)
        self.reply(sound.getvalue(), "audio/wav")

    def page_patterns(self, path):
        file = PATTERNS / path.rsplit("/", 1)[-1]
        if file.is_file():
            return self.reply(file.read_bytes())
        self.reply("<title>Not here</title><p>There is no such page.", status=404)

    def page_frames(self, path):
        number = path.rsplit("/", 1)[-1]
        self.reply(f"<title>Frames {number}</title><p><a href='/weather.html'>The weather</a>"
                   f"<iframe src='/form.html'></iframe><iframe src='/page/{number}'></iframe>")

    def page_forms(self, path):
        """Forms as pages of today have them: each kind of element that gets the focus."""
        number = path.rsplit("/", 1)[-1]
        self.reply(f"""<!doctype html><title>Forms {number}</title><h1>Form {number}</h1>
<form><p>First <input name="first{number}"></p>
<fieldset tabindex="0"><legend>Set {number}</legend><p>Inner <input name="inner"></p></fieldset>
<p><button type="button">Press {number}</button></p>
<p><object tabindex="0" aria-label="A picture" type="image/svg+xml"
 data="data:image/svg+xml,&lt;svg xmlns='http://www.w3.org/2000/svg'/&gt;" width="9" height="9"></object></p></form>
<form action="/weather.html"><p>Second <input name="second{number}" value="x"></p>
<p><input type="submit" value="Send"></p></form>""")

    def page_links(self, path):
        self.reply(_links(int(path.rsplit("/", 1)[-1])))

    def page_megabytes(self, path):
        self.reply(_megabytes(int(path.rsplit("/", 1)[-1]), "All work and no play makes a long page.\n"))

    def page_chapters(self, path):
        """So many megabytes with a heading, a link and paragraphs in each piece."""
        words = "All work and no play makes a long page. " * 20
        piece = "<h2>Chapter {0}</h2><p><a href='/page/{0}'>Its end</a> " + f"{words}<p>{words}<p>{words}\n"
        count = int(path.rsplit("/", 1)[-1]) * 1024 * 1024 // len(piece)
        self.reply(f"<!doctype html><title>{count} chapters</title>"
                   + "".join(piece.format(n) for n in range(1, count + 1)))

    def page_one_line(self, path):
        self.reply(_megabytes(int(path.rsplit("/", 1)[-1]), "one single line without an end "))

    def page_broken_text(self, _):
        self.reply(b"<title>Broken \xff\xfe text</title><body>before \xc3\x28 after \xed\xa0\x80 end")

    def page_no_scripts(self, _):
        self.reply("<title>No scripts here</title><p>Read all the same. <a href='/start.html'>On</a>",
                   headers=[("Content-Security-Policy", "sandbox")])

    def page_redirects(self, _):
        self.reply("", status=302, headers=[("Location", self.path + "x")])

    def page_private(self, _):
        if self.headers.get("Authorization") == "Basic YWRhOnNlY3JldA==":
            return self.reply("<title>Inside the vault</title><p>Gold.")
        self.reply("<title>Not for you</title>", status=401,
                   headers=[("WWW-Authenticate", 'Basic realm="The vault"')])

    def page_stall(self, _):
        self.send_response(200)
        self.send_header("Content-Type", "text/html")
        self.end_headers()
        self.wfile.write(b"<title>Half a page</title><p>The rest never comes." + b" " * 4096)
        self.wfile.flush()
        self.server.stopped.wait()

    def page_gated(self, _):
        """The beginning at once, the rest when the gate is opened."""
        self.send_response(200)
        self.send_header("Content-Type", "text/html")
        self.end_headers()
        self.wfile.write(b"<title>Worth the wait</title><p>The beginning." + b" " * 4096)
        self.wfile.flush()
        self.server.gate.wait()
        self.wfile.write(b"<p>The end.")
        self.close_connection = True

    def page_documents(self, path):
        """Documents that a test has put into a folder."""
        file = self.server.documents / path.rsplit("/", 1)[-1]
        self.reply(file.read_bytes(), content_type="application/pdf")

    def page_attached(self, path):
        file = self.server.documents / path.rsplit("/", 1)[-1]
        self.reply(file.read_bytes(), content_type="application/pdf",
                   headers=[("Content-Disposition", f'attachment; filename="{file.name}"')])

    def page_endless_document(self, _):
        self.send_response(200)
        self.send_header("Content-Type", "application/pdf")
        self.send_header("Content-Length", "100000")
        self.end_headers()
        self.wfile.write(b"%PDF-1.7\n" + b" " * 40_000)
        self.wfile.flush()
        self.server.stopped.wait()

    # Files to be saved. Of those that are not whole at once, 100,000 bytes are told.
    def begin_file(self, size=100_000):
        self.send_response(200)
        self.send_header("Content-Type", "application/zip")
        self.send_header("Content-Length", str(size))
        self.end_headers()

    def page_file(self, path):
        self.reply(path.encode()[:9], content_type="application/zip")

    def page_slow_file(self, _):
        """Comes in small pieces until the gate is opened, and then at once."""
        self.begin_file()
        for _ in range(100):
            self.wfile.write(b"x" * 1000)
            self.wfile.flush()
            self.server.gate.wait(0.4)

    def page_endless_file(self, _):
        self.begin_file()
        self.wfile.write(b"x" * 40_000)
        self.wfile.flush()
        self.server.stopped.wait()

    def page_broken_file(self, _):
        self.begin_file()
        self.wfile.write(b"x" * 40_000)
        self.close_connection = True

    def page_silent(self, _):
        self.server.stopped.wait()


class Server(http.server.ThreadingHTTPServer):
    daemon_threads = True

    def __init__(self):
        super().__init__(("127.0.0.1", 0), Handler)
        self.stopped = threading.Event()
        self.posted = []  # the bodies of forms
        self.documents = PAGES  # the folder of documents, which tests make
        self.gate = threading.Event()  # opened by a test when a page may go on

    def shutdown(self):
        self.stopped.set()
        self.gate.set()
        super().shutdown()
        self.server_close()


def start():
    """A server on a free port; the caller serves and shuts it down."""
    return Server()
