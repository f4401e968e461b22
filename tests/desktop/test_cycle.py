"""Retrieval cycles as a person sees them."""

import datetime

import pytest

from feed import FLOOD, TORNADO
from harness import message_boxes, stays, wait_for_message_box, wait_until

LAWRENCE = ("Lawrence, KS (Downtown)", "66044")
PARIS = ("Paris, France (Orly)", "064321")

AT_START = {"RetrieveAlertsOnStartup": "True", "DisplayTrayAlert": "True"}
NEW_ALERTS = ("New severe weather alerts have been discovered.\r\n\r\n"
              "Note: Right-click the Skyvane Alerts system tray icon for more information.")
FAILED = "\r\n".join([
    "Skyvane Alerts was not able to retrieve the severe alerts.",
    "",
    "Please verify the following:",
    "",
    "1) You're connected to the Internet.",
    "",
    "2) Your software (e.g. firewall software, security software) is not",
    "     blocking Internet access to Skyvane Live.",
    "",
    "3) Your computer and/or network is not preventing you from",
    "     viewing https://www.weatherbug.com."])


def time_of(text):
    return datetime.datetime.strptime(text, "%m/%d/%Y %I:%M:%S %p")


@pytest.mark.parametrize("registry", [False, True], ids=["ini", "registry"])
def test_new_alerts_are_told_and_stored(make_watcher, feed, temp_folder, registry):
    feed.serve("66044", TORNADO, FLOOD)
    feed.serve("064321", FLOOD)
    program = make_watcher(LAWRENCE, PARIS, registry=registry, options=AT_START)
    began = datetime.datetime.now().replace(microsecond=0)
    program.start()

    program.wait_for_picture("new alerts")
    wait_until(lambda: NEW_ALERTS in program.balloons(), "the balloon")
    request = "/GetXml.aspx?partnerid=7e3a90d4&requesttype=6&ZipCode="
    assert feed.paths == [request + "66044", request + "064321"]
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
