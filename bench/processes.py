"""What the running programs take of the machine."""

import os
import pathlib
import sys
import time

from places import PREFIX, windows_path


def find_process(wanted):
    """The process for whose /proc folder `wanted` holds."""
    for folder in pathlib.Path("/proc").glob("[0-9]*"):
        try:
            if wanted(folder):
                return folder
        except OSError:
            pass
    sys.exit("bench/run: a measured process is not there")


def find_program(path):
    name = windows_path(path).encode()
    return find_process(lambda p: (p / "cmdline").read_bytes().split(b"\0")[0] == name)


def find_wineserver():
    prefix = PREFIX.stat()
    name = f"server-{prefix.st_dev:x}-{prefix.st_ino:x}"
    return find_process(lambda p: (p / "comm").read_text() .startswith("wineserver")
                        and os.readlink(p / "cwd").endswith(name))


def private_kilobytes(process):
    """The memory that is the process's alone and would have to be written out, once it is settled."""
    def read():
        lines = (process / "smaps_rollup").read_text().splitlines()
        values = {line.split(":")[0]: int(line.split()[1]) for line in lines[1:]}
        return values["Private_Dirty"] + values["Swap"]
    before = None
    while (now := read()) != before:
        before = now
        time.sleep(0.7)
    return now


def processor_seconds(process):
    fields = (process / "stat").read_text().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")
