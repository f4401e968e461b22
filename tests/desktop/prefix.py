"""What lies in the Wine prefix: its files and its registry, to be compared before and after."""

import os
import pathlib

import stores

# What comes and goes by itself, and the harness's own notes.
PASSING = ("/Temp/", "/temp/", "/stderr.txt")
KEYS = ("HKEY_CURRENT_USER\\Software", "HKEY_LOCAL_MACHINE\\Software")
PASSING_KEYS = ("\\Software\\Wine\\", "\\Explorer\\")
# The list of programs is Windows' own, though a new prefix has none before the first program.
PROGRAM_LIST = "\\CurrentVersion\\Uninstall]"


def drive():
    return pathlib.Path(os.environ["WINEPREFIX"]).resolve() / "drive_c"


def files():
    found = set()
    for folder, _, names in os.walk(drive()):
        found.update(path for name in names
                     if not any(part in (path := f"{folder}/{name}") for part in PASSING))
    return found


def registry():
    """Each value, and each key without one, as a line with its key."""
    found = set()
    for root in KEYS:
        key = root
        for line in stores.export_registry(root).replace("\r", "").replace("\\\n  ", "").split("\n"):
            if line.startswith("["):
                key = line[1:-1]
            if line and not line.endswith(PROGRAM_LIST) and not any(part in key + "\\" for part in PASSING_KEYS):
                found.add((key, line))
    return found


def snapshot():
    return files() | registry()
