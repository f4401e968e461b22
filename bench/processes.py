"""Memory and processes of the measured programs."""

import os
import pathlib
import sys
import time

from paths import PREFIX

from harness import processes
from stores import windows_path


def find_process(matches):
    """Returns the number of the process for whose folder in /proc `matches` is true."""
    if not (found := processes(matches)):
        sys.exit("bench/run: a measured process is not running")
    return found[0]


def find_program(path):
    name = windows_path(path).encode()
    return find_process(lambda folder: (folder / "cmdline").read_bytes().split(b"\0")[0] == name)


def find_wineserver():
    prefix = PREFIX.stat()
    name = f"server-{prefix.st_dev:x}-{prefix.st_ino:x}"
    return find_process(lambda folder: (folder / "comm").read_text().startswith("wineserver")
                        and os.readlink(folder / "cwd").endswith(name))


def private_kilobytes(process):
    """Returns the process's private dirty memory, once it no longer changes."""
    def read():
        lines = pathlib.Path(f"/proc/{process}/smaps_rollup").read_text().splitlines()
        values = {line.split(":")[0]: int(line.split()[1]) for line in lines[1:]}
        return values["Private_Dirty"] + values["Swap"]
    before = None
    while (now := read()) != before:
        before = now
        time.sleep(0.7)
    return now
