"""The output of the measurements."""

import statistics


def print_line(what, figure, baseline, ratio, goal, met):
    print(f"{what:<42} {figure:>22} {baseline:>22} {ratio:>13}  {goal:<8} {'met' if met else 'MISSED'}",
          flush=True)


def compare(what, figures, baselines, unit, goal):
    """Prints medians, which decide, with the minima in parentheses, which other load affects less."""
    median, baseline_median = statistics.median(figures), statistics.median(baselines)
    least, baseline_least = min(figures), min(baselines)
    print_line(what, f"{median:.0f} ({least:.0f}) {unit}", f"{baseline_median:.0f} ({baseline_least:.0f}) {unit}",
               f"{median / baseline_median:.2f} ({least / baseline_least:.2f})", f"<= {goal}",
               median / baseline_median <= goal)
