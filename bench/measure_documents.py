"""Reading and creating feed documents, and writing the alert page."""

import copy
import json
import statistics
import subprocess

from paths import PRODUCT, PROGRAMS, ROOT, SCRATCH
from report import compare, print_line
from stopwatch import run_bench

from stores import windows_path


def measure_parse(stopwatch, feed):
    """The cost of one more alert, from the difference between two document lengths, which excludes the fixed
    costs (starting the XML library, reading and replacing the store). Uses the minima: the differences are
    small compared to delays caused by other load, which never shorten a run."""
    for store in ("ini", "registry"):
        lines = subprocess.run(["wine", str(PROGRAMS / "parseBench.exe"), store], check=True,
                               stdout=subprocess.PIPE, text=True).stdout.split("\n")
        times = {}
        for count, milliseconds in (line.split() for line in lines if line.strip()):
            times.setdefault(int(count), []).append(1000 * float(milliseconds))
        least = {count: min(t) for count, t in times.items()}

        def slope(fewer, more):
            return (least[more] - least[fewer]) / (more - fewer)

        early, late = slope(10, 100), slope(100, 1000)
        print_line(f"cost per alert, 100 to 1,000 ({store})", f"{late:.1f} us", f"{early:.1f} us (10 to 100)",
                   f"{late / early:.2f}", "<= 1.2", late / early <= 1.2)
        print("    whole documents, median (minimum), minimum per alert: " + "; ".join(
            f"{count:,}: {statistics.median(t) / 1000:.2f} ({least[count] / 1000:.2f}) ms"
            + (f", {least[count] / count:.0f} us" if count else "") for count, t in times.items()))


def make_answer(count, size):
    """Returns an answer of the Weather Service with `count` alerts in force and about `size` bytes, built from
    recorded alerts."""
    recorded = json.loads((ROOT / "tests/downloader/recorded/alerts-with-test-8.json").read_bytes())
    features = []
    for number in range(count):
        feature = copy.deepcopy(recorded["features"][1 + number % 7])
        feature["properties"].update(id=f"urn:oid:{number}", ends="2999-01-01T00:00:00+00:00", references=[])
        feature["properties"].update(geocode={}, affectedZones=[])
        feature["geometry"] = feature["geometry"] and {**feature["geometry"], "coordinates": [[[-80, 34], [-80, 34.2], [-81, 34.1]]]}
        feature["properties"]["parameters"]["VTEC"] = [
            f"/O.NEW.KTOP.TO.W.{number:04}.260715T1700Z-260715T2100Z/"]
        features.append(feature)
    answer = {**recorded, "features": features}
    missing = (size - len(json.dumps(answer))) // count
    for feature in features:
        text = feature["properties"]["description"]
        feature["properties"]["description"] = (text + text[:60] * 100)[:max(len(text) + missing, 0)]
    return json.dumps(answer).encode()


def make_cap_document(part, size):
    """Returns a recorded CAP document, made as long as `size` bytes by repeating one part of it."""
    recorded = (ROOT / "tests/downloader/recorded/cap-us-polygons.xml").read_bytes()
    begin, end = recorded.index(b"<" + part + b">"), recorded.index(b"</" + part + b">") + len(part) + 3
    repeated = recorded[begin:end] * ((size - len(recorded)) // (end - begin))
    return recorded[:end] + repeated + recorded[end:]


def measure_cap(stopwatch, feed):
    """Answering with a long CAP document, and the memory needed for it; the baseline only parses the XML."""
    file = SCRATCH / "alert.xml"
    for part in (b"area", b"info"):
        file.write_bytes(make_cap_document(part, 1_700_000))
        *rounds, memory = subprocess.run(
            ["wine", str(PROGRAMS / "capBench.exe"), windows_path(file)],
            check=True, stdout=subprocess.PIPE, text=True).stdout.strip().split("\n")
        made, parsed = zip(*(map(float, line.split()) for line in rounds))
        name = {b"area": "areas", b"info": "blocks"}[part]
        compare(f"CAP document of 1.7 MB, many {name}", [1000 * ms for ms in made],
                [1000 * ms for ms in parsed], "us", 1.5)
        size, peak = map(int, memory.split())
        peak += size  # the document itself
        print_line("    memory needed", f"{peak / 1e6:.2f} MB", f"{size / 1e6:.2f} MB", f"{peak / size:.2f}", "<= 4",
                   peak <= 4 * size)


def measure_live(stopwatch, feed):
    """Converting the live feed's longest answer, and the memory needed for it; the baseline only parses the
    JSON."""
    file = SCRATCH / "alerts.json"
    file.write_bytes(make_answer(529, 1_700_000))
    *rounds, memory, look_up = subprocess.run(
        ["wine", str(PROGRAMS / "nwsBench.exe"), windows_path(file), windows_path(PRODUCT / "places.dat")],
        check=True, stdout=subprocess.PIPE, text=True).stdout.strip().split("\n")
    made, parsed = zip(*(map(float, line.split()) for line in rounds))
    compare("live: converting 529 alerts, 1.7 MB", made, parsed, "ms", 1.5)
    size, peak = map(int, memory.split())
    peak += size  # the answer itself
    print_line("live: memory needed", f"{peak / 1e6:.2f} MB", f"{size / 1e6:.2f} MB", f"{peak / size:.2f}", "<= 3",
               peak <= 3 * size)
    print_line("live: slowest look-up of a place", f"{float(look_up):.2f} ms", "", "", "<= 5 ms",
               float(look_up) <= 5)


def measure_page(stopwatch, feed):
    """Collecting, building and writing the page of 60 alerts; the baseline only writes a file of its length."""
    for store in ("ini", "registry"):
        times = run_bench("pageBench", store)
        [length], file = times.pop("bytes"), times.pop("file")
        for name, what in (("page", "page of 60 alerts written"), ("stored", "same, and stored alerts read")):
            page, least = statistics.median(times[name]), min(times[name])
            print_line(f"{what} ({store})", f"{page:.1f} ({least:.1f}) ms",
                       f"{statistics.median(file):.1f} ({min(file):.1f}) ms",
                       f"{page / statistics.median(file):.1f} ({least / min(file):.1f})", "<= 20 ms", page <= 20)
    print(f"    the page has {length:,.0f} bytes; the baseline writes a file of this length")
