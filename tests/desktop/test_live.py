"""The live source: dl.exe and the whole program against a simulated Weather Service."""

import os
import pathlib
import shutil
import xml.etree.ElementTree

import pytest

from dialog import Dialog
from downloader_run import Downloader, assert_failed
from harness import wait_until
from loopback import answer
from search_dialog import CHOOSER, apply_options, make_searcher, open_search, saved_stations
from weather_service import YEAR, WeatherService, alert, collection, recorded, vtec

TORNADO = f"KTOP.TO.W.0045.{YEAR}"
BLOCK_PAGE = answer(200, b"<HTML><BODY>Access Denied Reference #18.2d351ab8</BODY></HTML>")


@pytest.fixture
def service(temp_folder):
    for file in temp_folder.glob("SkyvaneAlerts.*.cache"):
        file.unlink()
    weather = WeatherService()
    yield weather
    weather.close()


@pytest.fixture
def downloader(tmp_path):
    copy = Downloader(tmp_path)
    shutil.copy(pathlib.Path(os.environ["PRODUCT_DIR"]) / "places.dat", copy.folder)
    return copy


def attributes(outcome, name):
    assert outcome.status == "0"
    tree = xml.etree.ElementTree.fromstring(outcome.data)
    return [element.attrib for element in tree.iter("{http://www.aws.com/aws}" + name)]


def seen(program):
    return (program.store.read("Misc", "OldAlerts") or "").split("¦")


def stored(program):
    """The identifiers and titles of the stored alerts."""
    return [found[:2] for found in program.store.alerts() if found]


def test_locations_and_stations(service, downloader):
    locations = attributes(downloader.fetch(service.request + "RequestType=501&SearchString=Springfield,%20il"),
                           "location")
    assert locations == [{"cityname": "Springfield", "countryname": "USA", "statename": "Illinois",
                          "zipcode": "62701", "citytype": "0"}]
    for text, count in (("san", 50), ("São Paulo", 0), ("MAYAGUEZ", 1), ("st.%20louis%20missouri", 1)):
        found = attributes(downloader.fetch(service.request + f"RequestType=501&SearchString={text}"), "location")
        assert len(found) == count, text
    assert service.targets() == []

    stations = attributes(downloader.fetch(service.request + "requesttype=1&zipcode=66204"), "station")
    assert service.targets() == ["/points/38.9904,-94.6782", "/points/40.7128,-74.006",
                                 "/gridpoints/OKX/33,35/stations"]
    assert len(stations) == 25
    assert all(station["zipcode"] == "66204" and all(station.values()) for station in stations)
    head = service.server.heads[0]
    assert "\r\nAccept: application/geo+json\r\n" in head
    assert "\r\nUser-Agent: SkyvaneAlerts/1.0.2 (+https://www.quillmark.example)\r\n" in head
    # A second request within a day is answered from the cache.
    again = attributes(downloader.fetch(service.request + "requesttype=1&zipcode=66204"), "station")
    assert again == stations and len(service.targets()) == 3


@pytest.mark.parametrize("query, status", [
    ("requesttype=1&zipcode=96799", 1013),  # outside the service's area
    ("requesttype=6&ZipCode=059105", 1013),
    ("requesttype=6&ZipCode=00000", 1014),
    ("requesttype=7", 1017),
])
def test_unsupported_requests(service, downloader, query, status):
    assert_failed(downloader.fetch(service.request + query), status)


@pytest.mark.parametrize("reply, status, requests", [
    (answer(503, b"<html>"), 503, 2),
    (BLOCK_PAGE, 1015, 2),
    (answer(403, b"<html>Reference #18"), 403, 2),
    (answer(200, collection(alert("a", "Hail"))[:-2]), 1015, 1),
    (answer(200, collection(alert("a", "Hail")), "Content-Length: 9999"), 1007, 1),
    (answer(200, recorded("problem-outside-us.json"), "Content-Type: application/problem+json"), 1015, 1),
    (answer(400, recorded("problem-outside-us.json"), "Content-Type: application/problem+json"), 400, 1),
])
def test_a_failure_is_never_an_empty_list(service, downloader, reply, status, requests):
    service.replies = [reply] * 3
    assert_failed(downloader.fetch(service.request + "requesttype=6&ZipCode=66044"), status)
    assert len(service.targets()) == requests


def test_answers_are_cached_for_the_max_age_of_the_service(service, downloader):
    request = service.request + "requesttype=6&ZipCode=66044"
    for max_age, requests in ((0, 1), (30, 2), (30, 2), (0, 2)):
        service.max_age = max_age
        assert downloader.fetch(request).status == "0"
        assert len(service.targets()) == requests, max_age
    service.replies = [answer(503)]
    assert downloader.fetch(service.request + "requesttype=6&ZipCode=10001").status == "0"
    assert len(service.targets()) == 4


def test_copies_at_once(service, downloader):
    service.max_age = 30
    files = [downloader.folder / f"{n}.txt" for n in range(8)]
    running = []
    for file in files:
        downloader.status_file = file
        downloader.data_file = file.with_suffix(".xml")
        running.append(downloader.begin(service.request + "requesttype=6&ZipCode=66044"))
    assert [process.wait(60) for process in running] == [0] * 8
    assert {file.with_suffix(".xml").read_bytes() for file in files} == {files[0].with_suffix(".xml").read_bytes()}


def test_without_the_gazetteer(service, downloader):
    (downloader.folder / "places.dat").write_bytes(b"SVPLACE1")
    assert_failed(downloader.fetch(service.request + "RequestType=501&SearchString=Lawrence"), 1016)


def test_from_the_search_to_the_end_of_an_event(make_searcher, service):
    service.alerts = collection(alert("urn:1", "Tornado Warning", vtec=vtec("NEW", "KTOP.TO.W.0045")))
    program = make_searcher(service.feed, DisplayTrayAlert="True", AutoUpdateInterval="Every 5 minutes")
    program.start()
    search = open_search(program)
    search.start("springfield")
    chooser = Dialog(CHOOSER)
    place = chooser.rows()[0][1]
    chooser.click_row(0, times=2)
    chooser.wait_until_closed()
    search.wait_for("25 weather station(s) found.")
    wait_until(lambda: search.control("Add Station").enabled, "the controls are enabled")
    search.click("Add Station")
    search.wait_until_closed()
    apply_options()
    line, = saved_stations(program)
    assert line.startswith(place)
    program.tick(5)
    program.wait_for_picture("new alerts")
    wait_until(program.balloons, "the balloon")
    assert stored(program) == [(TORNADO, "Tornado Warning")]
    assert service.targets()[-1].startswith("/alerts/active?status=actual&point=")

    titles = ["Tornado Warning"]

    def retrieve(features, added):
        service.alerts = collection(*features)
        requests = len(service.targets())
        program.tick(5)
        titles.extend(added)  # an INI file keeps the alerts of earlier cycles
        wait_until(lambda: len(service.targets()) > requests, "the request")
        wait_until(lambda: [found[1] for found in stored(program)] == titles, "the alerts are stored")

    retrieve([alert("urn:2", "Tornado Emergency", vtec=vtec("CON", "KTOP.TO.W.0045"))], ["Tornado Emergency"])
    retrieve([alert("urn:3", "Tornado Emergency", vtec=vtec("CAN", "KTOP.TO.W.0045"))], [])
    assert seen(program) == [TORNADO]
    retrieve([alert(f"urn:{n}", "Flood Watch", description="Water. " * 450) for n in range(529)],
             ["Flood Watch"] * 529)
    assert program.answers()
