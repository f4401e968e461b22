"""A web server on loopback that answers with exactly the bytes that a test provides, valid or not."""

import contextlib
import socketserver
import threading


def answer(status, body=b"", *headers):
    lines = [f"HTTP/1.1 {status} Any", "Connection: close", *headers]
    if not any(line.lower().startswith(("content-length", "transfer-")) for line in lines):
        lines.append(f"Content-Length: {len(body)}")
    return "\r\n".join(lines).encode() + b"\r\n\r\n" + body


def redirect(location, status=302):
    return answer(status, b"moved", f"Location: {location}")


def chunked(*chunks):
    body = b"".join(b"%x\r\n%s\r\n" % (len(chunk), chunk) for chunk in chunks)
    return answer(200, body, "Transfer-Encoding: chunked")


class Held:
    """An answer that waits: the request sets `asked`, and setting `gate` sends the answer."""

    def __init__(self, reply):
        self.reply = reply
        self.asked, self.gate = threading.Event(), threading.Event()

    def __call__(self, connection):
        self.asked.set()
        self.gate.wait(60)
        connection.sendall(self.reply)


class Server:
    """Answers each request with the bytes, or by the function, that `answers` holds for its target; records
    the request heads."""

    def __init__(self, answers, tls=None):
        self.heads = []
        self.answers = answers
        outer = self

        class Handler(socketserver.BaseRequestHandler):
            def handle(self):
                with contextlib.suppress(OSError):
                    connection = self.request
                    if tls:
                        connection = tls.wrap_socket(connection, server_side=True)
                    outer.serve(connection)

        self.server = socketserver.ThreadingTCPServer(("127.0.0.1", 0), Handler)
        self.server.daemon_threads = True
        self.server.block_on_close = False
        self.port = self.server.server_address[1]
        self.scheme = "https" if tls else "http"
        threading.Thread(target=self.server.serve_forever, args=(0.05,), daemon=True).start()

    def serve(self, connection):
        while True:
            head = b""
            while b"\r\n\r\n" not in head:
                received = connection.recv(65536)
                if not received:
                    return
                head += received
            head = head.decode("latin-1")
            self.heads.append(head)
            reply = self.answers(head) if callable(self.answers) else self.answers[head.split(" ")[1]]
            if callable(reply):
                reply(connection)
                return
            connection.sendall(reply)
            if b"Connection: close" in reply:
                return

    def targets(self):
        return [head.split(" ")[1] for head in self.heads]

    def url(self, target, host="127.0.0.1"):
        return f"{self.scheme}://{host}:{self.port}{target}"

    def close(self):
        self.server.shutdown()
        self.server.server_close()
