"""Every control of the Options dialog: changed, stored, and shown again by the next start."""

import struct
import subprocess

import pytest

import stores
from dialog import press, wait_for_message_box
from harness import pixels, station_line, user_name, wait_until
from options_dialog import Options, answer_by_text, answer_yes
from tray_menu import choose

# By page, in the order of the tabs: control, key, and the values that it is set to in two rounds. The first
# is not what it shows with nothing stored.
PAGES = {
    "General": [
        ("Check4", "RetrieveAlertsOnStartup", True, False),
        ("Check5", "Pause30SecondsOnStartup", True, False),
        ("Check3", "StartWithWindows", True, False),
        ("Check28", "StoreFilesInProgramFolder", True, False),
        ("Combo2", "AutoUpdateInterval", "Every 5 hours", "Never"),
    ],
    "Stations": [("Combo1", None, ["Home", "Oslo (Port)"], [])],
    "AlertFilters": [
        ("Option6", "ShowFilteredWords", True, False),
        ("List2", "AlertFilters", ["orage été", "hail"], ["fog"]),
    ],
    "TrayIcon": [
        ("Image4", "Icon", "own.ico", "default"),
        ("Image8", "Icon2", "own.ico", "default"),
        ("SingleClickCombo", "SingleClickAction", "Open Skyvane Alerts Options", "No Action"),
        ("DoubleClickCombo", "DoubleClickAction", "Visit https://www.quillmark.example",
         "View National Severe Weather Alerts"),
    ],
    "TrayAlerts": [
        ("Check1", "DisplayTrayAlert", False, True),
        ("Combo11", "TrayAlertSound", "Rising Tones.wav", "(None)"),
    ],
    "Internet": [
        ("Check17", "OnlyDownloadWhenConnected", True, False),
        ("Text1", "ProxyUsername", "anna", "otto"),
        ("Text2", "ProxyPassword", "Wind", ""),
    ],
}
STATIONS = [("Lawrence, KS (Downtown)", "66044"), ("Paris (Orly)", "064321"), ("Oslo (Port)", "07")]
SCRAMBLED = {"anna": "bpqe", "otto": "pvws", "Wind": "Xkqh"}
ICON_BUTTONS = {"Image4": ("Command3", "Command4"), "Image8": ("Command12", "Command11")}


def set_control(options, name, value):
    if name == "Combo1":
        change_stations(options, value)
    elif name == "List2":
        change_words(options, value)
    elif name in ICON_BUTTONS:
        select, reset = ICON_BUTTONS[name]
        options.push(reset if value == "default" else select)
        if value != "default":
            answer_by_text("Select Icon", value, "Open")
    elif name == "Option6" and not value:
        options.push("OptionIgnore")
    elif isinstance(value, bool):
        options.push(name)
    elif options.named(name).class_name == "ComboBox":
        options.choose(name, value)
    else:
        options.type(name, value)


def change_words(options, words):
    """All are selected and removed, then each is added, by the button or by Enter."""
    if options.named("List2").text:
        options.select_rows("List2", len(shown(options, "List2")))
        options.push("Command10")
        answer_yes()
    for word in words:
        options.type("Text3", f" {word}")
        if word == words[0]:
            options.push("Command9")
        else:
            press("Return")
        wait_until(lambda: not options.look().named("Text3").text, "the word is added")


def change_stations(options, names):
    """Of three stations the first is renamed and the second removed; or all are removed."""
    if names:
        options.push("Command23")
        answer_by_text("", names[0], "OK")
        options.choose("Combo1", STATIONS[1][0])
    options.push("Command7" if names else "Command5")
    answer_yes()


def shown(options, name):
    if name == "Combo1":
        return options.entries(name)
    control = options.named(name)
    if name == "List2":
        return [entry[1:-1] for entry in control.text.split("\n")]
    if name in ICON_BUTTONS:
        return "own.ico" if is_own_icon(control) else "default"
    return bool(control.ticked) if control.class_name == "Button" else control.text


def stored(program, value):
    if isinstance(value, list):
        return "|||||".join(value)
    if value == "own.ico":
        return stores.windows_path(program.folder / value)
    return SCRAMBLED.get(value, str(value))


def make_own_icon(program):
    """A magenta square of 32 x 32 pixels."""
    image = struct.pack("<IiiHHIIiiII", 40, 32, 64, 1, 32, *[0] * 6) + b"\xff\x00\xff\xff" * 1024 + bytes(128)
    head = struct.pack("<3H4B2H2I", 0, 1, 1, 32, 32, 0, 0, 1, 32, len(image), 22)
    (program.folder / "own.ico").write_bytes(head + image)


def is_own_icon(place):
    return pixels(*place.center(), 1, 1) == [(255, 0, 255)]


def take_restart_message(folder):
    box = wait_for_message_box("Skyvane Live")  # it names the sibling product, on purpose
    assert f"begin storing your Skyvane Live user files in {folder}." in box.text
    box.answer("OK")


@pytest.fixture
def french_keyboard():
    """A keyboard that has "é" on a key of its own; a program takes the keyboard that it starts with."""
    subprocess.run(["setxkbmap", "fr"], check=True)
    yield
    subprocess.run(["setxkbmap", "us"], check=True)


@pytest.mark.parametrize("registry", [False, True], ids=["ini", "registry"])
def test_every_control(make_program, feed, app_data_folder, french_keyboard, run_value, registry):
    program = make_program(registry)
    lines = [station_line(*station) for station in STATIONS]
    app_data_folder.mkdir()
    (app_data_folder / "CityCode.cmb").write_bytes(b"".join(line + b"\r\n" for line in lines))
    program.store.write({"Hosts": {"Feed": feed.address}, "Misc": {"Runs": "2"}})
    make_own_icon(program)
    command = stores.windows_path(program.folder / "SVAlerts.exe")
    sound = stores.windows_path(program.folder / "Sounds" / "Rising Tones.wav")
    user_folder = program.folder / "Users" / (user_name() if registry else "Default")
    # What each round says of the store location, the station file with its lines that it leaves, and how
    # Windows then starts the program.
    rounds = [("the Skyvane Live program folder", user_folder,
               [lines[0].replace(STATIONS[0][0].encode(), b"Home"), lines[2]], command),
              ("your Windows user profile", app_data_folder, [], None)]
    expected = {}

    program.start(WINEDEBUG="+winmm")
    for turn, (location, data_folder, kept, started_by) in enumerate(rounds):
        choose(program, "Options")
        options = Options()
        for page, controls in PAGES.items():
            options.turn_to(page)
            expected["lastoption"] = page
            if turn == 0 and page == "General":  # changed and changed back it needs no restart
                options.push("Check28")
                options.push("Check28")
                options.apply()
            for name, key, *values in controls:
                set_control(options, name, values[turn])
                if key:
                    expected[key.lower()] = stored(program, values[turn])
            if page == "TrayAlerts":
                options.push("cmdTest")
                wait_until(lambda: program.sounds_played() == [sound], "the sound")
            if turn == 0:  # page by page; the second time all at once
                options.apply(lambda: page == "General" and take_restart_message(location))
                assert program.store.sections()["Options"] == expected
        options.click("OK")
        if turn == 1:
            take_restart_message(location)
        wait_until(lambda: is_own_icon(program.icon()) == (turn == 0), "the icon's picture, at once")
        if turn == 0:  # the new click action, too
            program.click_icon()
            Options().close("Cancel")
        choose(program, "Exit")
        program.wait_for_end()
        assert program.store.sections()["Options"] == expected
        assert (data_folder / "CityCode.cmb").read_bytes() == b"".join(line + b"\r\n" for line in kept)
        assert run_value() == started_by
        assert program.sounds_played() == [sound]

        program.start(WINEDEBUG="+winmm")
        wait_until(lambda: is_own_icon(program.icon()) == (turn == 0), "the icon's picture")
        choose(program, "Options")
        options = Options()
        assert options.page() == "Internet"
        for page, controls in PAGES.items():
            options.turn_to(page)
            for name, _, *values in controls:
                wait_until(lambda: shown(options, name) == values[turn], f"{name} shows {values[turn]}", 5)
        assert not options.control("Apply").enabled
        options.close("Cancel")


def test_only_an_icon_replaces_an_icon(make_program):
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
