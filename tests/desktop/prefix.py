"""The files and registry values in the Wine prefix, for comparing them before and after a test."""

import os
import pathlib

import stores

# Files that change without the program, and the harness's log.
IGNORED = ("/Temp/", "/temp/", "/stderr.txt")
KEYS = ("HKEY_CURRENT_USER\\Software", "HKEY_LOCAL_MACHINE\\Software")
IGNORED_KEYS = ("\\Software\\Wine\\", "\\Explorer\\")
# The first installed program creates this key, which belongs to Windows.
PROGRAM_LIST = "\\CurrentVersion\\Uninstall]"


def files():
    found = set()
    for folder, _, names in os.walk(pathlib.Path(os.environ["WINEPREFIX"]).resolve() / "drive_c"):
        found.update(path for name in names
                     if not any(part in (path := f"{folder}/{name}") for part in IGNORED))
    return found


def registry():
    """Returns (key, line of the export) for each key and each value."""
    found = set()
    for root in KEYS:
        key = root
        for line in stores.export_registry(root).replace("\r", "").replace("\\\n  ", "").split("\n"):
            if line.startswith("["):
                key = line[1:-1]
            if line and not line.endswith(PROGRAM_LIST) and not any(part in key + "\\" for part in IGNORED_KEYS):
                found.add((key, line))
    return found


def snapshot():
    return files() | registry()
