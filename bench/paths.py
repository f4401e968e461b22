"""Paths of the built programs and of the measurements' working files."""

import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.append(str(ROOT / "tests/desktop"))  # the desktop tests' modules: feed, harness, stores

PRODUCT = ROOT / "build/i686/product"
PROGRAMS = ROOT / "build/i686/bench"
SCRATCH = ROOT / "build/bench"
FOLDER = SCRATCH / "program"  # the measured program, in INI mode
PROGRAM = FOLDER / "SVAlerts.exe"
INI = FOLDER / "Default.ini"
PREFIX = ROOT / "build/wine-bench"
