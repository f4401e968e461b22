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
from weather_service import alert, collection, moment, recorded, vtec

def dropped(connection):
    """An answer that closes the connection."""


BLOCK_PAGE = answer(200, b"<HTML><BODY>Access Denied Reference #18.2d351ab8</BODY></HTML>")


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
    ("requesttype=1&zipcode=00000", 1014),
    ("requesttype=7", 1017),
])
def test_unsupported_requests(service, downloader, query, status):
    assert_failed(downloader.fetch(service.request + query), status)


@pytest.mark.parametrize("code", ["96799", "059105", "00000"])
def test_a_place_that_is_not_covered_is_reported(service, downloader, code):
    outcome = downloader.fetch(service.request + "requesttype=6&ZipCode=" + code)
    assert outcome.status == "0"
    assert outcome.data.count(b"<aws:title>Place not covered</aws:title>") == 1


@pytest.mark.parametrize("reply, status, requests", [
    (answer(503, b"<html>"), 503, 3),
    (BLOCK_PAGE, 1015, 3),
    (answer(429, b"{}", "Retry-After: 5"), 429, 1),
    (answer(200, collection(alert("a", "Hail"))[:-2]), 1015, 3),
    (answer(200, collection(alert("a", "Hail")), "Content-Length: 9999"), 1007, 3),
    (answer(200, recorded("problem-outside-us.json"), "Content-Type: application/problem+json"), 1015, 1),
    (answer(400, recorded("problem-outside-us.json"), "Content-Type: application/problem+json"), 400, 1),
])
def test_a_failure_is_never_an_empty_list(service, downloader, reply, status, requests):
    ask = service.request + "requesttype=6&ZipCode=66044"
    assert downloader.fetch(ask).status == "0"  # caches the zones
    before = len(service.targets())
    downloader.environment["SKYVANE_DL_SECONDS"] = "7"  # no retry starts after 4.7 s
    service.replies = [reply] * 9
    assert_failed(downloader.fetch(ask), status)
    assert len(service.targets()) - before == requests


def test_temporary_failures_are_retried(service, downloader):
    service.replies = [dropped, dropped, answer(503)]
    assert downloader.fetch(service.request + "requesttype=6&ZipCode=66044").status == "0"


def test_stations_that_share_zones_share_a_request(service, downloader):
    service.max_age = 30
    for code in ("66044", "10001", "66044"):
        assert downloader.fetch(service.request + "requesttype=6&ZipCode=" + code).status == "0"
    assert service.alert_requests() == ["/alerts/active?status=actual&zone=NYC061,NYZ072,NYZ212"]
    assert len(service.targets()) == 1 + 2 * 5
    service.max_age = 0
    service.replies = [answer(503)] * 2
    assert downloader.fetch(service.request + "requesttype=6&ZipCode=66044").status == "0", "still cached"
    assert len(service.targets()) == 1 + 2 * 5


@pytest.mark.parametrize("hours", [-2, 2])
def test_expiry_follows_the_clock_of_the_service(service, downloader, hours):
    service.clock = hours
    service.alerts = collection(alert("a", "Hail", expires=moment(hours + 0.1)),
                                alert("b", "Wind", expires=moment(hours - 0.1)))
    outcome = downloader.fetch(service.request + "requesttype=6&ZipCode=66044")
    assert b"<aws:title>Hail</aws:title>" in outcome.data and b"Wind" not in outcome.data


def test_several_copies_at_once(service, downloader):
    service.max_age = 30
    service.alerts = collection(*(alert(f"urn:{n}", f"Hail {n}", vtec=vtec("NEW", f"KTOP.TO.W.00{n}"))
                                  for n in range(10, 30)))
    files = [downloader.folder / f"{n}.txt" for n in range(8)]
    running = []
    for file in files:
        downloader.status_file = file
        downloader.data_file = file.with_suffix(".xml")
        running.append(downloader.begin(service.request + "requesttype=6&ZipCode=66044"))
    assert [process.wait(60) for process in running] == [0] * 8
    assert len({file.with_suffix(".xml").read_bytes() for file in files}) == 1


def test_without_the_gazetteer(service, downloader):
    (downloader.folder / "places.dat").write_bytes(b"SVPLACE2")
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
    assert [title for _, title in stored(program)] == ["Tornado Warning"]

    titles = ["Tornado Warning"]

    def retrieve(features, added):
        service.alerts = collection(*features)
        requests = len(service.targets())
        program.store.write({"Misc": {"LastUpdated": "before"}})
        program.tick(5)
        titles.extend(added)  # an INI file keeps the alerts of earlier cycles
        wait_until(lambda: len(service.targets()) > requests, "the request")
        wait_until(lambda: program.last_updated() != "before", "the end of the cycle")
        wait_until(lambda: [found[1] for found in stored(program)] == titles, "the alerts are stored")

    def tornado(action, **more):
        return [alert(f"urn:{action}{len(more)}", "Tornado Warning", vtec=vtec(action, "KTOP.TO.W.0045"), **more)]

    retrieve(tornado("CON"), ["Tornado Warning"])
    assert len(seen(program)) == 1
    retrieve(tornado("CON", tornadoDamageThreat=["CATASTROPHIC"]), ["Tornado Emergency"])
    retrieve(tornado("CAN"), [])
    assert len(seen(program)) == 2 and all(len(identifier) == 7 for identifier in seen(program))
    retrieve([alert(f"urn:{n}", "Flood Watch", description=f"Water {n}. " * 350) for n in range(529)],
             ["Flood Watch"] * 529)
    assert program.answers()
