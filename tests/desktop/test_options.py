"""The Options dialog as a person opens and uses it; what it writes is tested from inside."""

import subprocess

import pytest

from feed import TORNADO
from harness import (LEFT, click, find_windows, message_boxes, wait_for_message_box, wait_until)
from tray_menu import choose

LAWRENCE = ("Lawrence, KS (Downtown)", "66044")
PARIS = ("Paris, France (Orly)", "064321")
TITLE = "Options - Skyvane Alerts"
OPEN = "Open Skyvane Alerts Options"


def dialogs():
    return find_windows("#32770", TITLE)


def everything_in(window):
    for child in window.children:
        yield child
        yield from everything_in(child)


class Options:
    """The dialog that is open, with the page it shows."""

    def __init__(self):
        wait_until(lambda: dialogs() and self.find("Button", "OK"), "the Options dialog")

    def find(self, class_name, text=None):
        """A visible control; without a text the first one of the class."""
        found = [control for control in everything_in(dialogs()[0]) if control.class_name == class_name and
                 text in (None, control.text.replace("&", ""))]
        return found[0] if found else None

    def click(self, button):
        place = wait_until(lambda: self.find("Button", button), f"the button {button}")
        click(*place.center())

    def close(self, button):
        self.click(button)
        wait_until(lambda: not dialogs(), "the dialog closes")

    def page(self):
        marks = {"Retrieve severe alerts": "General", "Add Station...": "Stations", "Add": "AlertFilters"}
        return next((key for text, key in marks.items() if self.find("Button", text)), None)


@pytest.fixture
def french_keyboard():
    """A keyboard that has "é" on a key of its own; a program takes the keyboard that it starts with."""
    subprocess.run(["setxkbmap", "fr"], check=True)
    yield
    subprocess.run(["setxkbmap", "us"], check=True)


def type_text(text):
    subprocess.run(["xdotool", "type", "--delay", "60", text], check=True)


def answer_yes():
    wait_for_message_box().answer("Yes")


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
}


@pytest.mark.parametrize("way", WAYS)
def test_each_way_opens_the_dialog_on_its_page(make_watcher, way):
    stored, stations, open_dialog, shown = WAYS[way]
    click_action = "DoubleClickAction" if way == "double click" else "SingleClickAction"
    program = make_watcher(*stations, options={"LastOption": stored, click_action: OPEN})
    program.start()
    open_dialog(program)
    options = Options()
    assert options.page() == shown
    assert program.store.read("Options", "LastOption") == shown
    if way == "menu":  # a second opening brings the same one to the front, on the page that is wanted
        choose(program, "View Weather", "Add New Station...", stations=["L"])
        wait_until(lambda: options.page() == "Stations", "the Stations page")
        assert len(dialogs()) == 1
    options.close("Cancel")
    assert program.answers()


def test_first_start_leads_to_the_dialog(make_program):
    program = make_program()
    program.start()
    answer_yes()
    options = Options()
    assert options.page() == "General"
    options.close("OK")
    assert program.answers()


def test_what_is_typed_lasts(make_watcher, french_keyboard):
    program = make_watcher(LAWRENCE, options={"LastOption": "AlertFilters"})
    program.start()
    choose(program, "Options", stations=["L"])
    options = Options()
    click(*options.find("Edit").center())
    type_text("orage été")
    wait_until(lambda: options.find("Edit").text == "orage été", "the letters")
    options.click("Add")
    wait_until(lambda: options.find("Edit").text == "", "the word is added")
    options.close("OK")
    assert program.store.read("Options", "AlertFilters") == "orage été"
    choose(program, "Exit", stations=["L"])
    program.wait_for_end()
    program.start()
    choose(program, "Options", stations=["L"])
    assert Options().find("Button", "Remove").enabled  # the list is not empty


def test_moving_the_files_says_restart_once(make_watcher):
    program = make_watcher(LAWRENCE, options={"LastOption": "General"})
    program.start()
    choose(program, "Options", stations=["L"])
    options = Options()
    box = next(control.text for control in everything_in(dialogs()[0]) if "Store user" in control.text)
    there_and_back = [box.replace("&", "")] * 2
    for text in there_and_back:
        options.click(text)
    options.click("Apply")
    wait_until(lambda: not options.find("Button", "Apply").enabled, "the settings are stored")
    assert not find_windows("#32770", "Skyvane Live")
    options.click(there_and_back[0])
    options.click("Apply")
    message = wait_until(lambda: find_windows("#32770", "Skyvane Live"), "the restart message")[0]
    assert any("begin storing your Skyvane Live user files in your Windows user profile." in control.text
               for control in message.children)
    assert program.store.read("Options", "StoreFilesInProgramFolder") == "False"


def test_apply_in_the_middle_of_a_retrieval(make_watcher, feed):
    feed.serve("66044", TORNADO)
    gate = feed.hold("66044")
    program = make_watcher(LAWRENCE, PARIS, options={"LastOption": "Stations"})
    program.start()
    stations = ["L", "P"]
    choose(program, "Retrieve Severe Alerts", stations=stations)
    wait_until(lambda: feed.codes() == ["66044"], "the first station is asked for")
    choose(program, "Options", stations=stations)
    options = Options()
    options.click("Remove Station")
    wait_for_message_box().answer("Yes")
    options.click("Apply")
    station_file = program.folder / "Users" / "Default" / "CityCode.cmb"
    wait_until(lambda: b"Lawrence" not in station_file.read_bytes(), "the station is removed")
    assert b"Paris, France (Orly)" in station_file.read_bytes()
    options.close("OK")
    gate.set()
    wait_until(program.last_updated, "the cycle's end")
    assert program.answers()
    assert not message_boxes()
