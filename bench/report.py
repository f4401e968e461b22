"""The lines that a measurement prints."""

import statistics


def print_line(what, figure, floor, ratio, goal, met):
    print(f"{what:<42} {figure:>22} {floor:>22} {ratio:>13}  {goal:<8} {'met' if met else 'MISSED'}",
          flush=True)


def compare(what, figures, floors, unit, goal):
    """Medians decide; minima, which a busy machine disturbs less, stand in brackets."""
    middle, floor_middle = statistics.median(figures), statistics.median(floors)
    least, floor_least = min(figures), min(floors)
    print_line(what, f"{middle:.0f} ({least:.0f}) {unit}", f"{floor_middle:.0f} ({floor_least:.0f}) {unit}",
               f"{middle / floor_middle:.2f} ({least / floor_least:.2f})", f"<= {goal}",
               middle / floor_middle <= goal)
