#!/usr/bin/python3
"""How many requests the shared cache of packaging/cache forwards to the service: 200 requests for five sets of
zones within a minute. Needs nginx (a package that bench/run does not install).

The shipped configuration is used, but with the loopback addresses, folders and plain http of this machine,
and old answers are sent after a failure for three seconds instead of five minutes."""

import collections
import concurrent.futures
import os
import pathlib
import socket
import subprocess
import sys
import tempfile
import time
import urllib.error
import urllib.request

ROOT = pathlib.Path(__file__).parents[1]
sys.path.append(str(ROOT / "tests" / "desktop"))
from loopback import Server, answer  # noqa: E402

REQUESTS, SECONDS, MAX_AGE = 200, 60, 30
PATHS = [f"/alerts/active?status=actual&zone=KSC{county:03},KSZ{county:03}" for county in range(1, 6)]


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def adapt(text, folder, port, service_port):
    for old, new in [("/var/cache/nginx/skyvane levels", f"{folder}/cache levels"),
                     ("/var/cache/nginx/skyvane-once", f"{folder}/once"),
                     ("/run/skyvane-origin.sock", f"{folder}/origin.sock"),
                     ("listen 443 ssl;", f"listen 127.0.0.1:{port};"),
                     ("api.weather.gov;", f"127.0.0.1:{service_port};"),
                     ("https://$service", "http://$service"),
                     ("stale-if-error=300", "stale-if-error=3")]:
        assert old in text, old
        text = text.replace(old, new)
    kept = [line for line in text.splitlines() if not line.strip().startswith(("ssl_certificate", "resolver "))]
    user = "user root;\n" if os.geteuid() == 0 else ""
    return (f"{user}worker_processes 1; daemon off; pid {folder}/pid; error_log {folder}/errors; events {{}}\n"
            f"http {{ access_log off; client_body_temp_path {folder}/body; proxy_temp_path {folder}/proxy;\n"
            f"fastcgi_temp_path {folder}/f; uwsgi_temp_path {folder}/u; scgi_temp_path {folder}/s;\n"
            + "\n".join(kept) + "\n}\n")


def get(port, path):
    """(status, how the cache answered)"""
    try:
        with urllib.request.urlopen(f"http://127.0.0.1:{port}{path}", timeout=30) as reply:
            return reply.status, reply.headers["X-Cache"]
    except urllib.error.HTTPError as error:
        return error.code, None


def main():
    failing = False

    def find_answer(head):
        time.sleep(0.2)  # about as long as the service takes
        return answer(503) if failing else answer(200, b'{"features":[]}',
                                                  f"Cache-Control: public, max-age={MAX_AGE if steady else 1}")

    steady = True
    service = Server(find_answer)
    port = free_port()
    with tempfile.TemporaryDirectory() as folder:
        configuration = pathlib.Path(folder) / "nginx.conf"
        configuration.write_text(adapt((ROOT / "packaging/cache/nginx.conf").read_text(), folder, port, service.port))
        cache = subprocess.Popen(["nginx", "-p", folder, "-c", configuration], stderr=subprocess.DEVNULL)
        try:
            time.sleep(1)
            with concurrent.futures.ThreadPoolExecutor(50) as pool:
                replies = []
                for number in range(REQUESTS):  # half of them at once, as at nine in the morning
                    replies.append(pool.submit(get, port, PATHS[number % len(PATHS)]))
                    time.sleep(0 if number < REQUESTS // 2 else SECONDS / (REQUESTS / 2))
                statuses = collections.Counter(reply.result()[0] for reply in replies)
            print(f"{REQUESTS} requests in {SECONDS} s: {dict(statuses)}, {len(service.heads)} reached the service")
            assert statuses == {200: REQUESTS}

            steady = False
            path = PATHS[0] + ",KSZ099"
            print("fresh:", get(port, path))
            time.sleep(2)
            before = len(service.heads)
            with concurrent.futures.ThreadPoolExecutor(20) as pool:
                list(pool.map(lambda _: get(port, path), range(20)))
            print("20 requests at once for an expired answer:", len(service.heads) - before, "reached the service")
            failing = True
            time.sleep(2)
            print("the service fails, soon after:", get(port, path))
            time.sleep(4)
            print("the service fails, long after:", get(port, path))
            print("another page:", get(port, "/other"))
        finally:
            cache.terminate()
            cache.wait()


main()
