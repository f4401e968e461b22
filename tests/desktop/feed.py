"""The weather feed: a server on loopback that answers as each test tells it to."""

import contextlib
import http.server
import threading
from dataclasses import dataclass
from urllib.parse import parse_qs, urlsplit
from xml.sax.saxutils import escape


def document(*alerts):
    """The feed document of alerts given as (id, title, body); a None leaves the element out."""
    parts = ['<?xml version="1.0" encoding="utf-8"?>'
             '<aws:weather xmlns:aws="http://www.aws.com/aws"><aws:api version="2.0"/><aws:alerts>']
    for alert in alerts:
        elements = zip(("id", "title", "html-msg-body"), alert)
        parts.append("<aws:alert>" + "".join(f"<aws:{name}>{escape(text)}</aws:{name}>"
                                             for name, text in elements if text is not None) + "</aws:alert>")
    parts.append("</aws:alerts></aws:weather>")
    return "".join(parts).encode()


TORNADO = ("101", "Tornado Warning", "A tornado was seen near Łódź.")
FLOOD = ("102", "Flood Watch", "Flooding is possible.")


@dataclass
class Answer:
    body: bytes
    status: int = 200
    cut: bool = False  # announce one byte more than comes
    gate: threading.Event = None  # hold the answer back until this is set


class Feed:
    def __init__(self):
        self.answers = {}  # by station code
        self.paths = []  # of all requests
        self.gates = []
        feed = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                with contextlib.suppress(OSError):
                    feed.handle(self)

            def log_message(self, *arguments):
                pass

        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self.server.daemon_threads = True
        self.server.block_on_close = False
        self.address = f"http://127.0.0.1:{self.server.server_address[1]}/"
        threading.Thread(target=self.server.serve_forever, args=(0.05,), daemon=True).start()

    def handle(self, request):
        self.paths.append(request.path)
        code = parse_qs(urlsplit(request.path).query).get("ZipCode", [""])[0]
        answer = self.answers.get(code, Answer(b"no such station", 404))
        if answer.gate:
            answer.gate.wait(60)
        request.send_response(answer.status)
        request.send_header("Content-Length", str(len(answer.body) + answer.cut))
        request.end_headers()
        request.wfile.write(answer.body)

    def serve(self, code, *alerts):
        self.answers[code] = Answer(document(*alerts))

    def serve_raw(self, code, body, **how):
        self.answers[code] = Answer(body, **how)

    def hold(self, code):
        """Holds the answers for this station back; the event returned lets them go."""
        gate = threading.Event()
        self.gates.append(gate)
        self.answers[code].gate = gate
        return gate

    def codes(self):
        """The stations asked for so far, in order."""
        return [parse_qs(urlsplit(path).query)["ZipCode"][0] for path in self.paths]

    def close(self):
        for gate in self.gates:
            gate.set()
        self.server.shutdown()
        self.server.server_close()
