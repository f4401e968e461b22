"""Invalid, huge and hostile input: it causes no crash, no lost setting and no other request."""

import random

import pytest

from dialog import wait_for_message_box
from feed import AT_START, FLOOD, LAWRENCE, PARIS, TORNADO, document
from harness import RIGHT, station_line, wait_until
from tray_menu import choose, open_menus

MIB = 1024 * 1024


def run_cycle(program, seconds=15):
    program.start()
    wait_until(program.last_updated, "the cycle's end", seconds)
    program.wait_for_start(seconds)
    assert program.answers()


def leave(program, **menu):
    choose(program, "Exit", **menu)
    assert program.wait_for_end() == 0


GOOD = document(TORNADO, FLOOD)


def unloadable(feed):
    """Documents that cannot be loaded: they count as no alerts, not as a failure."""
    start = GOOD.index(b"<aws:weather")
    entity = b'<!DOCTYPE w [<!ENTITY e SYSTEM "' + feed.address.encode() + b'outside.txt">]>'
    return {
        "truncated": GOOD[:len(GOOD) * 2 // 3],
        "not XML": b"\x00\x01\xff MZ rubbish" * 100,
        "bad UTF-8": GOOD.replace("Łódź".encode(), b"\xc3\x28\xff"),
        "error page": b"<!DOCTYPE html><html><head><title>Sorry</title><body><p>Try again<br></html>",
        "external entity": GOOD[:start] + entity + GOOD[start:].replace(b"Flooding is possible.", b"&e;"),
        "deep": b"<a>" * 200_000,
    }


def test_documents_that_cannot_be_loaded(make_watcher, feed):
    documents = unloadable(feed)
    for number, body in enumerate(documents.values()):
        feed.serve_raw(str(number), body)
    feed.serve("last", TORNADO)
    stations = [(name, str(number)) for number, name in enumerate(documents)]
    program = make_watcher(*stations, ("Last", "last"), options=AT_START)
    run_cycle(program, 60)
    assert feed.codes() == [*(code for _, code in stations), "last"], "another request"
    assert program.store.alerts() == [("101", "Tornado Warning", "last", "A tornado was seen near Łódź.")]
    leave(program, alerts=["Tornado"], stations=[*documents, "Last"])


def test_odd_but_well_formed_documents(make_watcher, feed):
    marked = 'Two & <b>"\U0001F32A"'
    feed.serve("1", ("1", None, "first, no title"), ("2", marked, "body"), ("3", None, "keeps the title before"),
               ("4", "Four", ""), ("5", "Five", None), (None, "Six", "no id"), ("", "", " a  b   c "))
    feed.serve("2")
    feed.serve_raw("3", b"<weather><alerts><alert><id>9</id></alert></alerts></weather>")
    feed.serve("4", ("[x]\r\n=\"y\"", "A & B <i>\t\r\nCOUNT=0", "line one\nBODY1=lost\r\n[Misc]\r\nRUNS=99"))
    program = make_watcher(*((code, code) for code in "1234"), options=AT_START)
    run_cycle(program)
    alerts = program.store.alerts()
    assert [alert and alert[:3] for alert in alerts[:7]] == [
        ("1", "", "1"), ("2", marked, "1"), ("3", marked, "1"), None, ("5", "Six", "1"), ("", "", "1"),
        alerts[6][:3]]
    assert alerts[5][3] == "a b c"
    assert alerts[0][3] == "first, no title"
    assert set(program.store.sections()) == {"Hosts", "Options", "Misc", "Alerts"}


def test_many_alerts_and_elements_of_sixteen_mebibytes(make_watcher, feed):
    huge = "x" * (16 * MIB - 2000)
    feed.serve("66044", *((str(n), f"Alert {n:05}", "body " * 20) for n in range(5000)))
    feed.serve("1", (huge, *TORNADO[1:]))
    feed.serve("2", (*TORNADO[:2], huge))
    feed.serve("064321", FLOOD)
    program = make_watcher(LAWRENCE, ("One", "1"), ("Two", "2"), PARIS, options=AT_START)
    run_cycle(program, 60)
    alerts = program.store.alerts()
    assert len(alerts) == 5003 and alerts[4999][:2] == ("4999", "Alert 04999")
    assert alerts[-1] == ("102", "Flood Watch", "064321", "Flooding is possible.")
    program.click_icon(RIGHT)
    wait_until(open_menus, "the popup menu")


@pytest.mark.parametrize("registry", [False, True], ids=["ini", "registry"])
def test_settings_of_many_characters(make_watcher, feed, registry):
    """In the INI file no longer than the program writes them: some versions of Wine truncate longer lines."""
    feed.serve("66044", TORNADO)
    long = "Ł" * (100_000 if registry else 749)
    program = make_watcher(
        LAWRENCE, registry=registry,
        options={**AT_START, "AlertFilters": long, "SingleClickAction": long, "AutoUpdateInterval": long,
                 "Icon": long, "TrayAlertSound": long, "FlashTrayIcon": "True"},
        misc={"OldAlerts": long[4:], "LastUpdated": long})
    program.store.write({"Alerts": {"Count": "2", "Title1": long, "ZipCode1": long, "Body1": long,
                                    "Title2": "Two", "ZipCode2": "66044"}})
    run_cycle(program, 30)
    program.wait_for_picture("new alerts")
    assert program.store.alerts()[-1][0] == "101"
    assert program.store.read("Misc", "OldAlerts").endswith("Ł¦101")
    assert program.store.read("Options", "Icon") == long


def test_station_file_with_random_bytes(make_watcher, feed):
    feed.serve("66044", TORNADO)
    program = make_watcher(random.Random(7).randbytes(300_000), LAWRENCE, options=AT_START)
    run_cycle(program, 60)
    assert feed.codes() == ["66044"]
    program.wait_for_picture("new alerts")
    program.click_icon(RIGHT)
    wait_until(open_menus, "the popup menu")
    assert station_line(*LAWRENCE) in (program.data_folder() / "CityCode.cmb").read_bytes()


@pytest.mark.parametrize("registry", [False, True], ids=["ini", "registry"])
def test_program_folder_that_is_read_only(make_program, app_data_folder, registry):
    program = make_program(registry)
    if registry:
        (program.folder / "Users").write_text("a file")
        program.store.write({"Options": {"StoreFilesInProgramFolder": "True"}})
    program.folder.chmod(0o555)
    try:
        program.start()
        wait_for_message_box().answer("No")  # nothing can be stored, so every start is the first
        choose(program, "Check for New Version")
        message = wait_for_message_box()
        assert message.text.startswith("The attempt to check for an updated version")
        message.answer("OK")
        leave(program)
    finally:
        program.folder.chmod(0o755)
