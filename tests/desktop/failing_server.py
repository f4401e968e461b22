"""A server for the plain feed and the live source that fails in 25 ways."""

import gzip
import socket
import struct
import threading
import time

from feed import code_of, document
from loopback import Server, answer, chunked, redirect
from search_dialog import demo_answer
from weather_service import WeatherService

# No successful answer contains this alert.
BODY = document(("9999999999999", "Hail 0", "An alert of a failed answer."))


def send_and_close(reply):
    return lambda connection: connection.sendall(reply)


def reset(connection):
    connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))


def send_slowly(connection):
    for byte in answer(200, BODY):
        connection.sendall(bytes([byte]))
        time.sleep(0.3)


# Answers that the plain feed treats as a document without alerts and that the live source rejects. Wine's WinHTTP
# does not report a truncated chunk.
UNLOADABLE = {
    "cut chunk": send_and_close(chunked(BODY)[:-40]),
    "cut document": answer(200, BODY[:-20]),
    "error page": answer(200, b"<!DOCTYPE html><html><title>Sorry</title><body><p>Try again<br></html>"),
    "bad UTF-8": answer(200, BODY.replace(b"An alert", b"\xc3\x28\xff")),
}
WAYS = {
    "connection closed": lambda connection: None,
    "connection reset": reset,
    "silence": lambda connection: connection.recv(1),
    "slow answer": send_slowly,
    "cut head": send_and_close(answer(200, BODY)[:20]),
    "not HTTP": send_and_close(b"220 mail server ready\r\n\r\n"),
    "cut body": answer(200, BODY, f"Content-Length: {len(BODY) + 1}"),
    "bad chunk size": answer(200, b"xyz\r\n" + BODY, "Transfer-Encoding: chunked"),
    "bad gzip": answer(200, b"\x1f\x8b" + BODY, "Content-Encoding: gzip"),
    "cut gzip": answer(200, gzip.compress(BODY)[:-12], "Content-Encoding: gzip"),
    "too long": answer(200, BODY, "Content-Length: 99999999999"),
    "empty": answer(200),
    "circular redirect": redirect("/loop"),
    "redirect to another scheme": redirect("ftp://127.0.0.1/"),
    "redirect to a closed port": redirect("http://127.0.0.1:9/"),
    **{str(status): answer(status, BODY, "Retry-After: 5") for status in (401, 403, 404, 429, 500, 503)},
    **UNLOADABLE,
}
assert len(WAYS) == 25


class FailingServer:
    def __init__(self):
        self.service = WeatherService()  # answers as the live source if no other reply is set
        self.service.max_age = 1  # so that the stations of one cycle share an answer
        self.replies = {}  # to requests for alerts, by station code; for the live source the code is ""
        self.gate = threading.Event()  # delays the answers with alerts until it is set
        self.server = Server(self.find_answer)
        self.address = self.server.url("/")

    def find_answer(self, head):
        target = head.split(" ")[1]
        if target == "/loop":
            return redirect("/loop")
        if target.startswith("/alerts/") or "requesttype=6" in target:
            return lambda connection: self.send_alerts(connection, head, code_of(target))
        return answer(200, demo_answer(target).encode()) if "/GetXml" in target else self.service.find_answer(head)

    def send_alerts(self, connection, head, code):
        self.gate.wait(60)
        reply = self.replies.get(code) or self.service.find_answer(head)
        if callable(reply):
            reply(connection)
        else:
            connection.sendall(reply)
