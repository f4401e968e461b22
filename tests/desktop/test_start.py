"""Start and exit."""

import datetime
import os
import pathlib
import shutil
import subprocess
import time

import pytest

from dialog import message_boxes, wait_for_message_box
from feed import LAWRENCE, TORNADO
from harness import RETRIEVER_DELAY_TIMER, TRAY_CLASS, WM_TIMER, hold, stays, user_name, wait_until
from inside import probe
from stores import IniStore, windows_path
from tray_menu import choose

FIRST_TIME = ("It looks like this is your first time using Skyvane Alerts.\r\n\r\n"
              "Would you like to set up the Options now?")


@pytest.mark.parametrize("registry", [False, True], ids=["ini", "registry"])
def test_first_start_asks_once_and_copies_the_folders(make_program, app_data_folder, tmp_path, registry):
    program = make_program(registry)
    page = program.folder / "HTML" / "folder" / "page.txt"
    page.parent.mkdir(parents=True)
    page.write_text("page")
    page.chmod(0o444)
    program.start()
    question = wait_for_message_box()
    assert question.text == FIRST_TIME
    assert sorted(question.buttons) == ["No", "Yes"]
    question.answer("No")
    assert {key: value for key, value in program.store.sections()["Misc"].items() if value} == {
        "useini": str(not registry), "version": "1.0.2", "runs": "1"}
    sounds = {file.name for file in (program.folder / "Sounds").iterdir()}
    assert {file.name for file in (app_data_folder / "Sounds").iterdir()} == sounds != set()
    own_page = app_data_folder / "HTML" / "folder" / "page.txt"
    assert own_page.read_text() == "page"
    assert program.tooltip() == "Skyvane Alerts"
    choose(program, "Exit")
    assert program.wait_for_end() == 0

    # After an upgrade the program folder is newer than the copies.
    page.unlink()
    own_page.chmod(0o444)
    own_sound, foreign = app_data_folder / "Sounds" / "My own.wav", tmp_path / "foreign"
    own_sound.write_text("the user's")
    foreign.mkdir()
    (foreign / "file.txt").write_text("of another program")
    (app_data_folder / "HTML" / "link").symlink_to(foreign)
    for name in ("HTML", "Sounds"):
        os.utime(program.folder / name, (time.time() + 100,) * 2)
    program.start()
    wait_until(lambda: program.store.read("Misc", "Runs") == "2", "the run is counted")
    assert own_sound.exists() and not own_page.exists() and (foreign / "file.txt").exists()
    choose(program, "Exit")
    assert program.wait_for_end() == 0  # without a question


def test_start_loads_no_library_that_is_needed_later(make_watcher):
    number = 2 if datetime.date.today().day == 1 else 1
    program = make_watcher(LAWRENCE, misc={"LastUpdated": f"{number}/{number}/2008 4:12:10 PM"})
    program.start()
    wait_until(lambda: program.store.read("Misc", "Runs") == "3", "the start is complete")
    mapped = pathlib.Path(f"/proc/{program.process.pid}/maps").read_text()
    assert "/user32.dll" in mapped
    assert [name for name in ("comctl32", "comdlg32", "ole32", "oleaut32", "winmm") if f"/{name}.dll" in mapped] == []


def test_folder_name_is_not_a_switch(make_program, tmp_path):
    program = make_program(registry=True, folder=tmp_path / "my -id folder")
    program.store.write({"Misc": {"Runs": "2"}})
    program.launched.append(subprocess.Popen(["wine", os.environ["PROBE"], "run",
                                              windows_path(program.folder / "SVAlerts.exe")], cwd=program.folder))
    wait_until(lambda: program.store.read("Misc", "Runs") == "3", "the start is complete")
    assert program.store.read("Misc", "UseINI") == "False"


def test_locked_files_do_not_count_as_empty(make_watcher, feed):
    feed.serve("66044", TORNADO)
    program = make_watcher(LAWRENCE, options={"RetrieveAlertsOnStartup": "True"})
    stations_holder = hold(program.data_folder() / "CityCode.cmb", 120)
    hold(program.store.path, 3)
    program.start()
    program.wait_for_start()
    assert not message_boxes() and feed.codes() == [] and program.last_updated() is None
    stations_holder.kill()
    program.tick(5)
    program.wait_for_picture("new alerts")
    choose(program, "Exit", alerts=["Tornado"], stations=["Lawrence"])


def test_second_copy_exits_silently(make_watcher, feed, temp_folder):
    feed.serve("66044", TORNADO)
    in_use = temp_folder / "SVA7.tmp"
    in_use.write_text("of the first copy's search")
    program = make_watcher(LAWRENCE, misc={"LastUpdated": "5/2/2008 4:12:10 PM"})
    program.start()
    program.wait_for_start()
    settings = program.store.sections()
    program.store.write({"Options": {"RetrieveAlertsOnStartup": "True"}})
    second = program.launch(*program.arguments)
    assert second.wait(15) == 0
    assert in_use.exists()
    program.store.write({"Options": {"RetrieveAlertsOnStartup": "False"}})
    settings["Options"]["retrievealertsonstartup"] = "False"
    assert program.store.sections() == settings
    assert feed.paths() == []
    assert program.answers() and program.icon_picture() == "normal"
    assert program.tooltip() == "Skyvane Alerts (Last Updated: 5/2/2008 @ 4:12:10 @ PM)"


def test_icon_comes_back_with_a_new_taskbar(make_watcher, feed):
    feed.serve("66044", TORNADO)
    program = make_watcher(LAWRENCE, options={"RetrieveAlertsOnStartup": "True"})
    program.start(WINEDEBUG="fixme+all")  # Wine logs the functions that do nothing there
    program.wait_for_picture("new alerts")
    assert "ChangeWindowMessageFilterEx" in program.errors()  # for a program that runs as administrator
    probe("forget-icon", TRAY_CLASS)  # as when Explorer ends
    wait_until(lambda: not program.icon(), "the icon is gone")
    program.post("TaskbarCreated")
    program.wait_for_picture("normal")
    assert program.tooltip().startswith("Skyvane Alerts (Last Updated: ")
    choose(program, "Exit", alerts=["Tornado"], stations=["Lawrence"])
    assert program.wait_for_end() == 0


def test_chosen_images_replace_the_built_in_ones(make_watcher, feed):
    feed.serve("66044", TORNADO)
    icons = pathlib.Path(__file__).parents[2] / "assets" / "icons"
    program = make_watcher(LAWRENCE)
    shutil.copy(icons / "newalerts.ico", program.folder / "swapped.ico")
    shutil.copy(icons / "normal.ico", program.folder / "swapped2.ico")
    program.store.write({"Options": {
        "Icon": windows_path(program.folder / "swapped.ico"),
        "Icon2": windows_path(program.folder / "swapped2.ico")}})
    program.start()
    program.wait_for_picture("new alerts")
    choose(program, "Retrieve Severe Alerts", stations=["Lawrence"])
    program.wait_for_picture("normal")


@pytest.mark.parametrize("interval, minutes", [
    ("Every 5 minutes", 5), ("Sometimes", 1), ("", 15), ("Never", None)])
def test_minute_clock(make_watcher, feed, interval, minutes):
    feed.serve("66044", TORNADO)
    program = make_watcher(LAWRENCE, options={"AutoUpdateInterval": interval})
    program.start()
    for _ in range(2 if minutes else 1):
        program.tick((minutes or 20) - 1)
        assert program.answers() and feed.paths() == []
        program.tick()
        if minutes:
            wait_until(feed.paths, "the retrieval")
            program.wait_for_picture("new alerts")
            assert program.answers()
            feed.server.heads.clear()
    assert stays(lambda: feed.paths() == [], 0.5)


@pytest.mark.skipif("SKYVANE_LONG" not in os.environ, reason="takes a minute: ./test --long")
def test_minute_lasts_a_minute(make_watcher, feed):
    feed.serve("66044", TORNADO)
    program = make_watcher(LAWRENCE, options={"AutoUpdateInterval": "Every minute"})
    began = time.monotonic()
    program.start()
    wait_until(feed.paths, "the retrieval", 90)
    assert time.monotonic() - began > 55


def test_own_user_and_delayed_first_retrieval(make_watcher, feed):
    feed.serve("66044", TORNADO)
    program = make_watcher(LAWRENCE, options={"RetrieveAlertsOnStartup": "True",
                                              "Pause30SecondsOnStartup": "True"})
    user = user_name()
    program.store.path.rename(program.folder / f"{user}.ini")
    program.data_folder().rename(program.data_folder(user))
    program.store = IniStore(program.folder / f"{user}.ini")
    program.arguments = ["-i"]
    program.start()
    assert program.answers() and feed.paths() == []
    program.post(WM_TIMER, RETRIEVER_DELAY_TIMER)  # the thirty seconds are over
    program.wait_for_picture("new alerts")
    assert not message_boxes()
    assert [alert[0] for alert in program.store.alerts()] == ["101"]
    assert not (program.folder / "Default.ini").exists()
