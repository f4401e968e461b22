"""The station search: finding, choosing and adding a station, and the talk with the map page."""

import os
import threading

import harness
import pytest
import stores
from harness import stays, wait_until
from loopback import answer
from search_dialog import (CHOOSER, OPTIONS, TEMPLATE, Dialog, SearchFeed, locations, open_search,
                           stations)

BLANKS = " " * 100
STATION_0 = f"Lawrence, KS (Station 0){BLANKS}S0***10000***38.0***-95.5"
NOT_FOUND = "0 weather stations found."
STAND_IN = "{5B1C3C0A-8E0B-4B57-9E0B-6C6A54B0C7D1}"


@pytest.fixture
def feed():
    feed = SearchFeed()
    yield feed
    feed.close()


@pytest.fixture
def make_searcher(make_program, feed):
    """A program whose icon opens the Options on the Stations page, without stations."""

    def make():
        program = make_program()
        program.store.write({
            "Hosts": {"Feed": feed.address},
            "Options": {"StoreFilesInProgramFolder": "True", "AutoUpdateInterval": "Never",
                        "LastOption": "Stations", "SingleClickAction": "Open Skyvane Alerts Options"},
            "Misc": {"Runs": "2"}})
        page = program.folder / "HTML" / "CitySearch.sv"
        page.parent.mkdir(exist_ok=True)
        page.write_text(TEMPLATE)
        return program

    return make


@pytest.fixture
def program(make_searcher):
    program = make_searcher()
    program.start()
    return program


def data_folder(program):
    return program.folder / "Users" / "Default"


def apply_options():
    """Applies the Options dialog and closes it."""
    options = Dialog(OPTIONS)
    options.click("OK")
    options.wait_until_closed()


def saved_stations(program):
    return (data_folder(program) / "CityCode.cmb").read_text(encoding="utf-8").splitlines()


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


def test_several_locations_are_chosen_from(program, feed):
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
        wait_until(lambda: search.control("Search").enabled, "the controls are on")
    search.start("springfield")
    wait_until(chooser.is_open, "the chooser")
    chooser.press("Return")
    search.wait_for("6 weather station(s) found.")
    assert feed.searches()[-1] == "requesttype=1&zipcode=62701"


def test_feed_that_misbehaves(program, feed):
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
    # A server that is not there.
    feed.close()
    search.start("a")
    search.wait_for("Server not found!")


def test_many_answers(program, feed):
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


def test_adding_ends_in_the_station_file(program, feed):
    feed.answers = {"zipcode=66044": stations(3)}
    for add in (lambda search: search.click("Add Station"), lambda search: search.press("Return"),
                lambda search: search.click_row(0, times=2)):
        search = open_search(program)
        search.search("66044", "3 weather station(s) found.")
        add(search)
        search.wait_until_closed()
        options = Dialog(OPTIONS)
        wait_until(lambda: options.window().enabled, "the Options are on")
        combo = wait_until(lambda: options.control(class_name="ComboBox"), "the station list")
        wait_until(lambda: options.control(class_name="ComboBox").enabled, "the station list is on")
        assert combo.text == "Lawrence, KS (Station 0)" and options.control("Apply").enabled
        apply_options()
        assert saved_stations(program) == [STATION_0]
    search = open_search(program)
    search.search("66044", "3 weather station(s) found.")
    search.press("Down", "Down", "Return")
    search.wait_until_closed()
    apply_options()
    assert [line[:24] for line in saved_stations(program)] == ["Lawrence, KS (Station 0)",
                                                               "Lawrence, KS (Station 2)"]


def hold(feed, part, body):
    """Holds the answer back; the events tell that it was asked for, and let it go."""
    asked, gate = threading.Event(), threading.Event()

    def serve(connection):
        asked.set()
        gate.wait(30)
        connection.sendall(answer(200, body))

    feed.answers[part] = serve
    return asked, gate


def test_closing_in_the_middle_of_a_wait(program, feed, temp_folder):
    asked, gate = hold(feed, "66044", stations(2))
    search = open_search(program)
    search.start("66044")
    assert asked.wait(15)
    assert not any(search.control(name).enabled for name in ("Search", "Cancel", "Add Station"))
    assert not Dialog(OPTIONS).control(class_name="ComboBox").enabled
    assert program.answers()
    search.press("Escape")  # Cancel is off, and so is its key
    assert stays(search.is_open, 0.5)
    search.close_by_box()
    search.wait_until_closed()
    wait_until(lambda: Dialog(OPTIONS).control(class_name="ComboBox").enabled, "the station list is on")
    wait_until(lambda: not program.downloaders(), "the downloader ends")
    assert not list(temp_folder.glob("SVA*.tmp"))
    gate.set()

    Dialog(OPTIONS).click("Add Station...")
    search.search("10007", "6 weather station(s) found.")
    search.press("Escape")
    search.wait_until_closed()
    apply_options()

    # Exit in a wait.
    asked, gate = hold(feed, "66044", stations(2))
    search = open_search(program)
    search.start("66044")
    assert asked.wait(15)
    harness.probe("post", harness.TRAY_CLASS, 0x111, 111, 0)
    assert program.wait_for_end() == 0
    assert "unhandled" not in program.errors().lower()


def test_missing_template_fails_the_lookup(make_searcher):
    program = make_searcher()
    (program.folder / "HTML" / "CitySearch.sv").unlink()
    program.start()
    open_search(program).search("66044", NOT_FOUND)


@pytest.fixture
def stand_in(tmp_path):
    """The stand-in for the browser control, in the platform's place; the folder of its page."""
    folder = tmp_path / "page"
    folder.mkdir()
    classes = r"HKEY_LOCAL_MACHINE\Software\Classes"
    before = stores.export_registry(classes + r"\Shell.Explorer.2\CLSID")
    library = stores.windows_path(os.environ["STANDIN"]).replace("\\", "\\\\")
    stores.import_registry("\r\n".join([
        "Windows Registry Editor Version 5.00", "",
        f"[{classes}\\CLSID\\{STAND_IN}\\InprocServer32]", f'@="{library}"', '"ThreadingModel"="Apartment"',
        f"[{classes}\\Shell.Explorer.2\\CLSID]", f'@="{STAND_IN}"', ""]))
    yield folder
    stores.import_registry(before)


def test_talk_with_the_map_page(make_searcher, feed, stand_in):
    program = make_searcher()
    program.start(STANDIN_FOLDER=stores.windows_path(stand_in))
    feed.answers = {"zipcode=66044": stations(40), "zipcode=1": stations(1, latitude="');alert(1);('")}
    center, clicked, body = (stand_in / name for name in ("ResetCenter.element", "SVSelectedCity.element",
                                                          "body.txt"))
    center.write_text("")
    (stand_in / "busy").touch()
    search = open_search(program)

    # The page is asked only when it is no longer busy.
    search.start("66044")
    search.wait_for("40 weather station(s) found.")
    assert stays(lambda: center.read_text() == "", 0.3)
    (stand_in / "busy").unlink()
    moved = '<IMG onerror = "setMapCenter(\'{}\',\'-95.5\');" src="#" STYLE="display:none;" >'
    wait_until(lambda: center.read_text() == moved.format("38.0"), "the map moves to the first station")
    addresses = (stand_in / "navigated.txt").read_text().splitlines()
    page = data_folder(program) / "HTML" / "CitySearch.html"
    assert addresses[0] == "about:blank" and stores.unix_path(addresses[1]) == str(page)
    text = page.read_text(encoding="utf-8")
    assert text.count('id=\\"S39\\"') == 2 and "[XML]" not in text and "\r\n" not in text

    search.click_row(2)
    wait_until(lambda: center.read_text() == moved.format("38.002"), "the map moves to the clicked row")
    # A click on the map selects, scrolls, and does not move the map.
    clicked.write_text("S35")
    assert stays(lambda: search.selected() == [2], 0.3), "a page without the element's name is not asked"
    body.write_text("... SVSelectedCity ...")
    wait_until(lambda: search.selected() == [35], "the clicked station is selected")
    search.click_row(1)  # what was read stays known: the user's choice holds
    assert stays(lambda: search.selected() != [35], 0.3)
    moved_last = center.read_text()
    clicked.write_text("no such station")
    clicked.write_text("S4")
    wait_until(lambda: search.selected() == [4], "the next clicked station is selected")
    assert center.read_text() == moved_last

    # One station alone is not listened for, and its coordinates do not run as script.
    center.write_text("untouched")
    search.search("1", "1 weather station(s) found.")
    clicked.write_text("S0")
    assert stays(lambda: center.read_text() == "untouched", 0.3)
    search.press("Return")
    search.wait_until_closed()
    assert program.answers()


def test_page_that_stays_busy_does_not_hold_the_dialog(make_searcher, feed, stand_in):
    (stand_in / "busy").touch()
    program = make_searcher()
    program.start(STANDIN_FOLDER=stores.windows_path(stand_in))
    search = open_search(program)
    search.search("66044", "6 weather station(s) found.")
    search.search("10007", "6 weather station(s) found.")
    assert search.rows()[0][2] == "New York, New York"
    search.press("Return")
    search.wait_until_closed()
    apply_options()
    assert len(saved_stations(program)) == 1
