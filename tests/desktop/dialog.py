"""Dialogs and message boxes as a user operates them, with the mouse and the keyboard."""

import re
import subprocess

from harness import click, find_windows, settled, stays, wait_until
from inside import probe

PROGRAM_NAME = "Skyvane Alerts"
DIALOG = "#32770"


def type_text(text):
    subprocess.run(["xdotool", "type", "--delay", "15", text], check=True)


def press(key):
    subprocess.run(["xdotool", "key", key], check=True)


class Dialog:
    """A dialog of the program, found by its title."""

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
        """Clicks a row, counted from 0, which must be visible without scrolling."""
        place = self.control(class_name="SysListView32")
        click(place.left + 60, place.top + 26 + 17 * row, times=times)

    def rows(self):
        """Returns (icon, text, ...) for each row of the list."""
        return [tuple(fields[1:]) for fields in probe("rows", self.title)]

    def selected(self):
        return [n for n, fields in enumerate(probe("rows", self.title)) if fields[0]]

    def take_keyboard(self):
        """Wine and the window manager of the virtual screen do not always agree on the keyboard focus."""
        def has_focus():
            focus = subprocess.run(["xdotool", "getwindowfocus", "getwindowname"], stdout=subprocess.PIPE,
                                   stderr=subprocess.DEVNULL).stdout.decode().strip()
            if focus != self.title:
                subprocess.run(["xdotool", "search", "--name", f"^{re.escape(self.title)}$", "windowfocus"],
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            return focus == self.title
        wait_until(has_focus, f"{self.title} has the keyboard focus")

    def press(self, *keys):
        self.take_keyboard()
        for key in keys:
            press(key)

    def close_by_box(self):
        self.press("alt+F4")  # the window manager closes the window as its close box does


class MessageBox:
    def __init__(self, window):
        self.title = window.text
        statics = [child.text for child in window.children if child.class_name == "Static"]
        self.text = max(statics, key=len, default="")
        self.buttons = {child.text.replace("&", ""): child for child in window.children
                        if child.class_name == "Button"}

    def answer(self, button):
        """Clicks the button, and again if the box stays open: on a busy machine the window manager may still
        move a new box."""
        for _ in range(5):
            for box in message_boxes(self.title):
                click(*box.buttons[button].center())
            if not stays(lambda: message_boxes(self.title), 3):
                return
        raise AssertionError(f"the message box stays open: {self.text}")


def message_boxes(title=PROGRAM_NAME):
    return [MessageBox(window) for window in find_windows(DIALOG, title)]


def wait_for_message_box(title=PROGRAM_NAME):
    def find():
        found = [MessageBox(window) for window in settled(lambda: find_windows(DIALOG, title)) or []]
        return found[0] if found and found[0].buttons else None
    return wait_until(find, "a message box")
