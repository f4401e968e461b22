"""What a program holds must not grow from cycle to cycle."""

import os
import pathlib
import re
from dataclasses import dataclass

from harness import TRAY_CLASS, probe, wait_until

STATIONS = [("Lawrence, KS (Downtown)", "66044"), ("Paris, France (Orly)", "064321")]


@dataclass
class Holdings:
    kernel: int
    gdi: int
    user: int  # of all processes together
    private_kib: int


def holdings_of(program):
    counts = [int(field) for field in probe("counts", TRAY_CLASS)[0]]
    memory = pathlib.Path(f"/proc/{program.process.pid}/smaps_rollup").read_text()
    return Holdings(*counts, int(re.search(r"^Private_Dirty:\s+(\d+)", memory, re.M)[1]))


def run_cycles(program, feed, numbers):
    for number in numbers:
        for code in ("66044", "064321"):
            feed.serve(code, *((f"{number}{code}{i}", f"Alert {number} {i}", "body " * 50)
                               for i in range(20)))
        program.tick()
        wait_until(lambda: (program.store.read("Misc", "OldAlerts") or "").endswith(f"{number}06432119"),
                   f"the end of cycle {number}")
        assert program.answers()


def test_cycles_hold_nothing(make_watcher, feed):
    """Twenty cycles, or as many as SKYVANE_CYCLES says: a thousand take some minutes."""
    cycles = int(os.environ.get("SKYVANE_CYCLES", "20"))
    program = make_watcher(*STATIONS, registry=True, options={"AutoUpdateInterval": "Every minute"})
    program.start()
    run_cycles(program, feed, range(1001, 1011))
    early = holdings_of(program)
    run_cycles(program, feed, range(1011, 1001 + cycles))
    late = holdings_of(program)
    print(f"after 10 cycles {early}, after {cycles} {late}")
    assert (late.kernel, late.gdi, late.user) == (early.kernel, early.gdi, early.user)
    # The program's heaps stay as they are; on the system's side Wine keeps about 0.6 KiB a cycle.
    assert late.private_kib <= early.private_kib + 256 + cycles
