"""Starting, driving and timing the programs from inside Wine."""

import datetime
import subprocess
import sys

from paths import FOLDER, INI, PROGRAM, PROGRAMS

from harness import TRAY_CLASS, station_line
from stores import IniStore, windows_path


class Stopwatch:
    """The process stopwatch.exe, which starts, drives and times programs inside Wine."""

    def __init__(self):
        self.process = subprocess.Popen(
            ["wine", str(PROGRAMS / "stopwatch.exe")],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def try_command(self, *fields):
        """Returns the result in milliseconds, or None if the command failed."""
        self.process.stdin.write("\t".join(map(str, fields)) + "\n")
        self.process.stdin.flush()
        answer = self.process.stdout.readline().strip()
        return None if answer == "failed" else float(answer)

    def command(self, *fields):
        """Returns the result in milliseconds; ends the measurement if the command failed."""
        answer = self.try_command(*fields)
        if answer is None:
            sys.exit(f"bench/run: failed: {' '.join(map(str, fields))[:200]}")
        return answer

    def start(self, path, window):
        # About once in a hundred starts of any program, Wine's shell loses the icon.
        if (elapsed := self.try_command("start", windows_path(path), "-id")) is None:
            print(f"    (the icon of {path.name} did not appear; the program was started again)", flush=True)
            self.end(window)
            elapsed = self.command("start", windows_path(path), "-id")
        return elapsed

    def end(self, window):
        self.command("end", window)

    def start_program(self):
        return self.start(PROGRAM, TRAY_CLASS)

    def end_program(self):
        self.end(TRAY_CLASS)


def write_store(feed, codes):
    """Replaces the program's settings and stations, as if it had been used before."""
    day = datetime.date.today() - datetime.timedelta(days=1)
    INI.unlink(missing_ok=True)
    IniStore(INI).write({
        "Hosts": {"Feed": feed.address},
        "Options": {"StoreFilesInProgramFolder": "True", "AutoUpdateInterval": "Never",
                    "RetrieveAlertsOnStartup": "False", "DisplayTrayAlert": "False", "FlashTrayIcon": "False"},
        "Misc": {"Runs": "1", "LastUpdated": f"{day.month}/{day.day}/{day.year} 4:12:10 PM"}})
    data = FOLDER / "Users/Default"
    data.mkdir(parents=True, exist_ok=True)
    (data / "CityCode.cmb").write_bytes(
        b"".join(station_line(f"Place {code} (Station {code})", code) + b"\r\n" for code in codes))


def run_bench(name, *arguments):
    """Runs a bench program and returns its figures by name."""
    lines = subprocess.run(["wine", str(PROGRAMS / f"{name}.exe"), *arguments], check=True, stdout=subprocess.PIPE,
                           text=True).stdout.split("\n")
    figures = {}
    for word, milliseconds in (line.split() for line in lines if line.strip()):
        figures.setdefault(word, []).append(float(milliseconds))
    return figures
