"""Runs dl.exe and returns its result."""

import os
import pathlib
import shutil
import subprocess
import time
from collections import namedtuple

import pytest

from loopback import Server
from stores import windows_path

XML = "<weather town='Łódź'/>".encode()


def scrambled(text):
    return "".join(chr(ord(character) + at) for at, character in enumerate(text, start=1))


def stored_login(name, password):
    return f"[Options]\nPROXYUSERNAME={scrambled(name)}\nPROXYPASSWORD={scrambled(password)}\n"


@pytest.fixture
def serve():
    servers = []

    def start(answers, tls=None):
        servers.append(Server(answers, tls))
        return servers[-1]

    yield start
    for server in servers:
        server.close()


# The contents of a missing file are None.
Outcome = namedtuple("Outcome", "exit_code status data seconds")


class Downloader:
    """A copy of dl.exe in a folder whose name contains spaces, with two stale result files."""

    def __init__(self, folder):
        self.folder = folder / "program folder"
        self.folder.mkdir()
        shutil.copy(pathlib.Path(os.environ["PRODUCT_DIR"]) / "dl.exe", self.folder)
        self.data_file = self.folder / "data Łódź.tmp"
        self.status_file = self.folder / "status.tmp"
        self.data_file.write_bytes(b"stale answer" * 100)
        self.status_file.write_text("0 stale")
        self.environment = {
            **os.environ,
            "WINEDEBUG": "-all",
            "SKYVANE_ALERTS_INI_USER": "Tester",  # reads Tester.ini next to dl.exe
            "SKYVANE_DL_SECONDS": "20",
        }

    def argument(self, url):
        return "|".join([url, windows_path(self.data_file), windows_path(self.status_file)])

    def run_raw(self, *arguments):
        began = time.monotonic()
        result = subprocess.run(["wine", self.folder / "dl.exe", *arguments], env=self.environment, timeout=80)
        seconds = time.monotonic() - began
        return Outcome(result.returncode, text_of(self.status_file), bytes_of(self.data_file), seconds)

    def begin(self, url, **more):
        return subprocess.Popen(["wine", self.folder / "dl.exe", self.argument(url)], env=self.environment, **more)

    def fetch(self, url):
        return self.run_raw(self.argument(url))


@pytest.fixture
def downloader(tmp_path):
    return Downloader(tmp_path)


def bytes_of(path):
    return path.read_bytes() if path.exists() else None


def text_of(path):
    return path.read_text() if path.exists() else None


def assert_failed(outcome, *accepted):
    """The download failed with one of the accepted statuses."""
    assert outcome.status in map(str, accepted), outcome.status
    assert outcome.data is None
    assert outcome.exit_code == int(outcome.status) % 256  # this system keeps the low byte only
