"""Every control of the Options dialog is operated, stored, and shown again after a restart."""

import struct
import subprocess

import pytest

import stores
from dialog import press, wait_for_message_box
from harness import pixels, station_line, wait_until
from options_dialog import Options, answer_by_text, answer_yes
from tray_menu import choose

# By page, in the order of the tabs: control, key, and the value that it is set to, which is not its default.
PAGES = {
    "General": [
        ("Check4", "RetrieveAlertsOnStartup", True),
        ("Check5", "Pause30SecondsOnStartup", True),
        ("Check3", "StartWithWindows", True),
        ("Check28", "StoreFilesInProgramFolder", True),
        ("Combo2", "AutoUpdateInterval", "Every 5 hours"),
    ],
    "Stations": [("Combo1", None, ["Home", "Oslo (Port)"])],
    "AlertFilters": [("Option6", "ShowFilteredWords", True), ("List2", "AlertFilters", ["orage été", "hail"])],
    "TrayIcon": [
        ("Image4", "Icon", "own.ico"),
        ("Image8", "Icon2", "own.ico"),
        ("SingleClickCombo", "SingleClickAction", "Open Skyvane Alerts Options"),
        ("DoubleClickCombo", "DoubleClickAction", "Visit https://www.quillmark.example"),
    ],
    "TrayAlerts": [("Check1", "DisplayTrayAlert", False), ("Combo11", "TrayAlertSound", "Rising Tones.wav")],
    "Internet": [
        ("Check17", "OnlyDownloadWhenConnected", True),
        ("Text1", "ProxyUsername", "anna"),
        ("Text2", "ProxyPassword", "Wind"),
    ],
}
STATIONS = [("Lawrence, KS (Downtown)", "66044"), ("Paris (Orly)", "064321"), ("Oslo (Port)", "07")]
SCRAMBLED = {"anna": "bpqe", "Wind": "Xkqh"}
SELECT_BUTTONS = {"Image4": "Command3", "Image8": "Command12"}


def set_control(options, name, value):
    if name == "Combo1":
        change_stations(options, value)
    elif name == "List2":
        add_words(options, value)
    elif name in SELECT_BUTTONS:
        options.push(SELECT_BUTTONS[name])
        answer_by_text("Select Icon", value, "Open")
    elif isinstance(value, bool):
        options.push(name)
    elif options.named(name).class_name == "ComboBox":
        options.choose(name, value)
    else:
        options.type(name, value)


def add_words(options, words):
    """Adds the first word by the button, the others by Enter."""
    for word in words:
        options.type("Text3", f" {word}")
        if word == words[0]:
            options.push("Command9")
        else:
            press("Return")
        wait_until(lambda: not options.look().named("Text3").text, "the word is added")


def change_stations(options, names):
    """Renames the first station and removes the second."""
    options.push("Command23")
    answer_by_text("", names[0], "OK")
    options.choose("Combo1", STATIONS[1][0])
    options.push("Command7")
    answer_yes()


def shown(options, name):
    if name == "Combo1":
        return options.entries(name)
    control = options.named(name)
    if name == "List2":
        return [entry[1:-1] for entry in control.text.split("\n")]
    if name in SELECT_BUTTONS:
        return "own.ico" if is_own_icon(control) else "default"
    return bool(control.ticked) if control.class_name == "Button" else control.text


def stored(program, value):
    if isinstance(value, list):
        return "|||||".join(value)
    if value == "own.ico":
        return stores.windows_path(program.folder / value)
    return SCRAMBLED.get(value, str(value))


def make_own_icon(program):
    """Writes an icon that is a magenta square of 32 x 32 pixels."""
    image = struct.pack("<IiiHHIIiiII", 40, 32, 64, 1, 32, *[0] * 6) + b"\xff\x00\xff\xff" * 1024 + bytes(128)
    head = struct.pack("<3H4B2H2I", 0, 1, 1, 32, 32, 0, 0, 1, 32, len(image), 22)
    (program.folder / "own.ico").write_bytes(head + image)


def is_own_icon(place):
    return pixels(*place.center(), 1, 1) == [(255, 0, 255)]


def take_restart_message(folder):
    box = wait_for_message_box("Skyvane Live")  # the message names the sibling product, on purpose
    assert f"begin storing your Skyvane Live user files in {folder}." in box.text
    box.answer("OK")


def test_every_control(make_program, feed, app_data_folder, set_keyboard, run_value):
    set_keyboard("fr")
    program = make_program()
    lines = [station_line(*station) for station in STATIONS]
    app_data_folder.mkdir()
    (app_data_folder / "CityCode.cmb").write_bytes(b"".join(line + b"\r\n" for line in lines))
    program.store.write({"Hosts": {"Feed": feed.address}, "Misc": {"Runs": "2"}})
    make_own_icon(program)
    sound = stores.windows_path(program.folder / "Sounds" / "Rising Tones.wav")
    expected = {}

    program.start(WINEDEBUG="+winmm")
    choose(program, "Options")
    options = Options()
    for page, controls in PAGES.items():
        options.turn_to(page)
        expected["lastoption"] = page
        if page == "General":  # changed and changed back it needs no restart
            options.push("Check28")
            options.push("Check28")
            options.apply()
        for name, key, value in controls:
            set_control(options, name, value)
            if key:
                expected[key.lower()] = stored(program, value)
        if page == "TrayAlerts":
            options.push("cmdTest")
            wait_until(lambda: program.sounds_played() == [sound], "the sound")
        options.apply(lambda: page == "General" and take_restart_message("the Skyvane Live program folder"))
        assert program.store.sections()["Options"] == expected
    options.close("OK")
    wait_until(lambda: is_own_icon(program.icon()), "the icon's picture, at once")
    program.click_icon()  # has its new action at once
    Options().close("Cancel")
    choose(program, "Exit")
    program.wait_for_end()
    kept = lines[0].replace(STATIONS[0][0].encode(), b"Home") + b"\r\n" + lines[2] + b"\r\n"
    assert (program.folder / "Users" / "Default" / "CityCode.cmb").read_bytes() == kept
    assert run_value() == stores.windows_path(program.folder / "SVAlerts.exe")

    program.start()
    wait_until(lambda: is_own_icon(program.icon()), "the icon's picture")
    choose(program, "Options")
    options = Options()
    assert options.page() == "Internet"
    for page, controls in PAGES.items():
        options.turn_to(page)
        for name, _, value in controls:
            wait_until(lambda: shown(options, name) == value, f"{name} shows {value}", 5)
    assert not options.control("Apply").enabled
    options.turn_to("TrayIcon")
    options.push("Command4")
    wait_until(lambda: shown(options, "Image4") == "default", "the built-in picture")
    options.turn_to("General")
    for name in ("Check3", "Check28"):
        options.push(name)
    options.click("OK")
    take_restart_message("your Windows user profile")
    wait_until(lambda: not is_own_icon(program.icon()), "the built-in icon, at once")
    assert program.store.read("Options", "Icon") == "default" and run_value() is None


def test_only_a_valid_icon_file_replaces_an_icon(make_program):
    program = make_program()
    program.store.write({"Misc": {"Runs": "2"}, "Options": {"LastOption": "TrayIcon"}})
    make_own_icon(program)
    (program.folder / "text.ico").write_text("This is no icon.")
    program.start()
    choose(program, "Options")
    options = Options()
    for file, button, picture in [
        ("text.ico", "Open", "default"),
        ("own.ico", "Cancel", "default"),
        ("own.ico", "Open", "own.ico"),
        ("text.ico", "Open", "own.ico"),
        ("text.ico", "Cancel", "own.ico"),
    ]:
        options.push("Command3")
        answer_by_text("Select Icon", file, button)
        wait_until(lambda: shown(options, "Image4") == picture, f"the picture after {file}, {button}")
        assert options.control("Apply").enabled == (picture == "own.ico")
    assert program.store.read("Options", "Icon") is None and not is_own_icon(program.icon())
    options.apply()
    assert program.store.read("Options", "Icon") == stored(program, "own.ico")
    assert program.store.read("Options", "Icon2") is None
    wait_until(lambda: is_own_icon(program.icon()), "the icon's picture")
