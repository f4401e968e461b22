"""Drives the station search, and provides its feed and the fixtures of its tests."""

import pathlib
import re
import sys
from urllib.parse import urlsplit

import pytest
from dialog import Dialog, press, type_text
from harness import click, wait_until
from loopback import Server, answer
from options_dialog import OPTIONS

sys.path.insert(0, str(pathlib.Path(__file__).parents[2] / "demo"))
from server import HEAD, TAIL, answer as demo_answer, element  # noqa: E402

SEARCH = "Station Search - Skyvane Alerts"
CHOOSER = "Choose Location - Skyvane Alerts"
NOT_FOUND = "0 weather stations found."


def locations(*rows):
    """Returns the feed's document for locations, each a list of (name, value)."""
    return (HEAD + "<aws:locations>" + "".join(element("location", row) for row in rows) + "</aws:locations>"
            + TAIL).encode()


def stations(count, **more):
    return (HEAD + "".join(element("station", {
        "id": f"S{n}", "name": f"Station {n}", "city": "Lawrence", "state": "KS", "zipcode": f"{10000 + n}",
        "station-type": "WeatherBug", "latitude": f"{38 + n / 1000}", "longitude": "-95.5", **more}.items())
        for n in range(count)) + TAIL).encode()


class SearchFeed:
    """The demonstration feed, except for requests whose address contains a key of `answers`."""

    def __init__(self):
        self.answers = {}
        self.server = Server(self.find_answer)
        self.address = self.server.url("/")

    def find_answer(self, head):
        target = head.split(" ")[1]
        for part, reply in self.answers.items():
            if part in target:
                return reply if callable(reply) else answer(200, reply)
        document = demo_answer(target)
        return answer(200, document.encode()) if document else answer(404)

    def searches(self):
        """Returns what followed the partner in each request, in order."""
        return [urlsplit(target).query.partition("&")[2] for target in self.server.targets()]

    def close(self):
        self.server.close()


@pytest.fixture
def feed():
    feed = SearchFeed()
    yield feed
    feed.close()


@pytest.fixture
def make_searcher(make_program, feed):
    """Makes programs without stations, whose icon opens the Options on the Stations page."""

    def make(address=feed.address, **options):
        program = make_program()
        program.store.write({
            "Hosts": {"Feed": address},
            "Options": {"StoreFilesInProgramFolder": "True", "AutoUpdateInterval": "Never",
                        "LastOption": "Stations", "SingleClickAction": "Open Skyvane Alerts Options", **options},
            "Misc": {"Runs": "2"}})
        return program

    return make


class Search(Dialog):
    def __init__(self):
        super().__init__(SEARCH)

    def status(self):
        texts = [child.text for child in self.window().children if child.class_name == "Static"]
        return next(text for text in texts if re.match("Ready|Searching|Server|This|[0-9]+ weather", text))

    def wait_for(self, status):
        wait_until(lambda: self.status() == status, f"the status {status!r}")

    def start(self, text):
        """Types the text and presses Enter."""
        wait_until(lambda: self.control("Search").enabled, "the controls are enabled")
        self.take_keyboard()
        click(*self.control(class_name="Edit").center(), times=2)
        type_text(text)
        wait_until(lambda: self.control(class_name="Edit").text == text, f"{text!r} in the box")
        press("Return")

    def search(self, text, status):
        self.start(text)
        self.wait_for(status)
        wait_until(lambda: self.control("Search").enabled, "the controls are enabled")


def open_search(program):
    """Opens the dialog from the Stations page of the Options."""
    program.click_icon()
    options = Dialog(OPTIONS)
    options.click("Add Station...")
    return Search()


def apply_options():
    """Applies the Options dialog and closes it."""
    options = Dialog(OPTIONS)
    options.click("OK")
    options.wait_until_closed()


def saved_stations(program):
    return (program.data_folder() / "CityCode.cmb").read_text(encoding="utf-8").splitlines()
