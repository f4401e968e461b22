"""dl.exe against a real server on loopback that misbehaves in every way the downloader must handle."""

import contextlib
import gzip
import os
import resource
import subprocess
import time

import pytest

from downloader_run import (XML, assert_failed, bytes_of, downloader,  # noqa: F401 (fixtures)
                            serve, stored_login, text_of)
from harness import hold, processes_in, stays, wait_until
from loopback import answer, chunked, redirect
from stores import windows_path

BODY_LIMIT = 16 * 1024 * 1024


def trickle(connection):
    connection.sendall(answer(200, b"", "Content-Length: 1000"))
    with contextlib.suppress(OSError):
        for _ in range(1000):
            connection.sendall(b"x")
            time.sleep(0.1)


BIG = bytes(range(256)) * (BODY_LIMIT // 256)


@pytest.mark.parametrize("reply, body", [
    pytest.param(answer(200, XML), XML, id="plain"),
    pytest.param(answer(200, BIG), BIG, id="longest allowed"),
    pytest.param(chunked(b"one ", b"two"), b"one two", id="chunked"),
    pytest.param(b"HTTP/1.0 200 OK\r\nConnection: close\r\n\r\nto the end", b"to the end", id="no length"),
    pytest.param(answer(200, XML, "Content-Encoding: identity"), XML, id="identity"),
])
def test_body_arrives_whole(serve, downloader, reply, body):
    outcome = downloader.fetch(serve({"/feed": reply}).url("/feed"))
    assert (outcome.status, outcome.exit_code) == ("0", 0)
    assert outcome.data == body


@pytest.mark.parametrize("reply, status", [
    pytest.param(answer(404, b"<html>no such page"), 404, id="not found"),
    pytest.param(answer(302, b"moved"), 302, id="redirect without location"),
    pytest.param(answer(407, b"", 'Proxy-Authenticate: Basic realm="x"'), 407, id="407 without a proxy"),
    pytest.param(answer(200, b"half", "Content-Length: 8"), 1007, id="truncated"),
    pytest.param(answer(200, XML, "Content-Length: abc"), 12152, id="invalid length"),
    pytest.param(answer(200), 1018, id="empty"),
    pytest.param(answer(200, b"\xef\xbb\xbf \r\n\t"), 1018, id="blank"),
    pytest.param(answer(200, BIG + b"x"), 1006, id="one byte too long"),
    pytest.param(chunked(BIG, b"x"), 1006, id="one byte too long, chunked"),
    pytest.param(answer(200, b"not gzip", "Content-Encoding: gzip"), 1008, id="bad gzip"),
    pytest.param(answer(200, XML, "Content-Encoding: br"), 1008, id="unknown coding"),
    pytest.param(redirect("file:///C:/windows/win.ini"), 1011, id="redirect to a file"),
    pytest.param(b"HELLO\r\n\r\n", 12152, id="not HTTP"),
])
def test_bad_answer_has_its_status_and_leaves_no_data(serve, downloader, reply, status):
    (downloader.folder / "Tester.ini").write_text(stored_login("hail", "storm"))
    server = serve({"/feed": reply})
    assert_failed(downloader.fetch(server.url("/feed")), status)
    assert not any("authorization" in head.lower() for head in server.heads)


def test_gzip_is_decoded_if_it_was_requested(serve, downloader):
    server = serve({"/feed": answer(200, gzip.compress(XML), "Content-Encoding: gzip")})
    outcome = downloader.fetch(server.url("/feed"))
    if "accept-encoding:" in server.heads[0].lower():
        assert (outcome.status, outcome.data) == ("0", XML)
    else:  # the system cannot decode: compressed data must not be accepted as an answer
        assert_failed(outcome, 1008)


@pytest.mark.parametrize("hops, status", [(10, "0"), (11, "1010")])
def test_ten_redirects_are_followed(serve, downloader, hops, status):
    chain = {f"/a/{n}?q": redirect(f"{n + 1}?q", (301, 302, 303, 307, 308)[n % 5]) for n in range(hops)}
    server = serve({**chain, f"/a/{hops}?q": answer(200, XML)})
    outcome = downloader.fetch(server.url("/a/0?q"))
    assert outcome.status == status
    assert outcome.data == (XML if status == "0" else None)
    assert len(server.heads) == 11


def test_request_line_and_headers(serve, downloader):
    (downloader.folder / "Tester.ini").write_text("[Hosts]\nMAKER=https://maker.example\n")
    server = serve({"/a%20b%7Cc?d=%7Ce%25": redirect("/next"), "/next": answer(200, XML)})
    assert downloader.fetch(server.url("/a b|c?d=|e%25#part")).data == XML
    assert len(server.heads) == 2
    for head in server.heads:
        assert "\r\nUser-Agent: SkyvaneAlerts/1.0.2 (+https://maker.example)\r\n" in head
        assert "\r\nAccept: */*\r\n" in head


def test_spaces_in_an_unquoted_command_line(serve, downloader):
    server = serve({"/a%20b": answer(200, XML)})
    outcome = downloader.run_raw(*downloader.argument(server.url("/a b")).split(" "))
    assert (outcome.status, outcome.data) == ("0", XML)


@pytest.mark.parametrize("url, status", [
    ("gopher://127.0.0.1/x", 1004),
    ("no scheme", 1004),
    ("http://", 12005),
    ("http://127.0.0.1:1/", 12029),  # no server listens there
])
def test_url_that_cannot_be_fetched(downloader, url, status):
    assert_failed(downloader.fetch(url), status)


def test_overall_limit_ends_an_endless_response(serve, downloader):
    downloader.environment["SKYVANE_DL_SECONDS"] = "2"
    server = serve({"/feed": trickle})
    began = time.monotonic()
    process = downloader.begin(server.url("/feed"))
    wait_until(lambda: server.heads, "the request")
    assert (text_of(downloader.status_file), bytes_of(downloader.data_file)) == ("", b"")
    assert process.wait(30) == 1005 % 256
    assert 2 <= time.monotonic() - began < 6
    assert (text_of(downloader.status_file), bytes_of(downloader.data_file)) == ("1005", None)


def test_files_that_cannot_be_written(serve, downloader):
    server = serve({"/feed": answer(200, XML)})
    url = server.url("/feed")
    data, status = windows_path(downloader.data_file), windows_path(downloader.status_file)
    outcome = downloader.run_raw(f"{url}|{windows_path(downloader.folder)}\\missing\\data.tmp|{status}")
    assert (outcome.status, outcome.exit_code) == ("1003", 1003 % 256)
    # Started from outside Wine, it has no known parent process and stops retrying.
    outcome = downloader.run_raw(f"{url}|{data}|{windows_path(downloader.folder)}\\missing\\status.tmp")
    assert (outcome.data, outcome.exit_code) == (b"", 1002 % 256)
    assert 4 <= outcome.seconds < 15
    assert server.heads == []


def test_full_disk_delays_the_status(serve, downloader):
    def fill_disk():  # for this process only; undone below
        resource.setrlimit(resource.RLIMIT_FSIZE, (0, resource.RLIM_INFINITY))

    url = serve({"/feed": answer(200, XML)}).url("/feed")
    process = downloader.begin(url, preexec_fn=fill_disk, restore_signals=False)
    wait_until(lambda: not downloader.data_file.exists(), "the data file is deleted")
    assert stays(lambda: process.poll() is None and bytes_of(downloader.status_file) == b"", 1)
    resource.prlimit(process.pid, resource.RLIMIT_FSIZE, (resource.RLIM_INFINITY, resource.RLIM_INFINITY))
    assert process.wait(15) == 1003 % 256
    assert text_of(downloader.status_file) == "1003" and not downloader.data_file.exists()


@pytest.fixture
def begin_as_child(downloader):
    """Starts dl.exe as the child of a Windows process that waits for it to end."""
    def begin(url):
        downloader.data_file = downloader.folder / "data.tmp"
        program = windows_path(downloader.folder / "dl.exe")
        return subprocess.Popen(["wine", os.environ["PROBE"], "run", program,
                                 f'"{program}" {downloader.argument(url)}'],
                                env=downloader.environment, cwd=downloader.folder)

    return begin


def test_status_file_that_is_locked_for_a_while(serve, downloader, begin_as_child):
    holder = hold(downloader.status_file, 2)
    assert begin_as_child(serve({"/feed": answer(200, XML)}).url("/feed")).wait(20) == 0
    assert (text_of(downloader.status_file), bytes_of(downloader.data_file)) == ("0", XML)
    holder.wait()


def test_status_is_retried_for_as_long_as_the_parent_lives(serve, downloader, begin_as_child):
    server = serve({"/feed": answer(200, XML)})
    downloader.status_file = downloader.folder / "missing" / "status.tmp"
    parent = begin_as_child(server.url("/feed"))

    def downloaders():
        return [process for process in processes_in(downloader.folder) if process != parent.pid]

    wait_until(downloaders, "dl.exe")
    assert stays(downloaders, 7) and server.heads == []  # longer than without a parent
    parent.kill()
    parent.wait()
    wait_until(lambda: not downloaders(), "dl.exe ends with its parent")


def test_missing_field_leaves_the_files_alone(downloader):
    outcome = downloader.run_raw(f"http://h/|{windows_path(downloader.data_file)}")
    assert outcome.exit_code == 1001 % 256
    assert outcome.status == "0 stale" and outcome.data.startswith(b"stale")
