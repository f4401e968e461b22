"""Alerts outside the United States: dl.exe and the whole program against a simulated alert server."""

import datetime
import os
import pathlib
import re
import shutil
import xml.etree.ElementTree

import pytest
from alert_server import AREA, cap, info
from dialog import Dialog
from downloader_run import Downloader, assert_failed
from harness import wait_until
from loopback import answer, redirect
from options_dialog import OPTIONS
from search_dialog import CHOOSER, apply_options, make_searcher, open_search, saved_stations
from tray_menu import choose
from weather_service import NOW, alert, collection, moment, recorded

ZURICH = "g2657896"
NAMESPACE = "{http://www.aws.com/aws}"
ALERTS = f"requesttype=6&ZipCode={ZURICH}"
UNAVAILABLE = "Alerts unavailable"


@pytest.fixture
def downloader(tmp_path):
    copy = Downloader(tmp_path)
    shutil.copy(pathlib.Path(os.environ["PRODUCT_DIR"]) / "places.dat", copy.folder)
    return copy


@pytest.fixture
def forget_list(temp_folder):
    """A function that ends the time for which the place's list of alerts is cached."""
    return lambda: (temp_folder / f"SkyvaneAlerts.{ZURICH}.cache").unlink()


def read(outcome):
    """Returns (identifier, title, body) of each alert."""
    assert outcome.status == "0"
    tree = xml.etree.ElementTree.fromstring(outcome.data)
    return [tuple(element.findtext(NAMESPACE + part) for part in ("id", "title", "html-msg-body"))
            for element in tree.iter(NAMESPACE + "alert")]


def titles(outcome):
    return [title for _, title, _ in read(outcome)]


def elements(outcome, name):
    assert outcome.status == "0"
    return [element.attrib for element in xml.etree.ElementTree.fromstring(outcome.data).iter(NAMESPACE + name)]


def polygon(*points):
    return f"<areaDesc>City</areaDesc><polygon>{' '.join(points)}</polygon>"


HERE = polygon("47,8", "47,9", "48,9", "48,8", "47,8")
ELSEWHERE = polygon("46,8", "46,9", "46.5,9", "46.5,8", "46,8")
GREEN = "<valueName>awareness_level</valueName><value>1; green; Minor</value>"
LEVELS = [cap(severity, info(severity, severity=severity)) for severity in ("Minor", "Extreme", "Moderate")]


def reference(identifier):
    return f"office@example,{identifier},{moment(-0.1)}"


@pytest.mark.parametrize("documents, expected", [
    ([cap("1", info("Hail"))], ["Hail"]),
    ([cap("1", info("Hail"), msgType="Update")], ["Hail"]),
    ([cap("1", info("Hail"), **{name: value})
      for name, value in (("status", "Test"), ("status", "Exercise"), ("status", "Draft"), ("status", "System"),
                          ("scope", "Private"), ("scope", "Restricted"), ("msgType", "Ack"), ("msgType", "Error"),
                          ("msgType", "Cancel"))], []),
    ([cap("1", info("Hail", **{name: value}))
      for name, value in (("urgency", "Past"), ("responseType", "AllClear"), ("expires", moment(-0.1)),
                          ("category", "Health"), ("category", "Transport"), ("parameter", GREEN))], []),
    ([cap(category, info(category, category=category)) for category in ("Met", "Geo", "Fire", "Env")],
     ["Env", "Fire", "Geo", "Met"]),
    ([cap("1", info("Old")), cap("2", info("New"), msgType="Update", references=reference("1"))], ["New"]),
    ([cap("1", info("Old")), cap("2", msgType="Cancel", references=reference("1"))], []),
    ([cap("1", info("Hagel", language="de-CH"), info("Hail"), info("Grêle", language="fr-CH"))], ["Hail"]),
    ([cap("1", info("Hagel", language="de-CH"), info("Grêle", language="fr-CH"))], ["Hagel"]),
    ([cap("1", info("Here", area=HERE), info("Elsewhere", area=ELSEWHERE))], ["Here"]),
    (LEVELS, ["Extreme", "Moderate", "Minor"]),
    ([cap("1", info("Hail")), None], ["Hail"]),
    ([cap("1", info("Hail")), cap("2", info())[:-9], b"{}"], ["Hail", "Unreadable alert", "Unreadable alert"]),
    ([cap("1", info("Hail")) + b" " * 4 * 1024 * 1024], ["Unreadable alert"]),
    ([cap("1", info("&x;")).replace(b"?>", b'?><!DOCTYPE alert [<!ENTITY x SYSTEM "file:///c:/x">]>')],
     ["Unreadable alert"]),
    ([], []),
])
def test_each_rule(world, downloader, documents, expected):
    world.set(*documents)
    found = titles(downloader.fetch(world.request + ALERTS))
    assert found == expected or sorted(found) == expected


@pytest.mark.parametrize("name, time, expected", [
    ("ie-geocodes", "2025-04-14T18:59:00+00:00", ["Small Craft"]),
    ("ie-geocodes", "2025-04-14T19:01:00+00:00", []),
    ("ru-date-line", "2025-03-02T10:00:00+00:00", ["Ветер"]),
    ("us-polygons", "2025-03-01T00:00:00+00:00", ["Special Weather Statement"]),
    ("mo-all-clear", "2025-04-13T06:00:00+00:00", []),
    ("gdacs-past", "2025-03-01T23:00:00+00:00", []),
])
def test_recorded_documents(world, downloader, name, time, expected):
    """The server's clock is set to the time of the document."""
    world.set(recorded(f"cap-{name}.xml"))
    world.clock = (datetime.datetime.fromisoformat(time) - NOW).total_seconds() / 3600
    assert titles(downloader.fetch(world.request + ALERTS)) == expected


def test_the_body_and_the_identifier(world, downloader, forget_list):
    world.set(cap("1", info("Hail", instruction="Stay in.", area="<areaDesc>A</areaDesc>")))
    (identifier, _, body), = read(downloader.fetch(world.request + ALERTS))
    assert re.fullmatch("[0-9A-Z]{7}", identifier)
    assert body == ("Hail headline\n\nA\n\nText.\n\nStay in.\n\nWeather Office\n\n"
                    "Severity: Severe. Urgency: Immediate. Certainty: Likely.")
    world.set(cap("2", info("Hail"), msgType="Update", references=reference("1")))
    forget_list()
    world.clock = 0.5
    assert read(downloader.fetch(world.request + ALERTS))[0][0] == identifier
    world.clock = 1.5
    forget_list()
    assert not read(downloader.fetch(world.request + ALERTS)), "ended by the server's clock"


def test_requests(world, downloader, forget_list):
    """20 documents take 1 + 20 requests and their redirects; later one request, or none while the list is cached."""
    world.set(*(cap(str(n), info(f"Hail {n}")) for n in range(20)))
    first = read(downloader.fetch(world.request + ALERTS))
    assert len(first) == 20 and len(world.targets()) == 1 + 20 * 2
    assert world.targets()[0] == AREA + "min_lat=47.3567&max_lat=47.3767&min_lon=8.54&max_lon=8.56"
    assert all("User-Agent: SkyvaneAlerts/1.0.2 (+https://www.quillmark.example)\r\n" in head
               for head in world.server.heads)
    assert read(downloader.fetch(world.request + ALERTS)) == first and len(world.targets()) == 41
    forget_list()
    assert read(downloader.fetch(world.request + ALERTS)) == first and len(world.targets()) == 42


def test_a_long_list(world, downloader, forget_list):
    """Of 70 documents 60 are requested at first. Once all are known, the newest 60 count."""
    world.set(*(cap(str(n), info(f"Hail {n:02}"), sent=moment(-n / 100)) for n in reversed(range(70))))
    requests = []
    for _ in range(2):
        before = len(world.targets())
        found = titles(downloader.fetch(world.request + ALERTS))
        requests.append(len(world.targets()) - before)
        forget_list()
        assert len(found) == 61 and found[-1] == "More alerts than can be read"
    assert requests == [1 + 60 * 2, 1 + 10 * 2]
    assert sorted(found[:-1]) == [f"Hail {n:02}" for n in range(60)]


@pytest.mark.parametrize("reply, status, at", [
    (answer(503, b"<html>"), 503, AREA),
    (answer(404, b"not found"), 404, AREA),
    (answer(200, b"<html>Access denied"), 1015, AREA),
    (answer(200, b'["../../etc/passwd"]'), 1015, AREA),
    (redirect("http://localhost:1/alert/area"), 1011, AREA),
    (answer(500, b""), 500, ".xml"),
    (answer(200, b"<!DOCTYPE html><html>Sign in</html>"), 1015, ".xml"),
    (redirect("http://localhost:1/x.xml"), 1011, ".xml"),
])
def test_a_failure_is_never_an_empty_list(world, downloader, reply, status, at):
    downloader.environment["SKYVANE_DL_SECONDS"] = "3"
    world.set(cap("1", info("Hail")))
    world.failures = {at: reply}
    assert_failed(downloader.fetch(world.request + ALERTS), status)
    assert titles(downloader.fetch(world.live + ALERTS)) == [UNAVAILABLE]
    world.failures = {}
    assert titles(downloader.fetch(world.live + ALERTS)) == ["Hail"], "no failure is cached"


def test_hanging_server_does_not_hide_alerts_of_the_other(world, service, downloader):
    service.alerts = collection(alert("a", "Tornado"))
    downloader.environment["SKYVANE_DL_SECONDS"] = "3"
    world.failures = {AREA: lambda connection: connection.recv(1)}
    (identifier, title, body), = read(downloader.fetch(world.live + ALERTS))
    assert title == UNAVAILABLE and world.host in body
    assert read(downloader.fetch(world.live + "requesttype=6&ZipCode=g2988507"))[0][0] == identifier
    assert titles(downloader.fetch(world.live + "requesttype=6&ZipCode=66044")) == ["Tornado"]
    service.replies = [answer(503)] * 9
    assert_failed(downloader.fetch(world.live + "requesttype=6&ZipCode=10001"), 503)


def test_each_place_has_its_own_source(world, service, downloader):
    for query in ("requesttype=6&ZipCode=66044", "requesttype=1&zipcode=66044", "requesttype=6&ZipCode=059105"):
        assert downloader.fetch(world.live + query).status == "0"
    assert not world.targets() and service.targets()
    before = len(service.targets())
    found = elements(downloader.fetch(world.live + "RequestType=501&SearchString=paris"), "location")
    assert {"countryname": "France"}.items() <= found[0].items() and found[0]["zipcode"] == "g2988507"
    assert "Texas" in [place["statename"] for place in found]
    station, = elements(downloader.fetch(world.live + f"requesttype=1&zipcode={ZURICH}"), "station")
    assert station["zipcode"] == ZURICH and station["name"] == station["city"] == "Zürich"
    assert not {"country", "city-code"} & set(station) and station["state"] == "Switzerland"
    assert not world.targets(), "names and stations are answered offline"
    assert titles(downloader.fetch(world.live + "requesttype=6&ZipCode=g1")) == ["Place not covered"]
    assert downloader.fetch(world.live + ALERTS).status == "0"
    assert world.targets() and len(service.targets()) == before


def test_without_the_gazetteer(world, downloader):
    (downloader.folder / "places.dat").unlink()
    assert_failed(downloader.fetch(world.live + ALERTS), 1016)


def test_from_the_search_to_the_page(make_searcher, world, service, opened, set_keyboard):
    set_keyboard("de")
    world.set(cap("1", info("Unwetterwarnung", language="de-CH"), info("Thunderstorm", severity="Extreme")))
    program = make_searcher(world.feed, DisplayTrayAlert="True", AutoUpdateInterval="Every 5 minutes")
    program.start()
    search = open_search(program)
    search.start("Zürich")
    chooser = Dialog(CHOOSER)
    assert chooser.rows()[0][1] == "Zürich, Switzerland"
    chooser.click_row(0, times=2)
    chooser.wait_until_closed()
    search.wait_for("1 weather station(s) found.")
    wait_until(lambda: search.control("Add Station").enabled, "the controls are enabled")
    search.click("Add Station")
    search.wait_until_closed()
    apply_options()
    line, = saved_stations(program)
    assert line.startswith("Zürich, Switzerland (Zürich)") and f"***{ZURICH}***47.3667***8.55" in line
    program.tick(5)
    program.wait_for_picture("new alerts")
    wait_until(program.balloons, "the balloon")
    assert [title for _, title in [found[:2] for found in program.store.alerts() if found]] == ["Thunderstorm"]
    caption = "Zürich, Switzerland (Zürich)"
    choose(program, "View Weather", caption, alerts=["Thunderstorm"], stations=[caption])
    page = opened(program)
    assert f"<h2>{caption}" in page and "1 alert, the worst: Extreme" in page
    assert "US National Weather Service" in page and f"alert server {world.host}, which volunteers run" in page
    assert f'href="https://{world.host}/"' in page and "weather.gov" not in page
    assert not service.targets()


SCRIPTS = ("Гроза над Москвой", "عاصفة رعدية شديدة", "雷暴大风黄色预警", "ประกาศเตือนพายุฝนฟ้าคะนอง")
EVERYWHERE = "Москва القاهرة 北京 กรุงเทพฯ"


def test_names_in_other_scripts(make_watcher, world, opened):
    """They arrive in the list, the menu and the page as they were sent."""
    world.set(*(cap(str(n), info(title, language="und", headline=f"{title}.", description=f"«{title}»",
                                 severity=severity))
                for n, (title, severity) in enumerate(zip(SCRIPTS, ("Extreme", "Severe", "Moderate", "Minor")))))
    program = make_watcher((EVERYWHERE, "g524901"), options={
        "RetrieveAlertsOnStartup": "True", "DisplayTrayAlert": "True", "LastOption": "Stations",
        "DoubleClickAction": "Open Skyvane Alerts Options"})
    program.store.write({"Hosts": {"Feed": world.feed}})
    program.start()
    program.wait_for_picture("new alerts")
    wait_until(program.balloons, "the balloon")
    assert [found[1] for found in program.store.alerts() if found] == list(SCRIPTS)
    for title in SCRIPTS[0], SCRIPTS[3]:
        choose(program, title, alerts=SCRIPTS, stations=[EVERYWHERE])
        page = opened(program, save_as="scripts")
    assert f"<h2>{EVERYWHERE}</h2>" in page
    assert all(f"<h3>{title}</h3>" in page and f"<p>«{title}»</p>" in page for title in SCRIPTS)
    program.click_icon(times=2)
    assert Dialog(OPTIONS).control(class_name="ComboBox").text == EVERYWHERE
