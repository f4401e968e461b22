"""The alert feed: a server on loopback whose answers the tests define."""

from urllib.parse import parse_qs, urlsplit
from xml.sax.saxutils import escape

from loopback import Held, Server, answer


def document(*alerts):
    """Returns the feed document for alerts (id, title, body). None omits the element."""
    parts = ['<?xml version="1.0" encoding="utf-8"?>'
             '<aws:weather xmlns:aws="http://www.aws.com/aws"><aws:api version="2.0"/><aws:alerts>']
    for alert in alerts:
        elements = zip(("id", "title", "html-msg-body"), alert)
        parts.append("<aws:alert>" + "".join(f"<aws:{name}>{escape(text)}</aws:{name}>"
                                             for name, text in elements if text is not None) + "</aws:alert>")
    parts.append("</aws:alerts></aws:weather>")
    return "".join(parts).encode()


# Stations and alerts for them.
LAWRENCE = ("Lawrence, KS (Downtown)", "66044")
PARIS = ("Paris, France (Orly)", "064321")
TORNADO = ("101", "Tornado Warning", "A tornado was seen near Łódź.")
FLOOD = ("102", "Flood Watch", "Flooding is possible.")
# Options of a program that retrieves alerts at start and shows balloons.
AT_START = {"RetrieveAlertsOnStartup": "True", "DisplayTrayAlert": "True"}


class Feed:
    def __init__(self):
        self.answers = {}  # by station code: an answer, or a function that serves the connection
        self.server = Server(self.find_answer)
        self.address = self.server.url("/")

    def find_answer(self, head):
        return self.answers.get(code_of(head.split(" ")[1]), answer(404))

    def serve(self, code, *alerts):
        self.serve_raw(code, document(*alerts))

    def serve_raw(self, code, body, status=200):
        self.answers[code] = answer(status, body)

    def serve_cut_off(self, code, body):
        self.answers[code] = answer(200, body, f"Content-Length: {len(body) + 1}")

    def hold(self, code):
        """Delays the answers for this station until the returned event is set."""
        self.answers[code] = Held(self.answers[code])
        return self.answers[code].gate

    def paths(self):
        """Returns the requested addresses so far, in order."""
        return self.server.targets()

    def codes(self):
        """Returns the requested station codes so far, in order."""
        return [code_of(path) for path in self.paths()]

    def close(self):
        self.server.close()


def code_of(path):
    return parse_qs(urlsplit(path).query).get("ZipCode", [""])[0]
