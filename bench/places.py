"""Where the built programs are, and where the measurements work."""

import pathlib

ROOT = pathlib.Path(__file__).resolve().parent.parent
PRODUCT = ROOT / "build/i686/product"
PROGRAMS = ROOT / "build/i686/bench"
SCRATCH = ROOT / "build/bench"
FOLDER = SCRATCH / "program"  # the installed program, in INI mode
PROGRAM = FOLDER / "SVAlerts.exe"
INI = FOLDER / "Default.ini"
PREFIX = ROOT / "build/wine-bench"

TRAY_CLASS = "SkyvaneAlertsTray"
RETRIEVE = "102"  # the menu command "Retrieve Severe Alerts"


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")
