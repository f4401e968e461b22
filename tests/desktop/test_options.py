"""The ways to open the Options dialog, and its use during a retrieval."""

import pytest

from feed import LAWRENCE, PARIS, TORNADO
from dialog import DIALOG, message_boxes, press, wait_for_message_box
from harness import LEFT, find_windows, wait_until
from options_dialog import OPTIONS, Options, answer_yes
from stores import windows_path
from tray_menu import choose, station_page

OPEN = "Open Skyvane Alerts Options"

# (page stored before, stations watched, how it is opened, page shown)
WAYS = {
    "menu": ("AlertFilters", [LAWRENCE], lambda program: choose(program, "Options", stations=["L"]),
             "AlertFilters"),
    "add station": ("General", [LAWRENCE],
                    lambda program: choose(program, "View Weather", "Add New Station...", stations=["L"]),
                    "Stations"),
    "click": ("General", [LAWRENCE], lambda program: program.click_icon(LEFT), "General"),
    "double click": ("Stations", [LAWRENCE], lambda program: program.click_icon(LEFT, times=2), "Stations"),
    "no station": ("General", [], lambda program: (choose(program, "Retrieve Severe Alerts"), answer_yes()),
                   "Stations"),
    "first start": ("", [], lambda program: answer_yes(), "General"),
}


@pytest.mark.parametrize("way", WAYS)
def test_each_way_opens_the_dialog_on_its_page(make_watcher, browser, way):
    stored, stations, open_dialog, shown = WAYS[way]
    click_action = "DoubleClickAction" if way == "double click" else "SingleClickAction"
    program = make_watcher(*stations, options={"LastOption": stored, click_action: OPEN},
                           misc={"Runs": "" if way == "first start" else "2"})
    program.start()
    open_dialog(program)
    options = Options()
    assert options.page() == shown
    assert program.store.read("Options", "LastOption") == shown
    if way == "menu":  # a second opening brings the dialog to the front, on the requested page
        choose(program, "View Weather", "Add New Station...", stations=["L"])
        wait_until(lambda: options.page() == "Stations", "the Stations page")
        assert len(find_windows(DIALOG, OPTIONS)) == 1
        for key, page in [("ctrl+Tab", "AlertFilters"), ("ctrl+shift+Tab", "Stations"),
                          ("ctrl+Next", "AlertFilters"), ("ctrl+Prior", "Stations")]:
            options.press(key)
            wait_until(lambda: options.page() == page, f"the page {page}")
        options.click("Help")
        browser.wait_for(windows_path(program.folder / "Help.html"))
    options.close("Cancel")
    assert program.answers()


def test_apply_during_a_retrieval(make_watcher, feed, browser):
    feed.serve("66044", TORNADO)
    feed.serve("064321")
    gate = feed.hold("66044")
    program = make_watcher(LAWRENCE, PARIS, options={"LastOption": "Stations"})
    program.start()
    stations = ["L", "P"]
    choose(program, "Retrieve Severe Alerts", stations=stations)
    wait_until(lambda: feed.codes() == ["66044"], "the first station is requested")
    choose(program, "Options", stations=stations)
    options = Options()
    options.click("Remove Station")
    wait_for_message_box().answer("No")
    options.press("alt+e")  # with the keyboard at Remove Station: Remove All
    assert "all saved" in wait_for_message_box().text
    press("Return")  # answers No
    wait_until(lambda: not message_boxes(), "the question closes")
    options.click("Remove Station")
    answer_yes()
    options.click("Apply")
    station_file = program.folder / "Users" / "Default" / "CityCode.cmb"
    wait_until(lambda: b"Lawrence" not in station_file.read_bytes(), "the station is removed")
    assert b"Paris, France (Orly)" in station_file.read_bytes()
    options.close("OK")
    choose(program, "View Weather", "Paris", stations=["Paris"])
    browser.wait_for(station_page("064321"))
    gate.set()
    wait_until(program.last_updated, "the cycle ends")
    assert feed.codes() == ["66044", "064321"], "the shorter list made the cycle skip a station"
    assert program.answers()
    assert not message_boxes()
