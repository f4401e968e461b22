import os
import pathlib
import shutil
import subprocess

import pytest

import harness
import packages
import stores
from alert_server import AlertServer
from feed import Feed
from inside import probe
from weather_service import WeatherService

RUN_KEY = r"HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Run"


@pytest.fixture(scope="session")
def user_folders():
    """The user's temporary and application data folders in the Wine prefix."""
    return [pathlib.Path(stores.unix_path(path)) for path in probe("folders")[0]]


@pytest.fixture
def temp_folder(user_folders):
    for file in user_folders[0].glob("SV*.tmp"):
        file.unlink()
    return user_folders[0]


@pytest.fixture
def set_keyboard():
    """A function that sets the keyboard layout of a language, before the program starts. A letter without a key does
    not always arrive."""
    yield lambda layout: subprocess.run(["setxkbmap", layout], check=True)
    subprocess.run(["setxkbmap", "us"], check=True)


@pytest.fixture
def app_data_folder(user_folders):
    """The program's folder in the application data, which does not exist yet."""
    folder = user_folders[1] / "SkyvaneAlerts"
    shutil.rmtree(folder, ignore_errors=True)
    yield folder
    shutil.rmtree(folder, ignore_errors=True)


@pytest.fixture(scope="session")
def browser_folder(tmp_path_factory):
    """The folder of the program that is registered as the browser and records addresses."""
    folder = tmp_path_factory.mktemp("browser")
    shutil.copy(os.environ["PROBE"], folder / "probe.exe")
    command = f'"{stores.windows_path(folder / "probe.exe")}" catch "%1"'
    escaped = command.replace("\\", "\\\\").replace('"', '\\"')
    lines = ["Windows Registry Editor Version 5.00", "", r"[HKEY_LOCAL_MACHINE\Software\Classes\.html]", '@="htmlfile"']
    for scheme in ("http", "https", "mailto", "htmlfile"):
        key = f"HKEY_LOCAL_MACHINE\\Software\\Classes\\{scheme}\\shell\\open"
        lines += [f"[{key}\\command]", f'@="{escaped}"', f"[-{key}\\ddeexec]"]
    stores.import_registry("\r\n".join(lines + [""]))
    return folder


class Browser:
    """The addresses that were opened in the browser."""

    def __init__(self, file):
        self.file = file
        file.unlink(missing_ok=True)

    def opened(self):
        if not self.file.exists():
            return []
        return [line.strip('"') for line in self.file.read_text(encoding="utf-8").splitlines()]

    def wait_for(self, address):
        opened = harness.wait_until(self.opened, f"the browser opens {address}")
        assert opened == [address]
        self.file.unlink()


@pytest.fixture
def browser(browser_folder):
    return Browser(browser_folder / "opened.txt")


@pytest.fixture
def opened(browser):
    """A function that returns the text of the alert page that was opened. With `save_as`, it is kept for the
    test in a real browser."""

    def read(program, user="Default", save_as=None):
        file = program.data_folder(user) / "Alerts.html"
        browser.wait_for(stores.windows_path(file))
        if save_as:
            folder = pathlib.Path(os.environ["ALERT_PAGES"])
            folder.mkdir(exist_ok=True)
            shutil.copy(file, folder / f"{save_as}.html")
        return file.read_text(encoding="utf-8")

    return read


@pytest.fixture
def feed():
    feed = Feed()
    yield feed
    feed.close()


@pytest.fixture
def service(temp_folder):
    """The simulated Weather Service, with no answers from earlier tests in the cache."""
    for file in temp_folder.glob("SkyvaneAlerts.*.cache"):
        file.unlink()
    weather = WeatherService()
    yield weather
    weather.close()


@pytest.fixture
def world(service):
    """The simulated server for places outside the United States, and the feed of both sources."""
    server = AlertServer(service.server.port)
    yield server
    server.close()


@pytest.fixture
def run_value():
    """A function that returns the command line by which Windows starts the program, or None."""
    stores.delete_registry(RUN_KEY, "SkyvaneAlerts")
    yield lambda: stores.registry_values(RUN_KEY).get("SkyvaneAlerts")
    stores.delete_registry(RUN_KEY, "SkyvaneAlerts")


@pytest.fixture(scope="session")
def package(tmp_path_factory):
    """The files of the packages of the built program, by name."""
    return packages.make_package(os.environ["PRODUCT_DIR"], tmp_path_factory.mktemp("package"))


@pytest.fixture
def make_program(tmp_path):
    """make_program(registry=False, folder=...): the program in its own folder or in an existing one. It is
    killed after the test."""
    made = []

    def make(registry=False, folder=tmp_path / "program folder"):
        made.append(harness.Program(folder.resolve(), registry))
        return made[-1]

    harness.point_at(600, 300)
    yield make
    for program in made:
        program.kill()


@pytest.fixture
def make_watcher(make_program, feed):
    """make_watcher(*stations, registry=False, ...): a program that was used before and watches the stations,
    with the feed as its source."""

    def make(*stations, registry=False, options=(), misc=()):
        program = make_program(registry)
        user = harness.user_name() if registry else "Default"
        program.write_stations(*stations, user=user)
        program.store.write({
            "Hosts": {"Feed": feed.address},
            "Options": {"StoreFilesInProgramFolder": "True", "AutoUpdateInterval": "Every 5 minutes",
                        **dict(options)},
            "Misc": {"Runs": "2", **dict(misc)},
        })
        return program

    return make
