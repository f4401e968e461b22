"""The installer: the program installed, used, updated and removed."""

import pathlib
import shutil
import subprocess

import pytest
import stores
from feed import FLOOD, LAWRENCE, TORNADO
from harness import click, processes, station_line, wait_until
from packages import ROOT, answer_box, contents, controls, only, press, product
from prefix import snapshot

ENTRY = r"\Software\Microsoft\Windows\CurrentVersion\Uninstall\SkyvaneAlerts"
SETTINGS_PARENT = stores.REGISTRY_KEY.rsplit("\\", 1)[0]
# Other packages that ./package has built, for example from earlier commits.
EARLIER = sorted((ROOT / "build" / "package").glob("*-setup.exe"))


@pytest.fixture
def run_setup(package, tmp_path):
    """run_setup(switches...) starts the installer, or that of another package, with `user` apparently as that user.
    What a test has installed is removed afterwards."""
    newest = shutil.copy(only(package, "-setup.exe"), tmp_path)

    def run(*switches, setup=newest, user=None):
        # Wine itself sets the variable for the programs that it starts.
        start = ["cmd", "/c", "set", f"USERNAME={user}&&start", "/wait", stores.windows_path(setup)] if user else [setup]
        # Split at spaces, so that a folder with spaces after /D= is not quoted.
        return subprocess.Popen(["wine", *start, *" ".join(switches).split(" ")], cwd=tmp_path,
                                stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)

    yield run
    for root in ("HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE"):
        if folder := entry(root).get("InstallLocation"):
            uninstall(folder)


def install(run_setup, *switches, **start):
    assert run_setup("/S", *switches, **start).wait(60) == 0


def entry(root="HKEY_CURRENT_USER"):
    """Returns the values of the program's entry in the list of installed programs."""
    return stores.registry_values(root + ENTRY)


def uninstall(folder, *switches, answer=lambda: None):
    """Removes the copy in the folder; `answer` operates the uninstaller's dialogs, if it shows any."""
    subprocess.run(["wine", folder + "\\Uninstall.exe", *(switches or ("/S",))], check=True,
                   stdout=subprocess.DEVNULL)
    answer()
    # The uninstaller continues in a copy of itself in the temporary folder.
    place = pathlib.Path(stores.unix_path(folder))
    wait_until(lambda: not (place / "Uninstall.exe").exists(), "the program is removed", 30)
    wait_until(lambda: not processes(lambda process: b"\\~nsu" in (process / "cmdline").read_bytes()),
               "the uninstaller exits", 30)


def finish_setup(setup):
    """Installs without starting the program. Returns the texts of the installer's last page."""
    press("Install")
    press("Start Skyvane Alerts")  # clears the check box
    texts = [child.text for child in controls()]
    press("Finish")
    assert setup.wait(30) == 0
    return texts


def wait_for_run(program, number):
    wait_until(lambda: program.store.read("Misc", "Runs") == f"{number}", f"the start of run {number} is complete")


def test_installed_used_updated_removed(run_setup, make_program, feed, app_data_folder, run_value):
    folder = "C:\\Pogoda Łódź\\天気 alerts"
    feed.serve("66044", TORNADO)
    stores.delete_registry(SETTINGS_PARENT)
    before = snapshot()
    install(run_setup, "/CurrentUser", f"/D={folder}")
    place = pathlib.Path(stores.unix_path(folder))
    assert contents(place).items() >= product().items()
    assert entry()["DisplayVersion"] == "1.0.2" and entry()["Publisher"] == "Quillmark Software"
    assert run_value() is None

    program = make_program(registry=True, folder=place)
    app_data_folder.mkdir()
    station_file = app_data_folder / "CityCode.cmb"
    station_file.write_bytes(station_line(*LAWRENCE) + b"\r\n")
    program.store.write({"Hosts": {"Feed": feed.address}, "Options": {"RetrieveAlertsOnStartup": "True"},
                         "Misc": {"Runs": "7"}})
    program.start()
    program.wait_for_picture("new alerts")
    assert [alert[0] for alert in program.store.alerts()] == ["101"]
    settings, stations = program.store.sections(), station_file.read_bytes()

    # Files of an older version, in the program folder and in the user's copies.
    user_sound = app_data_folder / "Sounds" / "Bell.wav"
    for file in (place / "Help.html", place / "Sounds" / "Bell.wav", user_sound):
        file.write_text("older")
    feed.serve("66044", TORNADO, FLOOD)
    install(run_setup)
    assert program.wait_for_end() == 0
    assert contents(place).items() >= product().items()
    wait_for_run(program, 9)  # started by the installer
    wait_until(lambda: [alert[0] for alert in program.store.alerts()] == ["101", "102"], "the second alert")
    assert user_sound.read_bytes() == product()["Sounds/Bell.wav"]
    assert station_file.read_bytes() == stations
    kept = program.store.sections()
    presets = {"displaytrayalert": "True", "flashtrayicon": "True"}  # the RegistryStore has deleted them
    assert kept["Options"] == settings["Options"] | presets and kept["Hosts"] == settings["Hosts"]

    (place / "che.sk").write_text("left by a check that failed")
    (app_data_folder / "HTML" / "CitySearch.html").write_text("a page created by a search")
    own_sound = app_data_folder / "Sounds" / "My own.wav"
    own_sound.write_text("the user's")
    uninstall(folder)
    wait_until(lambda: not program.icon(), "the program exits")
    left = snapshot() - before
    assert {item for item in left if not (isinstance(item, tuple) and item[0].startswith(SETTINGS_PARENT))} == {
        str(station_file.resolve()), str(own_sound.resolve())}
    assert program.store.sections()["Options"] == kept["Options"]
    assert before - snapshot() == set() and not place.exists()


def test_removed_with_all_settings_on_request(run_setup, make_program, app_data_folder, run_value):
    stores.delete_registry(SETTINGS_PARENT)
    before = snapshot()
    install(run_setup, "/CurrentUser", "/StartWithWindows")
    folder = entry()["InstallLocation"]
    place = pathlib.Path(stores.unix_path(folder)).resolve()
    assert run_value() == f'"{folder}\\SVAlerts.exe"'
    # Another user keeps settings and stations in the program folder.
    anna = place / "Users" / "anna"
    for data_folder in (anna, app_data_folder):
        for copied in ("HTML", "Sounds"):
            shutil.copytree(place / copied, data_folder / copied)
        (data_folder / "HTML" / "CitySearch.html").write_text("a page created by a search")
        (data_folder / "Alerts.html").write_text("a page created by a choice in the menu")
    (anna / "CityCode.cmb").write_text("station")
    (place / "anna.ini").write_text("[Misc]\r\nUSEINI=True\r\n", newline="")
    own_files = [place / "other.ini", anna / "Sounds" / "My own.wav", app_data_folder / "HTML" / "My own.html"]
    for file in own_files:
        file.write_text("[Misc]\r\nOTHER=program\r\n", newline="")
    program = make_program(registry=True, folder=place)
    program.store.write({"Misc": {"Runs": "7"}, "Options": {"StartWithWindows": "True"}})
    program.start()
    wait_for_run(program, 8)

    def answer():
        press("Uninstall")
        answer_box("is running", "OK")
        answer_box("settings", "Yes")
        press("Close")

    uninstall(folder, "/CurrentUser", answer=answer)
    assert program.wait_for_end() == 0
    left = snapshot()
    shutil.rmtree(place)
    assert left - before == {str(file.resolve()) for file in own_files} and before - left == set()


def test_chosen_folder_with_other_files(run_setup, tmp_path):
    folder = tmp_path / "Tools"
    folder.mkdir()
    (folder / "LICENSE.txt").write_text("of another program")
    setup = run_setup("/CurrentUser", f"/D={stores.windows_path(folder)}")
    press("Next >")
    finish_setup(setup)
    assert entry()["InstallLocation"] == stores.windows_path(folder / "Skyvane Alerts")
    assert {name: data for name, data in contents(folder).items() if "/" not in name} == {
        "LICENSE.txt": b"of another program"}


def plugin_folders(temporary_folder):
    roots = temporary_folder, pathlib.Path(stores.unix_path("C:\\Program Files"))
    return {plugin.parent for root in roots for plugin in root.glob("ns*.tmp/System.dll")}


def test_update_asks_only_about_the_start_with_windows(run_setup, run_value, user_folders):
    stores.RegistryStore().write({"Options": {"FlashTrayIcon": "False"}})
    install(run_setup, "/CurrentUser", "/StartWithWindows")
    options = stores.registry_values(stores.REGISTRY_KEY + "\\Options")
    assert options == {"DisplayTrayAlert": "True", "FlashTrayIcon": "False", "StartWithWindows": "True"}
    install(run_setup)
    assert run_value()  # a silent update changes nothing
    left = plugin_folders(user_folders[0])  # by installers that were killed
    setup = run_setup("/CurrentUser")
    [tree] = wait_until(lambda: [child for child in controls() if child.class_name == "SysTreeView32"], "the options")
    click(tree.left + 9, tree.top + 24)  # the box in the second row
    # Other users cannot replace the plug-ins of an administrator's installer.
    [plugins] = plugin_folders(user_folders[0]) - left
    assert plugins.parent.name == "Program Files"
    texts = finish_setup(setup)
    assert any("Your settings and stations were kept." in text for text in texts)
    assert not plugins.exists()
    assert run_value() is None


def test_only_the_old_copy_in_another_folder_is_removed(run_setup, run_value):
    old, current = "C:\\Old copy", "C:\\In use"
    install(run_setup, "/CurrentUser", f"/D={old}")
    before = snapshot()
    install(run_setup, "/CurrentUser", "/StartWithWindows", f"/D={current}")
    uninstall(old)
    assert not pathlib.Path(stores.unix_path(old)).exists()
    assert entry()["InstallLocation"] == current and run_value() == f'"{current}\\SVAlerts.exe"'
    assert [path for path in before & snapshot() if str(path).endswith("/Skyvane Alerts.lnk")]


def test_for_everyone(run_setup):
    stores.delete_registry(SETTINGS_PARENT)
    before = snapshot()
    install(run_setup, "/AllUsers")
    folder = entry("HKEY_LOCAL_MACHINE")["InstallLocation"]
    assert folder == "C:\\Program Files\\Skyvane Alerts"
    [shortcut] = [path for path in snapshot() - before if str(path).endswith(".lnk")]
    assert "/ProgramData/" in shortcut
    install(run_setup)  # updates the existing copy
    assert entry() == {}
    uninstall(folder)
    assert all(item[0].startswith(SETTINGS_PARENT) for item in snapshot() ^ before)


def test_for_everyone_by_another_user(run_setup, run_value):
    """An administrator who is not the user cannot change the user's settings."""
    stores.delete_registry(SETTINGS_PARENT)
    install(run_setup, "/AllUsers", "/StartWithWindows", user="administrator")
    assert entry("HKEY_LOCAL_MACHINE") and run_value() is None
    assert stores.registry_values(stores.REGISTRY_KEY + "\\Options") == {}
    setup = run_setup("/AllUsers", user="administrator")
    [tree] = wait_until(lambda: [child for child in controls() if child.class_name == "SysTreeView32"], "the options")
    click(tree.left + 9, tree.top + 24)  # there is no box in the second row
    finish_setup(setup)
    assert run_value() is None


@pytest.mark.parametrize("earlier", [None, *EARLIER], ids=lambda path: path.name if path else "this one")
def test_update_keeps_settings_stations_and_sounds(earlier, run_setup, app_data_folder):
    folder = "C:\\Earlier"
    install(run_setup, "/CurrentUser", f"/D={folder}", **({"setup": earlier} if earlier else {}))
    place = pathlib.Path(stores.unix_path(folder))
    own = [place / "Sounds" / "My own.wav", place / "anna.ini", place / "Users" / "anna" / "CityCode.cmb",
           app_data_folder / "Sounds" / "My own.wav", app_data_folder / "CityCode.cmb"]
    for file in own:
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(f"[Misc]\r\nUSEINI={file}\r\n", newline="")
    stores.RegistryStore().write({"Options": {"TrayAlertSound": "My own.wav", "DisplayTrayAlert": "False"}})
    install(run_setup)
    assert contents(place).items() >= product().items()
    assert all(file.read_text() == f"[Misc]\nUSEINI={file}\n" for file in own)
    options = stores.registry_values(stores.REGISTRY_KEY + "\\Options")
    assert options.items() >= {"TrayAlertSound": "My own.wav", "DisplayTrayAlert": "False"}.items()
    shutil.rmtree(place / "Users")


def test_files_in_use_stop_the_update(run_setup, feed, tmp_path):
    install(run_setup, "/CurrentUser")
    place = pathlib.Path(stores.unix_path(entry()["InstallLocation"]))
    (place / "Help.html").write_text("older")
    feed.serve("66044", TORNADO)
    gate = feed.hold("66044")
    # Like a copy in another session: neither window nor mutex is visible, but a file is in use.
    fields = [feed.address + "?ZipCode=66044", *(stores.windows_path(tmp_path / name) for name in ("data", "status"))]
    downloader = subprocess.Popen(["wine", place / "dl.exe", "|".join(fields)], cwd=tmp_path)
    wait_until(feed.paths, "the request")
    assert run_setup("/S").wait(60) == 32
    assert (place / "Help.html").read_text() == "older"
    gate.set()
    assert downloader.wait(15) == 0
    install(run_setup)
    assert (place / "Help.html").read_bytes() == product()["Help.html"]
