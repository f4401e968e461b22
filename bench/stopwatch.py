"""Starting, driving and timing the programs from inside Wine."""

import datetime
import subprocess
import sys

from places import FOLDER, INI, PROGRAM, PROGRAMS, TRAY_CLASS, windows_path


class Stopwatch:
    """stopwatch.exe, which starts, drives and times the programs from inside Wine."""

    def __init__(self):
        self.process = subprocess.Popen(
            ["wine", str(PROGRAMS / "stopwatch.exe")],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def ask(self, *fields):
        """The answer in milliseconds, None when the step failed."""
        self.process.stdin.write("\t".join(map(str, fields)) + "\n")
        self.process.stdin.flush()
        answer = self.process.stdout.readline().strip()
        return None if answer == "failed" else float(answer)

    def must(self, *fields):
        answer = self.ask(*fields)
        if answer is None:
            sys.exit(f"bench/run: failed: {' '.join(map(str, fields))[:200]}")
        return answer

    def start(self, path, window):
        # Wine's shell loses an icon now and then, in some hundred starts, of whatever program.
        if (began := self.ask("start", windows_path(path), "-id")) is None:
            print(f"    (the icon of {path.name} did not come; started again)", flush=True)
            self.end(window)
            began = self.must("start", windows_path(path), "-id")
        return began

    def end(self, window):
        self.must("end", window)

    def start_program(self):
        return self.start(PROGRAM, TRAY_CLASS)

    def end_program(self):
        self.end(TRAY_CLASS)


def write_store(feed, codes):
    """A fresh store that the program finds settled, with these stations."""
    day = datetime.date.today() - datetime.timedelta(days=1)
    INI.write_text(
        f"[Hosts]\r\nFEED={feed.url()}\r\n[Options]\r\nSTOREFILESINPROGRAMFOLDER=True\r\n"
        "AUTOUPDATEINTERVAL=Never\r\nRETRIEVEALERTSONSTARTUP=False\r\nDISPLAYTRAYALERT=False\r\n"
        "FLASHTRAYICON=False\r\n[Misc]\r\nRUNS=1\r\n"
        f"LASTUPDATED={day.month}/{day.day}/{day.year} 4:12:10 PM\r\n", newline="")
    data = FOLDER / "Users/Default"
    data.mkdir(parents=True, exist_ok=True)
    (data / "CityCode.cmb").write_text(
        "".join(f"Place {c} (Station {c}){' ' * 100}S{c}***{c}***38.9820***-95.2610\r\n" for c in codes),
        newline="")


def run_bench(name):
    """What a bench program printed: for each word its figures."""
    lines = subprocess.run(["wine", str(PROGRAMS / f"{name}.exe")], check=True, stdout=subprocess.PIPE,
                           text=True).stdout.split("\n")
    figures = {}
    for word, milliseconds in (line.split() for line in lines if line.strip()):
        figures.setdefault(word, []).append(float(milliseconds))
    return figures
