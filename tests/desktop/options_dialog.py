"""Drives the Options dialog as the user does. Controls have their names in options/resource.h."""

import pathlib
import re
import subprocess

from dialog import DIALOG, Dialog, press, type_text, wait_for_message_box
from harness import click, find_windows, stays, wait_until

OPTIONS = "Options - Skyvane Alerts"
RESOURCES = (pathlib.Path(__file__).parents[2] / "options/resource.h").read_text(encoding="utf-8")
NUMBERS = {name: int(number) for name, number in re.findall(r"#define frmOptions_(\w+) (\d+)", RESOURCES)}
# A control that only this page has.
MARKS = {"General": "Check4", "Stations": "Command6", "AlertFilters": "Text3", "TrayIcon": "Image4",
         "TrayAlerts": "cmdTest", "Internet": "Text1"}
# Pixels, at the screen's 96 per inch: how far right each page's tab is, and a row of a list.
TABS = {"General": 27, "Stations": 81, "AlertFilters": 143, "TrayIcon": 205, "TrayAlerts": 268, "Internet": 327}
LIST_ROW = 13


def answer_yes():
    wait_for_message_box().answer("Yes")


def type_into(find_box, text):
    """Replaces the text of a box. Tries again because the window manager may set the keyboard focus late."""
    for _ in range(5):
        click(*wait_until(find_box, "the box").center())
        for key in ("Home", "shift+End", "BackSpace"):
            press(key)
        type_text(text)
        if not stays(lambda: find_box().text != text, 2):
            return
    raise AssertionError(f"{text!r} does not appear in the box")


def answer_by_text(title, text, button):
    """Answers a dialog that asks for a text."""
    def find(class_name, text=None):
        return next((control for window in find_windows(DIALOG, title) for control in window.children
                     if control.class_name == class_name and text in (None, control.text.replace("&", ""))), None)
    type_into(lambda: find("Edit"), text)
    click(*find("Button", button).center())
    wait_until(lambda: not find("Edit"), "the dialog closes")


class Options(Dialog):
    """`named` and `push` use the result of the last `look`, because looking takes a tenth of a second."""

    def __init__(self):
        super().__init__(OPTIONS)
        self.look()

    def look(self):
        self.controls = getattr(self.window(), "children", [])
        return self

    def named(self, name):
        return next((control for control in self.controls if control.control == NUMBERS[name]), None)

    def push(self, name):
        click(*self.named(name).center())

    def apply(self, meanwhile=lambda: None):
        self.click("Apply")
        meanwhile()
        wait_until(lambda: not self.control("Apply").enabled, "the settings are stored")

    def close(self, button):
        self.click(button)
        self.wait_until_closed()

    def page(self):
        self.look()
        return next((page for page, name in MARKS.items() if self.named(name)), None)

    def turn_to(self, page):
        tabs = self.named("Tabs")
        click(tabs.left + TABS[page], tabs.top + 10)
        wait_until(lambda: self.page() == page, f"the page {page}")

    def type(self, name, text):
        type_into(lambda: self.look().named(name), text)

    def open_list(self, name):
        """The window in which a combo box shows its entries, and the entries."""
        self.push(name)
        window = wait_until(lambda: find_windows("ComboLBox"), "the list of entries")[0]
        return window, window.text.split("\n")

    def entries(self, name):
        if not self.named(name).text:
            return []
        found = self.open_list(name)[1]
        self.push(name)
        wait_until(lambda: not find_windows("ComboLBox"), "the list of entries closes")
        return found

    def choose(self, name, text):
        window, entries = self.open_list(name)
        row = (window.bottom - window.top - 2) / len(entries)
        click(window.left + 20, int(window.top + 1 + (entries.index(text) + 0.5) * row))
        wait_until(lambda: self.look().named(name).text == text, f"{text!r} is chosen")

    def select_rows(self, name, count):
        place = self.named(name)
        subprocess.run(["xdotool", "keydown", "ctrl"], check=True)
        for row in range(count):
            click(place.left + 20, place.top + 2 + LIST_ROW * row + LIST_ROW // 2)
        subprocess.run(["xdotool", "keyup", "ctrl"], check=True)
