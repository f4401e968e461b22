"""Retrieval cycles as the user sees them."""

import datetime
import os
import shutil
import subprocess

import pytest

from dialog import message_boxes, wait_for_message_box
from feed import AT_START, FLOOD, LAWRENCE, PARIS, TORNADO
from harness import stays, wait_until
from stores import windows_path
from tray_menu import choose


EACH_MINUTE = {"AutoUpdateInterval": "Every minute"}  # an unknown name counts as every minute
NEW_ALERTS = ("New severe weather alerts have been discovered.\r\n\r\n"
              "Note: Right-click the Skyvane Alerts system tray icon for more information.")
FAILED = ("Skyvane Alerts was not able to retrieve the severe alerts.\r\n\r\n"
          "Please verify the following:\r\n\r\n"
          "1) You're connected to the Internet.\r\n\r\n"
          "2) Your software (e.g. firewall software, security software) is not\r\n"
          "     blocking Internet access to Skyvane Live.\r\n\r\n"
          "3) Your computer and/or network is not preventing you from\r\n"
          "     viewing https://www.weatherbug.com.")


def time_of(text):
    return datetime.datetime.strptime(text, "%m/%d/%Y %I:%M:%S %p")


@pytest.mark.parametrize("registry", [False, True], ids=["ini", "registry"])
def test_new_alerts_are_announced_and_stored(make_watcher, feed, temp_folder, registry):
    feed.serve("66044", TORNADO, FLOOD)
    feed.serve("064321", FLOOD)
    program = make_watcher(LAWRENCE, PARIS, registry=registry, options=AT_START)
    began = datetime.datetime.now().replace(microsecond=0)
    program.start()

    program.wait_for_picture("new alerts")
    wait_until(lambda: NEW_ALERTS in program.balloons(), "the balloon")
    request = "/GetXml.aspx?partnerid=7e3a90d4&requesttype=6&ZipCode="
    assert feed.paths() == [request + "66044", request + "064321"]
    assert program.store.alerts() == [
        ("101", "Tornado Warning", "66044", "A tornado was seen near Łódź."),
        ("102", "Flood Watch", "66044", "Flooding is possible."),
        ("102", "Flood Watch", "064321", "Flooding is possible."),
    ]
    assert program.store.read("Misc", "OldAlerts") == "101¦102"
    updated = program.last_updated()
    assert began <= time_of(updated) <= datetime.datetime.now()
    time_alone = updated.split(" ", 1)[1]
    assert program.tooltip() == f"Skyvane Alerts (Last Updated: {time_alone})"
    assert not list(temp_folder.glob("SV*.tmp"))


@pytest.mark.parametrize("registry", [False, True], ids=["ini", "registry"])
def test_known_alerts_are_not_announced_again(make_watcher, feed, registry):
    feed.serve("66044", TORNADO, FLOOD)
    program = make_watcher(LAWRENCE, registry=registry, options={"DisplayTrayAlert": "True"},
                           misc={"OldAlerts": "7" * 500 + "¦102¦101"})
    program.start()
    choose(program, "Retrieve Severe Alerts", stations=["Lawrence"])
    wait_until(program.last_updated, "the first cycle's end")
    assert program.answers()
    assert program.icon_picture() == "normal" and not program.balloons()
    assert [alert[0] for alert in program.store.alerts()] == ["101", "102"]

    feed.serve("66044", TORNADO, ("103", "Hail", "Hail."), FLOOD)
    choose(program, "Retrieve Severe Alerts", alerts=["Tornado", "Flood"], stations=["Lawrence"])
    program.wait_for_picture("new alerts")
    wait_until(lambda: NEW_ALERTS in program.balloons(), "the balloon")
    # The first cycle has shortened the list.
    assert program.store.read("Misc", "OldAlerts") == "7" * 251 + "¦102¦101¦103"
    # Alerts in the INI file are not deleted: there the numbers continue.
    earlier = [] if registry else ["101", "102"]
    assert [alert[0] for alert in program.store.alerts()] == [*earlier, "101", "103", "102"]


def test_balloon_is_sent_again_with_each_later_change(make_watcher, feed, tmp_path):
    """On Windows each call shows the balloon again, so an extra call would be an extra notification."""
    calls = tmp_path / "calls.txt"
    with open(calls, "wb") as output:
        watcher = subprocess.Popen(["wine", os.environ["PROBE"], "watch-icons"], stdout=output, stderr=subprocess.DEVNULL)
    try:
        wait_until(lambda: "watching" in calls.read_text(), "the watcher")
        feed.serve("66044", TORNADO, FLOOD)
        program = make_watcher(LAWRENCE, options={**AT_START, **EACH_MINUTE})
        program.start()
        program.wait_for_picture("new alerts")
        wait_until(program.balloons, "the balloon")
        assert calls.read_text().split().count("balloon") == 1
        program.run_quiet_cycle()  # the tooltip changes
        assert calls.read_text().split().count("balloon") == 2
        choose(program, "About", alerts=["Tornado Warning", "Flood Watch"], stations=["Lawrence"])  # the icon changes
        program.wait_for_picture("normal")
        assert calls.read_text().split().count("balloon") == 3
    finally:
        watcher.kill()


def test_failing_server(make_watcher, feed):
    feed.close()
    before = "11/20/2026 1:02:03 PM"
    program = make_watcher(LAWRENCE, registry=True, options=AT_START,
                           misc={"LastUpdated": before, "OldAlerts": "7"})
    program.store.write({"Alerts": {"Count": "1", "Title1": "Storm", "ZipCode1": "66044"}})
    program.start()
    program.wait_for_start()
    assert not message_boxes()

    # The failed cycle has deleted the stored alerts: the menu has none.
    choose(program, "Retrieve Severe Alerts", stations=["Lawrence"])
    message = wait_for_message_box()
    assert (message.text, list(message.buttons)) == (FAILED, ["OK"])
    message.answer("OK")
    assert program.last_updated() == before
    assert program.store.read("Misc", "OldAlerts") == "7"
    assert program.icon_picture() == "normal"
    assert program.tooltip() == f"Skyvane Alerts (Last Updated: {before.replace(' ', ' @ ')})"


def test_failure_of_a_later_station_keeps_earlier_alerts(make_watcher, feed):
    feed.serve("1", TORNADO)
    feed.serve("3", FLOOD)
    program = make_watcher(("One", "1"), ("Two", "2"), ("Three", "3"), registry=True, options=AT_START)
    program.start()
    program.wait_for_start()
    assert feed.codes() == ["1", "2"]
    assert [alert[0] for alert in program.store.alerts()] == ["101"]
    assert program.last_updated() is None and program.store.read("Misc", "OldAlerts") is None
    assert program.icon_picture() == "normal"
    feed.serve("2")
    feed.serve("3")
    program.tick(5)
    program.wait_for_picture("new alerts")  # now announces the alert of the failed cycle
    assert program.store.read("Misc", "OldAlerts") == "101"


def test_downloader_that_cannot_be_started(make_watcher):
    program = make_watcher(LAWRENCE, registry=True)
    (program.folder / "dl.exe").unlink()
    program.start()
    choose(program, "Retrieve Severe Alerts", stations=["Lawrence"])
    message = wait_for_message_box()
    assert message.text == FAILED
    message.answer("OK")
    choose(program, "Check for New Version", stations=["Lawrence"])
    message = wait_for_message_box()
    assert message.text.startswith("The attempt to check for an updated version of Skyvane Alerts failed!")
    message.answer("OK")
    assert program.icon_picture() == "normal" and program.last_updated() is None


def test_station_codes_are_fetched_once_in_list_order(make_watcher, feed):
    for code in ("7", "66", "6", '8"9'):
        feed.serve(code)
    program = make_watcher(("A", "66"), ("B", "7"), ("C", "66"), b"not a station", ("D", "6"),
                           ("E", '8"9'), options=AT_START)
    program.start()
    wait_until(program.last_updated, "the cycle's end")
    assert feed.codes() == ["66", "7", "6", '8"9']


def test_filters(make_watcher, feed):
    feed.serve("66044", ("1", "T", "A Tornado."), ("2", "F", "FLOODING"), ("3", "S", "Thunderstorms"),
               ("4", "B", "tornado, then flood"))
    program = make_watcher(LAWRENCE, options=EACH_MINUTE)
    program.start()
    seen = []
    for words, show_only, kept in [
        ("storm||||||||||x", "False", []),  # the empty word between the separators is in every body
        ("tornado|||||flood", "True", ["4"]),
        ("tornado||||||||||flood", "True", ["4"]),
        ("STORM", "True", ["3"]),
        ("storm", "true", ["1", "2", "4"]),  # only "True" counts
        ("", "True", ["1", "2", "3", "4"]),
    ]:
        program.run_quiet_cycle(Options={"AlertFilters": words, "ShowFilteredWords": show_only})
        assert [alert[0] for alert in program.store.alerts()] == kept, (words, show_only)
        seen += [number for number in kept if number not in seen]
        assert program.store.read("Misc", "OldAlerts") == "¦".join(seen)
        program.wait_for_picture("new alerts" if seen else "normal")
    for before, after in [("32767", "32767"), ("many", "4")]:
        program.run_quiet_cycle(Alerts={"Count": before})
        assert program.store.read("Alerts", "Count") == after


NO_STATION = ("Before attempting to retrieve the alert information, you must\r\n"
              "select a station to watch in the \"Stations\" section of the Skyvane Alerts Options."
              "\r\n\r\nWould you like to select a station now?")


@pytest.mark.parametrize("answer", ["No", "Yes"])
def test_cycle_without_a_station_asks_for_one(make_watcher, feed, answer):
    program = make_watcher(registry=True)
    program.store.write({"Alerts": {"Count": "1", "Title1": "Storm", "ZipCode1": "66044"}})
    program.start()
    program.tick(5)
    question = wait_for_message_box()
    assert (question.text, sorted(question.buttons)) == (NO_STATION, ["No", "Yes"])
    choose(program, "Retrieve Severe Alerts", alerts=["Storm"])
    assert stays(lambda: len(message_boxes()) == 1, 0.5), "a second question"
    question.answer(answer)
    wait_until(lambda: program.store.read("Options", "LastOption") ==
               ("Stations" if answer == "Yes" else None), "the stored page")
    if answer == "No":
        wait_until(program.last_updated, "the cycle's end")
        assert program.store.read("Alerts", "Count") == "1"
        assert program.tooltip().startswith("Skyvane Alerts (Last Updated: ")
    assert feed.paths() == []


def test_chosen_sound(make_watcher, feed):
    program = make_watcher(LAWRENCE, options=EACH_MINUTE)
    sounds = program.folder / "Users" / "Default" / "Sounds"
    sounds.mkdir()
    shutil.copy(program.folder / "Sounds" / "Urgent.wav", sounds / "OwnCopy.wav")
    program.start(WINEDEBUG="+winmm")  # Wine then logs each sound
    for number, (flash, sound) in enumerate([
        ("True", "(None)"),
        ("True", ""),
        ("True", "Missing.wav"),
        ("True", "OwnCopy.wav"),  # only in the data folder
        ("False", "Urgent.wav"),
        ("", "Urgent.wav"),
    ]):
        feed.serve("66044", (f"{number}", "Title", "Body"))
        program.run_quiet_cycle(Options={"FlashTrayIcon": flash, "TrayAlertSound": sound})
        assert "MULTIMEDIA_PlaySound" not in program.errors(), (flash, sound)

    feed.serve("66044", TORNADO)
    program.run_quiet_cycle(Options={"FlashTrayIcon": "True", "TrayAlertSound": "Urgent.wav"})
    expected = windows_path(program.folder / "Sounds" / "Urgent.wav")
    wait_until(lambda: program.sounds_played() == [expected], "the sound")
    program.run_quiet_cycle()
    assert program.sounds_played() == [expected], "a sound for known alerts"
