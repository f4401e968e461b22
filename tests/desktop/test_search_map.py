"""The map of the station search: the page that the program writes, and what it writes and reads there."""

import json
import os
import pathlib
import shutil
import subprocess

import pytest
import stores
from harness import stays, wait_until
from search_dialog import (NOT_FOUND, apply_options, feed, make_searcher, open_search, saved_stations,
                           stations)

STAND_IN = "{5B1C3C0A-8E0B-4B57-9E0B-6C6A54B0C7D1}"


def test_missing_template_fails_the_lookup(make_searcher):
    program = make_searcher()
    (program.folder / "HTML" / "CitySearch.sv").unlink()
    program.start()
    open_search(program).search("66044", NOT_FOUND)


@pytest.fixture
def stand_in(tmp_path):
    """Registers the stand-in for the browser control and returns the folder that holds its page."""
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


def test_list_and_map_follow_each_other(make_searcher, feed, stand_in):
    program = make_searcher()
    program.start(STANDIN_FOLDER=stores.windows_path(stand_in))
    feed.answers = {"zipcode=66044": stations(40), "zipcode=1": stations(1, latitude="');alert(1);('")}
    center, clicked, body = (stand_in / name for name in ("ResetCenter.element", "SVSelectedCity.element",
                                                          "body.txt"))
    center.write_text("")
    (stand_in / "busy").touch()
    (stand_in / "loading").touch()
    search = open_search(program)

    # The program waits until the control is no longer busy and its page is complete.
    search.start("66044")
    search.wait_for("40 weather station(s) found.")
    assert stays(lambda: center.read_text() == "", 0.3)
    (stand_in / "busy").unlink()
    assert stays(lambda: center.read_text() == "", 0.3)
    (stand_in / "loading").unlink()
    moved = '<IMG onerror = "setMapCenter(\'{}\',\'-95.5\');" src="#" STYLE="display:none;" >'
    wait_until(lambda: center.read_text() == moved.format("38.0"), "the map moves to the first station")
    addresses = (stand_in / "navigated.txt").read_text().splitlines()
    page = program.data_folder() / "HTML" / "CitySearch.html"
    assert addresses[0] == "about:blank" and stores.unix_path(addresses[1]) == str(page)
    text = page.read_text(encoding="utf-8")
    assert text.count('id=\\"S39\\"') == 1 and "[XML]" not in text

    search.click_row(2)
    wait_until(lambda: center.read_text() == moved.format("38.002"), "the map moves to the clicked row")
    # A click on the map selects and scrolls to the row, and does not move the map.
    clicked.write_text("S35")
    assert stays(lambda: search.selected() == [2], 0.3), "a page without the element's name is not read"
    body.write_text("... SVSelectedCity ...")
    wait_until(lambda: search.selected() == [35], "the clicked station is selected")
    search.click_row(1)  # the click was read before, so the user's choice stays
    assert stays(lambda: search.selected() != [35], 0.3)
    moved_last = center.read_text()
    clicked.write_text("no such station")
    clicked.write_text("S4")
    wait_until(lambda: search.selected() == [4], "the next clicked station is selected")
    assert center.read_text() == moved_last

    # With a single station the map is not polled, and its coordinates do not run as script.
    center.write_text("untouched")
    search.search("1", "1 weather station(s) found.")
    search.click_row(5)  # below the only row
    wait_until(lambda: search.selected() == [], "nothing is selected")
    clicked.write_text("S0")
    assert stays(lambda: search.selected() == [] and center.read_text() == "untouched", 0.3)
    # When no location is found the map is empty, like the list.
    search.search("nowhere", NOT_FOUND)
    assert stores.unix_path((stand_in / "navigated.txt").read_text().splitlines()[-1]) == str(page)
    assert 'id=\\"S0\\"' not in page.read_text(encoding="utf-8")
    search.search("66044", "40 weather station(s) found.")
    search.press("Return")
    search.wait_until_closed()
    assert program.answers()


def test_pages_for_the_browser(make_searcher, feed, stand_in):
    """Searches in each feed of the map test. That test opens the pages that the program writes here."""
    pages = pathlib.Path(os.environ["MAP_PAGES"])
    shutil.rmtree(pages, ignore_errors=True)
    pages.mkdir()
    center = stand_in / "ResetCenter.element"
    center.write_text("")
    program = make_searcher()
    program.start(STANDIN_FOLDER=stores.windows_path(stand_in))
    search = open_search(program)
    script = pathlib.Path(__file__).parents[1] / "map" / "feeds.mjs"
    feeds = json.loads(subprocess.run([os.environ["NODE"], script], stdout=subprocess.PIPE, check=True).stdout)
    for number, (name, document) in enumerate(feeds.items()):
        feed.answers = {f"zipcode={number}": document.encode()}
        search.search(str(number), f"{document.count('<aws:station ')} weather station(s) found.")
        shutil.copy(program.data_folder() / "HTML" / "CitySearch.html", pages / f"{name}.html")
        if number == 0:
            wait_until(center.read_text, "the map is centred")
            shutil.copy(center, pages)


def test_busy_page_does_not_block_the_dialog(make_searcher, feed, stand_in):
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
