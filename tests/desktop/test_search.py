"""Finding, choosing and adding a station."""

import os
import time

import pytest
from dialog import Dialog
from harness import TRAY_CLASS, processor_seconds, stays, wait_until
from inside import probe
from loopback import Held, answer
from options_dialog import OPTIONS
from search_dialog import (CHOOSER, NOT_FOUND, apply_options, feed, locations,
                           make_searcher, open_search, saved_stations, stations)

SPACES = " " * 100
STATION_0 = f"Lawrence, KS (Station 0){SPACES}S0***10000***38.0***-95.5"


@pytest.fixture
def program(make_searcher):
    program = make_searcher()
    program.start()
    return program


def test_search_by_zip_code_and_by_name(program, feed, temp_folder):
    search = open_search(program)
    assert search.status() == "Ready." and not search.control("Add Station").enabled
    search.search("66044", "6 weather station(s) found.")
    assert feed.searches() == ["requesttype=1&zipcode=66044"]
    rows = search.rows()
    assert [row[0] for row in rows] == ["1", "2", "1", "1", "1", "1"]
    assert rows[1] == ("2", "Lawrence Municipal Airport", "Lawrence, Kansas", "NWS")
    assert rows[2][1] == "KLA9" and search.selected() == [0]
    assert search.control(class_name="Edit").text == ""

    search.search("new york", "6 weather station(s) found.")  # one match
    assert feed.searches()[1:] == ["RequestType=501&SearchString=new%20york", "requesttype=1&zipcode=10007"]
    search.search("atlantis", NOT_FOUND)
    assert not search.rows() and not search.control("Add Station").enabled
    search.search("halifax", NOT_FOUND)  # known by city code alone
    asked = len(feed.searches())
    search.start("   ")
    assert stays(lambda: len(feed.searches()) == asked and search.status() == NOT_FOUND, 0.5)
    search.click("Cancel")
    search.wait_until_closed()
    assert not list(temp_folder.glob("SVA*.tmp"))


def test_choosing_one_of_several_locations(program, feed):
    search = open_search(program)
    search.start("springfield")
    chooser = Dialog(CHOOSER)
    assert [row[:2] for row in chooser.rows()][1:3] == [("3", "Springfield, Massachusetts"),
                                                       ("3", "Springfield, Missouri")]
    assert chooser.selected() == [0] and not search.window().enabled
    chooser.click_row(2, times=2)
    chooser.wait_until_closed()
    search.wait_for("6 weather station(s) found.")
    assert feed.searches()[-1] == "requesttype=1&zipcode=65806"
    for close in (lambda: chooser.click("Cancel"), lambda: chooser.press("Escape"), chooser.close_by_box):
        search.start("springfield")
        wait_until(chooser.is_open, "the chooser")
        close()
        search.wait_for(NOT_FOUND)
        wait_until(lambda: search.control("Search").enabled, "the controls are enabled")
    search.start("springfield")
    wait_until(chooser.is_open, "the chooser")
    chooser.press("Return")
    search.wait_for("6 weather station(s) found.")
    assert feed.searches()[-1] == "requesttype=1&zipcode=62701"


def test_unusable_answers(program, feed):
    search = open_search(program)
    where, what = "SearchString=a", "zipcode=66044"
    plain = [("cityname", "A"), ("zipcode", "66044"), ("citytype", "0")]
    looking, looking_up = ("Searching for available locations...", "Searching for available weather stations...")
    for part, reply, text, status in [
            (where, lambda connection: connection.sendall(answer(500)), "a", "Server not found!"),
            (where, b"<html><body>Bad gateway<br></html>", "a", looking),
            (where, locations(plain)[:-9], "a", looking),
            (where, locations(), "a", NOT_FOUND),
            (where, locations([("citytype", "1"), ("cityname", "A")]), "a", looking),
            (where, locations(plain[:2] + [("citytype", "x")]), "a", looking),
            (where, locations(*[plain[:2]] * 2), "a", NOT_FOUND),
            (what, lambda connection: connection.sendall(answer(500)), "66044", NOT_FOUND),
            (what, stations(2)[:-9], "66044", NOT_FOUND),
            (what, stations(2, latitude="").replace(b"latitude", b"height"), "66044", NOT_FOUND),
            (what, stations(1).replace(b"</aws", b'<aws:station id="S1"/></aws'), "66044", looking_up)]:
        feed.answers = {part: reply}
        asked = len(feed.searches())
        search.start(text)
        wait_until(lambda: len(feed.searches()) > asked, "a request")
        wait_until(lambda: search.control("Search").enabled, f"the end of {reply}")
        assert search.status() == status, reply
        assert not search.rows() and not search.control("Add Station").enabled
    # No server.
    feed.close()
    search.start("a")
    search.wait_for("Server not found!")


def test_many_locations_and_stations(program, feed):
    search = open_search(program)
    feed.answers = {"SearchString=many": locations(*([("cityname", f"City {n}"), ("statename", "KS"),
                                                      ("zipcode", f"{n}"), ("citytype", "0")]
                                                     for n in range(60))),
                    "zipcode=50": stations(500, name="Łódź & <b>\"x\"</b>")}
    search.start("many")
    chooser = Dialog(CHOOSER)
    assert len(chooser.rows()) == 51
    chooser.press("End", "Return")
    search.wait_for("500 weather station(s) found.")
    assert len(search.rows()) == 500
    assert search.rows()[499] == ("1", "Łódź & <b>\"x\"</b>", "Lawrence, KS", "WeatherBug")


def test_added_station_is_saved(program, feed):
    feed.answers = {"zipcode=66044": stations(3)}
    for add in (lambda search: search.click("Add Station"), lambda search: search.press("Return"),
                lambda search: search.click_row(0, times=2)):
        search = open_search(program)
        search.search("66044", "3 weather station(s) found.")
        add(search)
        search.wait_until_closed()
        options = Dialog(OPTIONS)
        wait_until(lambda: options.window().enabled, "the Options are enabled")
        combo = wait_until(lambda: options.control(class_name="ComboBox"), "the station list")
        wait_until(lambda: options.control(class_name="ComboBox").enabled, "the station list is enabled")
        assert combo.text == "Lawrence, KS (Station 0)" and options.control("Apply").enabled
        apply_options()
        assert saved_stations(program) == [STATION_0]
    feed.answers["zipcode=1"] = stations(3).replace(b'longitude="-95.5"', b"", 1)  # leaves the last station without one
    search = open_search(program)
    search.search("1", "3 weather station(s) found.")
    search.press("Down", "Down", "Return")
    search.wait_for("This station cannot be added.")
    search.search("66044", "3 weather station(s) found.")
    search.press("Down", "Down", "Return")
    search.wait_until_closed()
    apply_options()
    assert [line[:24] for line in saved_stations(program)] == ["Lawrence, KS (Station 0)",
                                                               "Lawrence, KS (Station 2)"]


def test_closing_while_a_search_waits(program, feed, temp_folder):
    held = feed.answers["66044"] = Held(answer(200, stations(2)))
    search = open_search(program)
    search.start("66044")
    assert held.asked.wait(15)
    assert not any(search.control(name).enabled for name in ("Search", "Cancel", "Add Station"))
    assert not Dialog(OPTIONS).control(class_name="ComboBox").enabled
    assert program.answers()
    search.press("Escape")  # Cancel is disabled, and so is its key
    assert stays(search.is_open, 0.5)
    search.close_by_box()
    search.wait_until_closed()
    wait_until(lambda: Dialog(OPTIONS).control(class_name="ComboBox").enabled, "the station list is enabled")
    wait_until(lambda: not program.downloaders(), "the downloader ends")
    assert not list(temp_folder.glob("SVA*.tmp"))
    held.gate.set()

    Dialog(OPTIONS).click("Add Station...")
    wait_until(search.is_open, "the search opens")
    search.search("10007", "6 weather station(s) found.")
    search.press("Escape")
    search.wait_until_closed()
    apply_options()

    # Exit during a wait.
    held = feed.answers["66044"] = Held(answer(200, stations(2)))
    search = open_search(program)
    search.start("66044")
    assert held.asked.wait(15)
    # The wait continues without its downloader and uses no processor time.
    os.kill(program.downloaders()[0], 9)
    wait_until(lambda: not program.downloaders(), "the downloader ends")
    before = processor_seconds(program.process.pid)
    time.sleep(2)
    assert processor_seconds(program.process.pid) - before < 0.2
    probe("post", TRAY_CLASS, 0x111, 111, 0)
    assert program.wait_for_end() == 0
    assert "unhandled" not in program.errors().lower()
