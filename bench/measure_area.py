"""Towns inside warned areas that get no warning, counted by areaBench."""

import gzip
import json
import math
import random
import re
import subprocess

from paths import PRODUCT, PROGRAMS, ROOT, SCRATCH
from report import print_line

from stores import windows_path

CENSUS_PLACES = "/usr/share/weather-util/places.gz"  # of the Debian package weather-util-data
TOWN = re.compile(r"description = .+ (?:city|town|village|borough|CDP), (?!AK|HI|PR)[A-Z]{2}")
MADE = 400
MOST_MISSED, MOST_ANSWERS, FARTHEST = 0.01, 1.6, 40


def read_towns():
    towns, centre = [], None
    for line in gzip.open(CENSUS_PLACES, "rt", encoding="utf-8"):
        if match := re.match(r"centroid = \((\S+), (\S+)\)", line):
            centre = tuple(math.degrees(float(number)) for number in match.groups())
        elif TOWN.match(line):
            towns.append(centre)
    return towns


def read_recorded_polygons():
    polygons = []
    for file in sorted((ROOT / "tests/downloader/recorded").glob("alerts-*.json")):
        for feature in json.loads(file.read_bytes())["features"]:
            if (feature["geometry"] or {}).get("type") == "Polygon":
                ring = [(latitude, longitude) for longitude, latitude in feature["geometry"]["coordinates"][0]]
                if all(20 < latitude < 72 for latitude, _ in ring):  # one is made up
                    polygons.append(ring)
    return polygons


def make_polygon(towns, chance):
    """A warning as offices draw them: a trapezoid of 10 to 90 km somewhere near a town."""
    latitude, longitude = chance.choice(towns)
    latitude, longitude = latitude + chance.uniform(-0.2, 0.2), longitude + chance.uniform(-0.2, 0.2)
    length, start, end = chance.uniform(15, 90), chance.uniform(8, 30), chance.uniform(10, 45)
    turn = chance.uniform(0, 2 * math.pi)
    corners = [(-length / 2, -start / 2), (length / 2, -end / 2), (length / 2, end / 2), (-length / 2, start / 2)]
    return [(latitude + (x * math.sin(turn) + y * math.cos(turn)) / 111.2,
             longitude + (x * math.cos(turn) - y * math.sin(turn)) / 111.2 / math.cos(math.radians(latitude)))
            for x, y in corners]


def measure_area(stopwatch, feed):
    towns, chance = read_towns(), random.Random(1)
    polygons = read_recorded_polygons() + [make_polygon(towns, chance) for _ in range(MADE)]
    town_file, polygon_file = SCRATCH / "towns.txt", SCRATCH / "polygons.txt"
    town_file.write_text("\n".join(f"{latitude:.4f} {longitude:.4f}" for latitude, longitude in towns))
    polygon_file.write_text("\n".join(
        " ".join(f"{latitude:.4f},{longitude:.4f}" for latitude, longitude in ring) for ring in polygons))
    output = subprocess.run(
        ["wine", str(PROGRAMS / "areaBench.exe"),
         *map(windows_path, (PRODUCT / "places.dat", town_file, polygon_file))],
        check=True, stdout=subprocess.PIPE, text=True).stdout
    inside, by_centre, by_reach, told_by_centre, told_by_reach = map(int, output.split()[:5])
    farthest = float(output.split()[5])
    missed, ratio = by_reach / inside, told_by_reach / told_by_centre
    print_line(f"area: {inside} towns in {len(polygons)} polygons, not told", f"{by_reach} by reach",
               f"{by_centre} by centre", f"{100 * missed:.1f} %", "<= 1 %", missed <= MOST_MISSED)
    print_line("area: ZIP codes told", f"{told_by_reach} by reach", f"{told_by_centre} by centre", f"{ratio:.2f}",
               f"<= {MOST_ANSWERS}", ratio <= MOST_ANSWERS)
    print_line("area: farthest ZIP code told", f"{farthest:.1f} km", "", "", f"<= {FARTHEST} km", farthest <= FARTHEST)
