"""The feed that the measured program asks."""

import http.server
import threading
from urllib.parse import parse_qs, urlsplit

HELD = "99999"  # the station code whose answer the feed holds back


def make_document(code):
    """Two alerts of a usual length for a station."""
    alert = (
        f"<aws:alert><aws:id>BENCH-{code}-%d</aws:id><aws:title>Tornado Warning</aws:title>"
        "<aws:html-msg-body>" + "A SEVERE THUNDERSTORM IS MOVING EAST AT 30 MPH. " * 20
        + "</aws:html-msg-body></aws:alert>"
    )
    return (
        '<?xml version="1.0" encoding="utf-8"?><aws:weather xmlns:aws="http://www.aws.com/aws">'
        f"<aws:alerts>{alert % 1}{alert % 2}</aws:alerts></aws:weather>"
    ).encode()


class Feed(http.server.ThreadingHTTPServer):
    daemon_threads = True
    asked_for_held = threading.Event()
    release_held = threading.Event()

    class Handler(http.server.BaseHTTPRequestHandler):
        def do_GET(self):
            code = parse_qs(urlsplit(self.path).query)["ZipCode"][0]
            if code == HELD:
                self.server.asked_for_held.set()
                self.server.release_held.wait()
            body = make_document(code)
            self.send_response(200)
            self.send_header("Content-Type", "text/xml; charset=utf-8")
            self.send_header("Content-Length", str(len(body)))
            self.end_headers()
            self.wfile.write(body)

        def log_message(self, form, *values):
            pass

    def __init__(self):
        super().__init__(("127.0.0.1", 0), self.Handler)
        threading.Thread(target=self.serve_forever, daemon=True).start()

    def url(self):
        return f"http://127.0.0.1:{self.server_port}/"
