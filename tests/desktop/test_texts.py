"""Names of every script in the text boxes and lists of all dialogs, also on a system that ignores the manifest's code page,
as Windows before version 10 1903 does. The keyboard of the screen cannot type them."""

from urllib.parse import quote

import pytest
from dialog import Dialog
from harness import wait_until
from inside import probe
from options_dialog import OPTIONS, Options
from search_dialog import CHOOSER, SEARCH, feed, locations, make_searcher, open_search, saved_stations, stations

NAMES = ["Łódź", "Ελλάδα", "天気", "\U0001F32A Twister", "ירושלים"]


@pytest.mark.parametrize("code_page", ["UTF-8", "the system's"])
def test_names_survive_all_dialogs(make_searcher, feed, code_page):
    program = make_searcher()
    if code_page != "UTF-8":
        for file in program.folder.glob("*.exe"):
            file.write_bytes(file.read_bytes().replace(b"activeCodePage", b"unusedCodePage"))
    feed.answers = {
        "SearchString": locations(*([("cityname", name), ("statename", "S"), ("zipcode", f"6{n}"),
                                     ("citytype", "0")] for n, name in enumerate(NAMES))),
        **{f"zipcode=6{n}": stations(1, name=name, id=f"S{n}") for n, name in enumerate(NAMES)}}
    program.start()
    for number, name in enumerate(NAMES):
        search = open_search(program)
        wait_until(lambda: search.control("Search").enabled, "the controls are enabled")
        probe("type", SEARCH, name)
        search.press("Return")
        chooser = Dialog(CHOOSER)
        assert feed.searches()[-1] == "RequestType=501&SearchString=" + quote(name)
        assert [row[1] for row in chooser.rows()] == [f"{each}, S" for each in NAMES]
        chooser.press(*["Down"] * number, "Return")
        search.wait_for("1 weather station(s) found.")
        assert search.rows()[0][1] == name
        search.click("Add Station")
        search.wait_until_closed()
        wait_until(lambda: Dialog(OPTIONS).window().enabled, "the Options are enabled")
    options = Options()
    wait_until(lambda: options.look().named("Combo1").enabled, "the station list is enabled")
    shown = [f"Lawrence, KS ({name})" for name in NAMES]
    assert options.entries("Combo1") == shown
    options.close("OK")
    assert [line.split("  ")[0] for line in saved_stations(program)] == shown
