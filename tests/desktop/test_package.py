"""What a person downloads: installed, used, renewed and removed; carried on a stick; made twice."""

import os
import pathlib
import shutil
import subprocess
import zipfile

import pytest

import stores
from dialog import PROGRAM_NAME, message_boxes
from feed import FLOOD, LAWRENCE, TORNADO
from harness import click, processes, settled, station_line, stays, visible_windows, wait_until
from prefix import snapshot

ROOT = pathlib.Path(__file__).parents[2]
ENTRY = r"\Software\Microsoft\Windows\CurrentVersion\Uninstall\SkyvaneAlerts"
SETTINGS_PARENT = stores.REGISTRY_KEY.rsplit("\\", 1)[0]
WM_CLOSE = "0x10"
LIMIT = 1_500_000  # bytes, the gazetteer of live alerts apart
GAZETTEER = "places.dat"


def make_package(product, out, **environment):
    subprocess.run([ROOT / "packaging" / "make", product, out], check=True, stdout=subprocess.DEVNULL,
                   env={**os.environ, **environment})
    return {file.name: file for file in out.iterdir()}


def only(files, ending):
    found = [file for name, file in files.items() if name.endswith(ending)]
    assert len(found) == 1
    return found[0]


@pytest.fixture(scope="module")
def package(tmp_path_factory):
    return make_package(os.environ["PRODUCT_DIR"], tmp_path_factory.mktemp("package"))


@pytest.fixture
def run_setup(package, tmp_path):
    """run_setup(switches...): starts the installer; whatever a test has installed is removed after it."""
    setup = shutil.copy(only(package, "-setup.exe"), tmp_path)

    def run(*switches, **options):
        # The switches' blanks part arguments here, so that /D= stands without quotes.
        return subprocess.Popen(["wine", setup, *" ".join(switches).split(" ")], cwd=tmp_path,
                                stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, **options)

    yield run
    for root in ("HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE"):
        if folder := entry(root).get("InstallLocation"):
            uninstall(folder)


def install(run_setup, *switches):
    assert run_setup("/S", *switches).wait(60) == 0


def entry(root="HKEY_CURRENT_USER"):
    """The values of the program's entry in the list of installed programs."""
    return stores.registry_values(root + ENTRY)


def uninstall(folder, *switches):
    """Silently, unless a person is to answer; the uninstaller goes on from a copy of itself."""
    subprocess.run(["wine", folder + "\\Uninstall.exe", *(switches or ("/S",))], check=True,
                   stdout=subprocess.DEVNULL)
    if not switches:
        wait_for_removal(folder)


def wait_for_removal(folder):
    place = pathlib.Path(stores.unix_path(folder))
    wait_until(lambda: not (place / "Uninstall.exe").exists(), "the program is removed", 30)
    # The copy of the uninstaller lies in the temporary folder as long as it runs.
    wait_until(lambda: not processes(lambda entry: b"\\~nsu" in (entry / "cmdline").read_bytes()),
               "the uninstaller ends", 30)


def press(caption):
    """Clicks a button of the installer's, when it can be clicked."""

    def find():
        return [child for window in visible_windows() for child in window.children
                if child.class_name == "Button" and child.text.replace("&", "") == caption and child.enabled]

    click(*wait_until(lambda: settled(find), f"the button {caption}")[0].center())


def contents(folder):
    return {str(file.relative_to(folder)): file.read_bytes() for file in folder.rglob("*") if file.is_file()}


def product():
    return contents(pathlib.Path(os.environ["PRODUCT_DIR"]))


def settle(program, feed, data_folder):
    """Makes the installed program one that has been used before and watches a station."""
    data_folder.mkdir(exist_ok=True)
    (data_folder / "CityCode.cmb").write_bytes(station_line(*LAWRENCE) + b"\r\n")
    program.store.write({"Hosts": {"Feed": feed.address},
                         "Options": {"RetrieveAlertsOnStartup": "True", "SingleClickAction": "No Action"},
                         "Misc": {"Runs": "7"}})


def wait_for_run(program, number):
    wait_until(lambda: program.store.read("Misc", "Runs") == f"{number}", f"the complete start of run {number}")


def close(program):
    program.post(WM_CLOSE)
    wait_until(lambda: not program.icon(), "the program ends")


def test_same_bytes_whatever_the_circumstances(package, tmp_path):
    product_copy = tmp_path / "another place"
    shutil.copytree(os.environ["PRODUCT_DIR"], product_copy, copy_function=shutil.copy)
    for number, path in enumerate(sorted(product_copy.rglob("*"), reverse=True)):
        os.utime(path, (1_000_000_000 + 86_400 * number,) * 2)
        path.chmod(0o700)
    old_mask = os.umask(0o077)
    try:
        again = make_package(product_copy, tmp_path / "out", TZ="Asia/Kathmandu", LC_ALL="C.UTF-8")
    finally:
        os.umask(old_mask)
    assert sorted(again) == sorted(package) and len(again) == 3
    for name, file in package.items():
        assert again[name].read_bytes() == file.read_bytes(), name
    subprocess.run(["sha256sum", "--check", "--quiet", "SHA256SUMS"], check=True,
                   cwd=package["SHA256SUMS"].parent)
    later = make_package(product_copy, tmp_path / "later", SOURCE_DATE_EPOCH="1700000000")
    assert only(later, ".exe").read_bytes() != only(package, ".exe").read_bytes()


def test_small_enough(package):
    # Packed, the gazetteer takes no more than it does in the archive.
    with zipfile.ZipFile(only(package, ".zip")) as archive:
        packed = sum(file.compress_size for file in archive.infolist() if file.filename.endswith(GAZETTEER))
    assert only(package, "-setup.exe").stat().st_size - packed < LIMIT


@pytest.mark.parametrize("folder", ["C:\\Pogoda Łódź\\天気 alerts"])
def test_installed_used_renewed_removed(run_setup, make_program, feed, app_data_folder, run_value, folder):
    feed.serve("66044", TORNADO)
    stores.delete_registry(SETTINGS_PARENT)
    before = snapshot()
    install(run_setup, "/CurrentUser", f"/D={folder}")
    place = pathlib.Path(stores.unix_path(folder))
    installed = contents(place)
    assert {name: installed[name] for name in product()} == product()
    assert sum(len(data) for name, data in installed.items() if name != GAZETTEER) < LIMIT
    listed = entry()
    assert listed["DisplayVersion"] == "1.0.2" and listed["Publisher"] == "Quillmark Software"
    kilobytes = int(listed["EstimatedSize"].removeprefix("dword:"), 16)
    assert abs(kilobytes - (sum(map(len, installed.values())) - len(installed["Uninstall.exe"])) / 1024) < 2
    assert run_value() is None

    program = make_program(registry=True, folder=place)
    data_folder = app_data_folder
    settle(program, feed, data_folder)
    program.start()
    program.wait_for_picture("new alerts")
    assert [alert[0] for alert in program.store.alerts()] == ["101"]
    assert program.downloaders() == []
    settings = program.store.sections()
    stations = (data_folder / "CityCode.cmb").read_bytes()

    # An older copy runs, and the user's sounds are of that time.
    for file in (place / "Help.html", place / "Sounds" / "Bell.wav", data_folder / "Sounds" / "Bell.wav"):
        file.write_text("older")
    feed.serve("66044", TORNADO, FLOOD)
    install(run_setup)
    assert program.wait_for_end() == 0
    assert {name: data for name, data in contents(place).items() if name in product()} == product()
    wait_for_run(program, 9)  # by itself
    wait_until(lambda: [alert[0] for alert in program.store.alerts()] == ["101", "102"], "the second alert")
    assert (data_folder / "Sounds" / "Bell.wav").read_bytes() == product()["Sounds/Bell.wav"]
    assert (data_folder / "CityCode.cmb").read_bytes() == stations
    kept = program.store.sections()
    assert kept["Options"] == settings["Options"] and kept["Hosts"] == settings["Hosts"]

    (place / "che.sk").write_text("left by a check that failed")
    (data_folder / "HTML" / "CitySearch.html").write_text("a page that a search has made")
    own_sound = data_folder / "Sounds" / "My own.wav"
    own_sound.write_text("a person's")
    uninstall(folder)
    wait_until(lambda: not program.icon(), "the program has ended")
    left = snapshot() - before
    assert {item for item in left if not (isinstance(item, tuple) and item[0].startswith(SETTINGS_PARENT))} == {
        str((data_folder / "CityCode.cmb").resolve()), str(own_sound.resolve())}
    assert program.store.sections()["Options"] == settings["Options"]
    assert before - snapshot() == set() and not place.exists()


def test_removed_with_all_settings_when_a_person_says_so(run_setup, make_program, app_data_folder, run_value):
    stores.delete_registry(SETTINGS_PARENT)
    before = snapshot()
    install(run_setup, "/CurrentUser", "/StartWithWindows")
    folder = entry()["InstallLocation"]
    place = pathlib.Path(stores.unix_path(folder)).resolve()
    assert run_value() == f'"{folder}\\SVAlerts.exe"'
    # What the users of a program folder that everyone may write to have left in it.
    (place / "anna.ini").write_text("[Misc]\r\nUSEINI=True\r\n", newline="")
    (place / "Users" / "anna").mkdir(parents=True)
    (place / "Users" / "anna" / "CityCode.cmb").write_text("station")
    own_files = [place / "other.ini", place / "Users" / "anna" / "Sounds" / "My own.wav",
                 app_data_folder / "HTML" / "My own.html", app_data_folder / "Help.html"]
    for folder_of_copies in (place / "Users" / "anna", app_data_folder):
        for copied in ("HTML", "Sounds"):
            shutil.copytree(place / copied, folder_of_copies / copied)
        (folder_of_copies / "HTML" / "CitySearch.html").write_text("a page that a search has made")
    for file in own_files[1:]:
        file.write_text("a person's")
    (place / "other.ini").write_text("[Misc]\r\nOTHER=program\r\n", newline="")
    program = make_program(registry=True, folder=place)
    program.store.write({"Misc": {"Runs": "7"}, "Options": {"StartWithWindows": "True"}})
    program.start()
    wait_for_run(program, 8)

    uninstall(folder, "/CurrentUser")
    press("Uninstall")
    assert "is running" in wait_for_box().text
    press("OK")
    assert "settings" in wait_for_box().text
    press("Yes")
    press("Close")
    wait_for_removal(folder)
    assert program.wait_for_end() == 0
    left = snapshot()
    shutil.rmtree(place)  # for the tests to come
    assert left - before == {str(file.resolve()) for file in own_files} and before - left == set()


def wait_for_box():
    """A message box of the installer's, by its icon."""

    def find():
        return [window for window in visible_windows()
                if window.class_name == "#32770" and len(window.children) <= 4
                and any(child.class_name == "Static" and child.text for child in window.children)]

    window = wait_until(find, "a message box")[0]
    window.text = max((child.text for child in window.children if child.class_name == "Static"), key=len)
    return window


def test_a_person_installs_over_a_running_copy(run_setup, make_program, feed, app_data_folder):
    install(run_setup, "/CurrentUser")
    folder = entry()["InstallLocation"]
    program = make_program(registry=True, folder=pathlib.Path(stores.unix_path(folder)))
    settle(program, feed, app_data_folder)
    program.start()
    wait_for_run(program, 8)

    setup = run_setup("/CurrentUser")
    press("Next >")
    press("Install")
    assert "is running" in wait_for_box().text and program.answers()
    press("Cancel")
    assert setup.wait(30) == 1 and program.answers()  # nothing has happened

    setup = run_setup("/CurrentUser")
    press("Next >")
    press("Install")
    wait_for_box()
    press("OK")
    assert program.wait_for_end() == 0
    press("Finish")  # with the box ticked that starts the program
    assert setup.wait(30) == 0
    wait_for_run(program, 9)
    close(program)


def test_a_person_names_a_folder_that_is_not_empty(run_setup, tmp_path):
    folder = tmp_path / "Tools"
    folder.mkdir()
    (folder / "LICENSE.txt").write_text("of another program")
    taken = contents(folder)
    setup = run_setup("/CurrentUser", f"/D={stores.windows_path(folder)}")
    press("Next >")
    press("Install")
    press("Start Skyvane Alerts")  # it shall not
    press("Finish")
    assert setup.wait(30) == 0
    assert entry()["InstallLocation"] == stores.windows_path(folder / "Skyvane Alerts")
    assert {name: data for name, data in contents(folder).items() if "/" not in name} == taken


def test_a_copy_left_in_another_folder_is_removed_alone(run_setup, run_value):
    left, current = "C:\\Left there", "C:\\In use"
    install(run_setup, "/CurrentUser", f"/D={left}")
    before = snapshot()
    install(run_setup, "/CurrentUser", "/StartWithWindows", f"/D={current}")
    uninstall(left)
    assert not pathlib.Path(stores.unix_path(left)).exists()
    assert entry()["InstallLocation"] == current and run_value() == f'"{current}\\SVAlerts.exe"'
    assert [path for path in before & snapshot() if str(path).endswith("/Skyvane Alerts.lnk")]


def test_for_everyone(run_setup):
    stores.delete_registry(SETTINGS_PARENT)
    before = snapshot()
    install(run_setup, "/AllUsers")
    assert entry() == {}
    folder = entry("HKEY_LOCAL_MACHINE")["InstallLocation"]
    assert folder == "C:\\Program Files\\Skyvane Alerts"
    shortcuts = [path for path in snapshot() - before if str(path).endswith(".lnk")]
    assert len(shortcuts) == 1 and "/ProgramData/" in shortcuts[0]
    install(run_setup)  # renews the copy that is there
    assert entry() == {}
    uninstall(folder)
    assert snapshot() == before


def test_gives_up_when_the_files_are_in_use(run_setup, feed, tmp_path):
    install(run_setup, "/CurrentUser")
    place = pathlib.Path(stores.unix_path(entry()["InstallLocation"]))
    (place / "Help.html").write_text("older")
    feed.serve("66044", TORNADO)
    gate = feed.hold("66044")
    # As a copy of another session does: no window and no mutex to see, but a file that is held.
    fields = [feed.address + "?ZipCode=66044", *(stores.windows_path(tmp_path / name) for name in ("data", "status"))]
    downloader = subprocess.Popen(["wine", place / "dl.exe", "|".join(fields)], cwd=tmp_path)
    wait_until(feed.paths, "the request")
    assert run_setup("/S").wait(60) == 32
    assert (place / "Help.html").read_text() == "older"
    gate.set()
    assert downloader.wait(15) == 0
    install(run_setup)
    assert (place / "Help.html").read_bytes() == product()["Help.html"]


@pytest.fixture
def portable(package, tmp_path, make_program):
    """The unpacked archive: its folder, and the program in it."""
    with zipfile.ZipFile(only(package, ".zip")) as archive:
        archive.extractall(tmp_path / "stick")
    [folder] = (tmp_path / "stick").iterdir()
    return make_program(folder=folder)


def start_portable(program):
    [start_file] = program.folder.glob("*.cmd")
    subprocess.run(["wine", "cmd", "/c", stores.windows_path(start_file)], cwd=program.folder, check=True,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    wait_until(program.icon, "the icon")


def test_portable_keeps_to_its_folder(portable, feed, app_data_folder):
    feed.serve("66044", TORNADO)
    portable.write_stations(LAWRENCE)
    portable.store.write({"Hosts": {"Feed": feed.address}, "Options": {"RetrieveAlertsOnStartup": "True"}})
    before = snapshot()
    start_portable(portable)
    portable.wait_for_picture("new alerts")
    assert [alert[0] for alert in portable.store.alerts()] == ["101"]
    close(portable)
    assert snapshot() == before and not app_data_folder.exists()
    assert (portable.folder / "Users" / "Default" / "Sounds" / "Bell.wav").exists()


def test_portable_in_a_folder_that_cannot_be_written(portable, app_data_folder):
    unpacked = contents(portable.folder)
    portable.folder.chmod(0o555)
    for path in portable.folder.rglob("*"):
        path.chmod(0o555)
    try:
        before = snapshot()
        start_portable(portable)
        assert stays(lambda: not message_boxes(), 2) and portable.tooltip() == PROGRAM_NAME
        close(portable)
        # Fails, too, where such a folder can be written after all.
        assert contents(portable.folder) == unpacked and not (portable.folder / "Users").exists()
        assert snapshot() == before and not app_data_folder.exists()
    finally:
        for path in [portable.folder, *portable.folder.rglob("*")]:
            path.chmod(0o755)
