"""Clicks on the icon and in its menu, and the addresses that they open in the browser."""

import time

import pytest

from dialog import DIALOG, Dialog
from feed import FLOOD, LAWRENCE, PARIS, TORNADO
from harness import DOUBLE_CLICK_SECONDS, LEFT, LEFT_DOUBLE, LEFT_DOWN, RIGHT_DOWN, click, find_windows, point_at, stays, wait_until
from options_dialog import OPTIONS, Options
from tray_menu import MAKER, MAP, WEATHER, alert_page, choose, close_menu, open_menus, station_page


def test_single_click_waits_for_a_double_click(make_watcher, browser):
    program = make_watcher(LAWRENCE, options={"DoubleClickAction": "Visit " + MAKER})
    program.start()
    clicked = time.monotonic()
    program.click_icon(LEFT)
    browser.wait_for(MAP + "&zip=66044")
    assert time.monotonic() - clicked > DOUBLE_CLICK_SECONDS * 0.9
    program.click_icon(LEFT, times=2)
    browser.wait_for(MAKER)
    assert stays(lambda: not browser.opened(), 2 * DOUBLE_CLICK_SECONDS), "the single-click action ran too"


def test_about_links(make_watcher, browser):
    program = make_watcher()
    program.start()
    choose(program, "About")
    about = Dialog("About Skyvane Live")
    links = [child for child in about.window().children if child.class_name == "SysLink"]
    for link, address in zip(links, [MAKER, "mailto:support@quillmark.example"], strict=True):
        click(link.left + 20, (link.top + link.bottom) // 2)
        browser.wait_for(address)
    click(*max((child for child in about.window().children if child.class_name == "Button"),
               key=lambda child: child.bottom - child.top).center())
    browser.wait_for(WEATHER + "?zcode=z4172")


def test_each_menu_item_opens_its_address(make_watcher, feed, browser):
    feed.serve("66044", TORNADO, FLOOD, TORNADO)  # one item for two equal captions
    feed.serve("064321", FLOOD)
    program = make_watcher(LAWRENCE, PARIS, options={"RetrieveAlertsOnStartup": "True"})
    program.start()
    program.wait_for_picture("new alerts")
    assert stays(lambda: not program.balloons(), 2)  # DisplayTrayAlert is off
    alerts = ("Tornado here", "Flood here", "Flood in Paris")
    stations = ("Lawrence", "Paris")
    for path, address in [
        (["Tornado here"], alert_page("66044")),
        (["Flood here"], alert_page("66044")),
        (["Flood in Paris"], alert_page("064321")),
        (["View Weather", "Lawrence"], station_page("66044")),
        (["View Weather", "Paris"], station_page("064321")),
        (["View National Severe Alerts"], MAP + "&zip=66044"),
        (["Help", "Support Forums"], MAKER + "/Forum/index.php?c=24"),
        (["Help", "Send Bug Report"],
         MAKER + "/Bug-Report.asp?Application=Skyvane Alerts&Version=1.0.2"),
        (["Visit Quillmark Software"], MAKER),
        (["Support Quillmark Software"], MAKER + "/Donate.asp"),
    ]:
        choose(program, *path, alerts=alerts, stations=stations)
        browser.wait_for(address)
    program.wait_for_picture("normal")  # restored by the first right click


@pytest.mark.parametrize("second", [(0,), (LEFT_DOUBLE,)], ids=["single", "double"])
def test_action_under_the_open_menu_waits_until_it_closes(make_watcher, feed, second):
    feed.serve("66044", TORNADO)
    action = "Open Skyvane Alerts Options"
    program = make_watcher(LAWRENCE, options={"SingleClickAction": action, "DoubleClickAction": action})
    program.start()
    point_at(100, 100)
    program.icon_message(LEFT_DOWN, RIGHT_DOWN)
    wait_until(open_menus, "the popup menu")
    program.icon_message(*second)
    assert stays(lambda: open_menus() and not find_windows(DIALOG, OPTIONS), 3 * DOUBLE_CLICK_SECONDS)
    program.tick(5)
    assert program.answers() and feed.codes() == [], "a retrieval under the open menu"
    close_menu()
    Options().close("Cancel")
    assert stays(lambda: not find_windows(DIALOG, OPTIONS), 2 * DOUBLE_CLICK_SECONDS), "it runs twice"
    program.tick()
    program.wait_for_picture("new alerts")
