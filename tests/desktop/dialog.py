"""Dialogs and message boxes as a user operates them, with the mouse and the keyboard."""

import re
import subprocess

from harness import click, find_windows, settled, stays, wait_until
from inside import probe

PROGRAM_NAME = "Skyvane Alerts"
DIALOG = "#32770"


def window_with_keyboard():
    return subprocess.run(["xdotool", "getwindowfocus", "getwindowname"], stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL).stdout.decode().strip()


def type_text(text):
    subprocess.run(["xdotool", "type", "--delay", "15", text], check=True)


def press(key):
    subprocess.run(["xdotool", "key", key], check=True)


class Dialog:
    """A window of the program by its title."""

    def __init__(self, title):
        self.title = title
        wait_until(lambda: settled(self.window), title)

    def window(self):
        found = find_windows(DIALOG, self.title)
        return found[0] if found else None

    def is_open(self):
        return bool(self.window())

    def wait_until_closed(self):
        wait_until(lambda: not self.is_open(), f"{self.title} closes")

    def control(self, text=None, class_name=None):
        return next(child for child in wait_until(self.window, self.title).children
                    if (text is None or child.text.replace("&", "") == text)
                    and (class_name is None or child.class_name == class_name))

    def click(self, text, **more):
        click(*self.control(text).center(), **more)

    def click_row(self, row, times=1):
        """Rows are counted from 0; the list must show them without scrolling."""
        place = self.control(class_name="SysListView32")
        click(place.left + 60, place.top + 26 + 17 * row, times=times)

    def rows(self):
        """What the list shows: (icon, text, ...) of each row."""
        return [tuple(fields[1:]) for fields in probe("rows", self.title)]

    def selected(self):
        return [n for n, fields in enumerate(probe("rows", self.title)) if fields[0]]

    def take_keyboard(self):
        """Wine and the virtual screen's window manager do not always agree on who has the keyboard."""
        def ask():
            if window_with_keyboard() == self.title:
                return True
            subprocess.run(["xdotool", "search", "--name", f"^{re.escape(self.title)}$", "windowfocus"],
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            return False
        wait_until(ask, f"{self.title} has the keyboard")

    def press(self, *keys):
        self.take_keyboard()
        for key in keys:
            press(key)

    def close_by_box(self):
        self.press("alt+F4")  # the window manager's, which asks the window as its close box does


class MessageBox:
    def __init__(self, window):
        self.title = window.text
        statics = [child.text for child in window.children if child.class_name == "Static"]
        self.text = max(statics, key=len, default="")
        self.buttons = {child.text.replace("&", ""): child for child in window.children
                        if child.class_name == "Button"}

    def answer(self, button):
        """Clicks where the button stands now, and again if nothing comes of it: on a busy machine a new
        box is still on its way to its place when it is first seen."""
        for _ in range(5):
            for box in message_boxes(self.title):
                click(*box.buttons[button].center())
            if not stays(lambda: message_boxes(self.title), 3):
                return
        raise AssertionError(f"the message box stays: {self.text}")


def message_boxes(title=PROGRAM_NAME):
    return [MessageBox(window) for window in find_windows(DIALOG, title)]


def wait_for_message_box(title=PROGRAM_NAME):
    def find():
        found = [MessageBox(window) for window in settled(lambda: find_windows(DIALOG, title)) or []]
        return found[0] if found and found[0].buttons else None
    return wait_until(find, "a message box")
