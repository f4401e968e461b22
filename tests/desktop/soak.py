"""Runs the program for SKYVANE_HOURS hours against a server that fails in 25 ways, while processes are suspended,
the clocks of server and cache change, the disk is full, files are locked, the taskbar is replaced, and the user
works in dialogs.

It is not one of the tests that run by default: SKYVANE_HOURS=8 ./test soak
"""

import contextlib
import os
import random
import signal
import subprocess
import time
from collections import Counter, deque

import pytest

from dialog import message_boxes, wait_for_message_box
from failing_server import UNLOADABLE, WAYS, FailingServer
from feed import document
from harness import MINUTE_TIMERS, TRAY_CLASS, WM_TIMER, user_name, wait_until
from inside import probe
from loopback import answer
from options_dialog import Options, answer_yes
from search_dialog import Search
from stores import windows_path
from test_endurance import holdings_of
from weather_service import alert, collection, moment, vtec

SEED = 20261123
STATIONS = [("Lawrence, KS (Downtown)", "66044"), ("New York, NY (Park)", "10001")]
CODES = [code for _, code in STATIONS]
# A list of seen alerts with more than 500 characters loses 249; the alerts in force must fit in the rest.
MOST_ALIVE, MOST_NEW, MOST_SEEN = 13, 4, 50
WM_COMMAND, RETRIEVE = 0x111, 102  # mnuRetrieveSevereAlerts
# Five minutes pass; ticks of a timer that does not run are ignored.
FIVE_MINUTES = [field for timer in 3 * MINUTE_TIMERS for field in (WM_TIMER, timer, 0)]


def send_signal(processes, number):
    for process in processes:
        with contextlib.suppress(ProcessLookupError):  # Wine starts a program through a process that ends at once
            os.kill(process, number)


class Soak:
    def __init__(self, program, server, temp_folder):
        self.program, self.server, self.temp_folder = program, server, temp_folder
        self.random = random.Random(SEED)
        self.station_file = program.data_folder(user_name()) / "CityCode.cmb"
        self.first_stations = self.stations()
        self.counts, self.told = Counter(), Counter()
        self.newest = self.waiting = self.cycles = self.most_seen = 0  # waiting: new since a cycle succeeded
        self.alive = deque(maxlen=MOST_ALIVE)  # numbers of alerts, which end in the order in which they began
        self.is_live = False
        self.seen = []

    def stations(self):
        return self.station_file.read_bytes().splitlines()

    def nothing(self):
        self.server.gate.set()

    def suspend(self, processes):
        send_signal(processes, signal.SIGSTOP)
        self.server.gate.set()
        time.sleep(self.random.choice((0.2, 2, 12)))
        send_signal(processes, signal.SIGCONT)

    def suspended_downloader(self):
        self.suspend(self.program.downloaders())

    def suspended_program(self):
        self.suspend([self.program.process.pid])

    def full_disk(self):
        if not self.temp_folder.is_mount():
            self.counts["skipped: full disk, because no mount namespace could be created"] += 1
            return self.nothing()
        filler = self.temp_folder / "filler"
        with contextlib.suppress(OSError), open(filler, "wb", buffering=0) as file:
            while True:
                file.write(bytes(65536))
        self.server.gate.set()
        time.sleep(2)
        filler.unlink()

    def held_file(self):
        file = self.random.choice([self.station_file, *self.temp_folder.glob("SV*.tmp")])
        holder = subprocess.Popen(["wine", os.environ["PROBE"], "hold", windows_path(file), "2"],
                                  stdout=subprocess.DEVNULL)
        time.sleep(0.5)
        self.server.gate.set()
        self.counts["held files" if holder.wait() == 0 else "files in use, which cannot be held"] += 1

    def explorer_restart(self):
        probe("forget-icon", TRAY_CLASS)
        self.program.post("TaskbarCreated")
        wait_until(self.program.icon, "the icon")
        self.server.gate.set()

    def open_options(self, page):
        self.program.click_icon()
        options = Options()
        options.turn_to(page)
        return options

    def options(self):
        """Changes a setting in the Options dialog and applies it."""
        before = self.program.store.read("Options", "RetrieveAlertsOnStartup")
        options = self.open_options("General")
        options.push("Check4")
        options.apply(self.server.gate.set)
        options.close("OK")
        assert self.program.store.read("Options", "RetrieveAlertsOnStartup") == str(before != "True")

    def search(self):
        """Searches for a station and adds it, or removes the one that was added."""
        options = self.open_options("Stations")
        added = self.stations()[len(STATIONS):]
        if added:
            options.choose("Combo1", added[0].decode().split("  ")[0])
            options.push("Command7")
            answer_yes()
        else:
            options.click("Add Station...")
            search = Search()
            search.search("66044", f"{25 if self.is_live else 6} weather station(s) found.")
            search.click("Add Station")
            search.wait_until_closed()
        self.server.gate.set()
        options.close("OK")
        assert len(self.stations()) == len(STATIONS) + (not added)

    # What happens during a cycle.
    EVENTS = [suspended_downloader, suspended_program, full_disk, held_file, explorer_restart, options, search]

    def change_clock(self):
        """Moves the times in the downloader's cache, as if the machine's clock had been set since then."""
        hours = self.random.randrange(-72, 73)
        for file in self.temp_folder.glob("SkyvaneAlerts.*.cache"):
            mark, stored, rest = file.read_bytes().split(b"\n", 2)
            if mark == b"skyvane-answer-1":
                file.write_bytes(b"%s\n%d\n%s" % (mark, int(stored) + 3600 * hours, rest))
        self.counts["changed clocks"] += 1

    def choose_source(self, is_live):
        if is_live != self.is_live:
            self.is_live = is_live
            self.alive.clear()
            self.program.store.write({"Hosts": {"Feed": ("nws+" if is_live else "") + self.server.address}})

    def offer(self, way):
        """Sets the server's answers. Returns the titles in them, each with the code of its station."""
        for _ in range(self.random.choice((0, 1, 1, 1 if self.is_live else 2))):
            if self.waiting < MOST_NEW:
                self.newest += 1
                self.waiting += 1
                self.alive.append(self.newest)
        offered = {code: [n for n in self.alive if self.is_live or n % 3 != at] for at, code in enumerate(CODES)}
        if self.is_live:
            hours = self.random.randrange(-48, 49)
            self.server.service.clock = hours
            self.server.service.alerts = collection(*(
                alert(f"urn:{n}.{self.cycles}", f"Hail {n}", sent=moment(hours - 0.1), expires=moment(hours + 1),
                      vtec=vtec("CON", f"KTOP.TO.W.{n % 10000:04}")) for n in self.alive))
        self.server.replies = {"": WAYS.get(way)} if self.is_live else {
            code: answer(200, document(*((f"{n:013}", f"Hail {n}", f"Hail {n} at {code}. " * 20) for n in numbers)))
            for code, numbers in offered.items()}
        if way and not self.is_live:
            failing = self.random.choice(CODES)
            self.server.replies[failing] = WAYS[way]
            offered[failing] = []
        return Counter((f"Hail {n}", code) for code, numbers in offered.items() for n in numbers)

    def has_ended(self):
        def is_idle():
            return not list(self.temp_folder.glob("SV*.tmp"))
        return is_idle() and self.program.answers() and is_idle()

    def run_cycle(self, way, event):
        where = f"cycle {self.cycles}: {'live' if self.is_live else 'plain'}, {way}, {event.__name__}"
        offered = self.offer(way)
        before = self.program.last_updated()
        self.server.gate.clear()
        by_command = event not in (Soak.options, Soak.search) and self.random.random() < 0.3
        if by_command:
            self.program.post(WM_COMMAND, RETRIEVE)
        else:
            probe("post", TRAY_CLASS, *FIVE_MINUTES)
        wait_until(self.program.downloaders, f"the downloader, {where}")
        event(self)
        wait_until(self.has_ended, f"the end, {where}", 90)
        succeeded = self.program.last_updated() != before
        if by_command and not succeeded:
            wait_for_message_box().answer("OK")
        assert not message_boxes(), where
        assert self.stations()[:len(STATIONS)] == self.first_stations, where
        self.check_result(way, event, succeeded, where)
        self.check_alerts(offered, succeeded, where)
        self.cycles += 1
        self.waiting = 0 if succeeded else self.waiting
        time.sleep(1.2)  # so that no two cycles end in the same second

    def check_result(self, way, event, succeeded, where):
        result = "succeeded" if succeeded else "failed"
        must_fail = way and (self.is_live or way not in UNLOADABLE)
        assert not (succeeded and must_fail) and (succeeded or must_fail or event is not Soak.nothing), where
        self.counts.update([f"cycles: {result}", f"cycles: {'live' if self.is_live else 'plain'} source"])
        if way:
            self.counts[f"answer: {way}: {result}"] += 1
        if event is not Soak.nothing:
            self.counts[f"event: {event.__name__}: {result}"] += 1

    def check_alerts(self, offered, succeeded, where):
        """A successful cycle announces, with one sound, those of its alerts that no earlier cycle has announced."""
        seen = [entry for entry in (self.program.store.read("Misc", "OldAlerts") or "").split("¦") if entry]
        new = seen[seen.index(self.seen[-1]) + 1 if self.seen else 0:]
        if new:
            wait_until(self.program.sounds_played, f"the sound, {where}")
        assert len(self.program.sounds_played()) == bool(new), where
        os.truncate(self.program.folder.parent / "stderr.txt", 0)
        self.seen = seen
        self.most_seen = max(self.most_seen, len(seen))
        stored = self.program.store.alerts() if succeeded else []
        assert not succeeded or Counter((title, code) for _, title, code, _ in stored) == offered, where
        assert Counter(new) == Counter({identifier for identifier, *_ in stored} - set(self.told)), where
        self.told.update(new)

    def run_random_cycle(self):
        self.choose_source(self.cycles % 40 >= 32)
        if self.is_live and self.random.random() < 0.3:
            self.change_clock()
        way = self.random.choice(list(WAYS)) if self.random.random() < 0.4 else None
        self.run_cycle(way, self.random.choice(Soak.EVENTS) if self.random.random() < 0.3 else Soak.nothing)

    def settings(self):
        """Returns the settings that neither a cycle nor this harness changes."""
        sections = self.program.store.sections()
        return {key: value for section in ("Options", "Misc") for key, value in sections[section].items()
                if key not in ("lastupdated", "oldalerts", "lastoption", "retrievealertsonstartup")}

    def holdings(self):
        """Returns what the program holds after two cycles without a failure."""
        self.choose_source(False)
        for _ in range(2):
            self.run_cycle(None, Soak.nothing)
        return holdings_of(self.program)

    def report(self):
        times = Counter(self.told.values())
        self.counts.update({"alerts told once": times.pop(1, 0), "alerts told more than once": times.total(),
                            "most alerts in the seen list": self.most_seen})
        print(*(f"{count:6} {name}" for name, count in sorted(self.counts.items())), sep="\n", flush=True)


@pytest.fixture
def feed():
    return FailingServer()


@pytest.fixture
def soak(make_watcher, feed, temp_folder):
    if "SKYVANE_OWN_MOUNTS" in os.environ:  # the small disk disappears with the mount namespace
        subprocess.run(["mount", "-t", "tmpfs", "-o", "size=8m", "tmpfs", str(temp_folder)], check=True)
    program = make_watcher(*STATIONS, registry=True, options={
        "SingleClickAction": "Open Skyvane Alerts Options", "DisplayTrayAlert": "True",
        "FlashTrayIcon": "True", "TrayAlertSound": "Urgent.wav"})
    soak = Soak(program, feed, temp_folder)
    program.start(WINEDEBUG="+winmm", SKYVANE_DL_SECONDS="8")
    program.wait_for_start()
    yield soak
    soak.report()


def test_soak(soak):
    end = time.monotonic() + 3600 * float(os.environ["SKYVANE_HOURS"])
    for event in 2 * Soak.EVENTS:  # so that all libraries are loaded
        soak.run_cycle(None, event)
    for way in WAYS:
        soak.run_cycle(way, Soak.nothing)
    early, settings = soak.holdings(), soak.settings()
    while time.monotonic() < end:
        soak.run_random_cycle()
    late = soak.holdings()
    print(f"{early} at the start\n{late} at the end", flush=True)
    assert soak.settings() == settings and len(soak.stations()) <= len(STATIONS) + 1
    assert soak.most_seen <= MOST_SEEN
    assert late.kernel <= early.kernel + 2 and late.gdi <= early.gdi + 10  # a few fonts and bitmaps are created late
    assert late.user <= early.user + 25  # includes the taskbar and its balloons
    assert late.private_kib <= early.private_kib + 2048  # one mebibyte of Wine's varies
