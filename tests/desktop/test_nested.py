"""Events that arrive during a download."""

import os

import pytest

from dialog import DIALOG
from feed import FLOOD, LAWRENCE, TORNADO
from harness import LEFT, click, find_windows, stays, wait_until
from tray_menu import FIXED, MAP, choose, close_menu, open_menu, place_of


@pytest.fixture
def waiting(make_watcher, feed):
    """A program whose first download, at its start or from the menu, is delayed until `gate` is set."""

    def start(at_start=True, **options):
        feed.serve("66044", TORNADO)
        gate = feed.hold("66044")
        program = make_watcher(LAWRENCE, options={"RetrieveAlertsOnStartup": str(at_start), **options})
        program.start()
        if not at_start:
            choose(program, "Retrieve Severe Alerts", stations=["Lawrence"])
        wait_until(lambda: len(feed.codes()) == 1, "the request")
        assert len(program.downloaders()) == 1
        return program, gate

    return start


def exit_by_menu(program):
    choose(program, "Exit", stations=["Lawrence"])


@pytest.mark.parametrize("leave, at_start", [
    (exit_by_menu, True),
    (lambda program: program.post("0x16", 1), False),  # the session ends
    (lambda program: program.post("0x10"), False),  # the task manager closes the program
], ids=["menu", "ending", "closed"])
def test_exit_removes_icon_downloader_and_temporary_files(waiting, temp_folder, leave, at_start):
    for name in ("SVA1.tmp", "SVA2F.tmp", "SVAnot.txt"):
        (temp_folder / name).write_text("of an earlier run")
    program, _ = waiting(at_start)
    leave(program)
    assert program.wait_for_end(5) == 0
    wait_until(lambda: not program.icon() and not program.downloaders(), "the end of icon and downloader", 5)
    assert [file.name for file in temp_folder.glob("SV*.*")] == ["SVAnot.txt"]
    (temp_folder / "SVAnot.txt").unlink()


def test_commands_work_while_retrieving_is_disabled(waiting, feed, browser):
    program, gate = waiting(at_start=False)
    program.click_icon(LEFT)
    browser.wait_for(MAP + "&zip=66044")
    choose(program, "View National Severe Alerts", stations=["Lawrence"])
    browser.wait_for(MAP + "&zip=66044")
    menu = open_menu(program)
    click(*place_of(menu, ("(No Alerts Available)", *FIXED), "Retrieve Severe Alerts"))
    assert stays(lambda: feed.codes() == ["66044"], 0.5)
    gate.set()
    wait_until(lambda: not program.downloaders(), "the download's end")
    assert stays(lambda: not program.last_updated(), 0.5), "the cycle ends while the menu is open"
    close_menu()
    program.wait_for_picture("new alerts")
    choose(program, "Retrieve Severe Alerts", alerts=["Tornado"], stations=["Lawrence"])
    wait_until(lambda: len(feed.codes()) == 2, "the second retrieval")


def test_clock_starts_a_cycle_during_a_waiting_one(waiting, feed):
    program, gate = waiting(at_start=False)
    program.tick(4)
    assert program.answers() and len(feed.codes()) == 1
    program.tick()
    wait_until(lambda: len(feed.codes()) == 2, "the nested cycle")
    assert program.answers()
    gate.set()
    program.wait_for_picture("new alerts")
    wait_until(lambda: not program.downloaders(), "the end of both downloads")
    assert program.answers()
    assert {alert[:2] for alert in program.store.alerts()} == {TORNADO[:2]}
    assert program.store.read("Misc", "OldAlerts") == "101"
    feed.serve("66044", FLOOD)
    program.tick(5)
    wait_until(lambda: program.store.read("Misc", "OldAlerts") == "101¦102", "the next cycle")


@pytest.mark.parametrize("by_clock", [True, False], ids=["clock", "command"])
@pytest.mark.parametrize("window", ["Options", "About", "Check for New Version"])
def test_retrievals_continue_while_a_window_is_open(make_watcher, feed, window, by_clock):
    feed.serve("66044", TORNADO)
    gate = feed.hold("66044")
    program = make_watcher(LAWRENCE)
    program.store.write({"Hosts": {"Maker": "gone://"}})
    program.start()
    if by_clock:
        program.tick(5)
    else:
        choose(program, "Retrieve Severe Alerts", stations=["Lawrence"])
    wait_until(feed.codes, "the request")
    choose(program, window, stations=["Lawrence"])
    wait_until(lambda: find_windows(DIALOG), "the window")
    gate.set()
    program.wait_for_picture("new alerts")
    feed.serve("66044", FLOOD)
    program.tick(5)  # with the window still open
    wait_until(lambda: program.store.read("Misc", "OldAlerts") == "101¦102", "the next cycle")
    assert find_windows(DIALOG)


def test_program_works_after_its_downloader_was_killed(waiting, browser):
    program, _ = waiting()
    os.kill(program.downloaders()[0], 9)
    wait_until(lambda: not program.downloaders(), "the downloader's end")
    program.click_icon(LEFT)
    browser.wait_for(MAP + "&zip=66044")
    exit_by_menu(program)
    assert program.wait_for_end(5) == 0
