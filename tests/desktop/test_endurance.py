"""Handles and memory do not grow from cycle to cycle."""

import os
import pathlib
import re
from collections import namedtuple

from feed import LAWRENCE, PARIS
from harness import TRAY_CLASS, wait_until
from inside import probe


Holdings = namedtuple("Holdings", "kernel gdi user private_kib")  # `user` of all processes together


def holdings_of(program):
    counts = [int(field) for field in probe("counts", TRAY_CLASS)[0]]
    memory = pathlib.Path(f"/proc/{program.process.pid}/smaps_rollup").read_text()
    return Holdings(*counts, int(re.search(r"^Private_Dirty:\s+(\d+)", memory, re.M)[1]))


def run_cycles(program, feed, numbers):
    """In each cycle every station has ten new alerts and the ten of the previous cycle. Their identifiers fit in the
    249 characters that a cycle removes from the list of seen alerts; with more, the list would grow."""
    for number in numbers:
        for code in ("66044", "064321"):
            feed.serve(code, *((f"{n}{code}{i}", f"Alert {n} {i}", "body " * 50)
                               for n in (number - 1, number) for i in range(10)))
        program.tick()
        wait_until(lambda: (program.store.read("Misc", "OldAlerts") or "").endswith(f"{number}0643219"),
                   f"the end of cycle {number}")
        assert program.answers()


def test_cycles_leak_nothing(make_watcher, feed):
    """Runs 20 cycles, or SKYVANE_CYCLES; 1000 take some minutes."""
    cycles = int(os.environ.get("SKYVANE_CYCLES", "20"))
    program = make_watcher(LAWRENCE, PARIS, registry=True, options={"AutoUpdateInterval": "Every minute"})
    program.start()
    run_cycles(program, feed, range(1001, 1011))
    early = holdings_of(program)
    run_cycles(program, feed, range(1011, 1001 + cycles))
    late = holdings_of(program)
    print(f"after 10 cycles {early}, after {cycles} {late}")
    assert (late.kernel, late.gdi, late.user) == (early.kernel, early.gdi, early.user)
    # Some heap pages are used late; even 1000 cycles add no more than this.
    assert late.private_kib <= early.private_kib + 64
