"""The ZIP codes of the United States with their towns.

ZIP codes that only one of the sources contains are kept, except those of military mail, which have no
position; unnamed ones in Puerto Rico get the municipality's name. The centre and the spelling of the Census
take precedence ("McAllen", "O'Fallon").
"""
import collections
import gzip
import itertools
import math
import pathlib
import re

from folding import fold
from tables import number, population, position

# The reach of a ZIP code is a fraction of the distance to its nearest neighbour, within bounds in kilometres.
# According to bench/run area, this fraction misses few towns of a warned area and warns few others.
REACH_PART, SHORTEST_REACH, LONGEST_REACH = 0.7, 3, 40
SAME_PLACE = 0.5  # kilometres: ZIP codes of post office boxes share the position of another one
FEWEST, MOST = 40_500, 42_500  # ZIP codes
BEYOND_STATES = {"PR": "Puerto Rico", "VI": "U.S. Virgin Islands", "GU": "Guam", "AS": "American Samoa",
                 "MP": "Northern Mariana Islands", "MH": "Marshall Islands"}
# South, north, west, east of: the contiguous states, Alaska on both sides of the date line, Hawaii, the
# Caribbean territories, the territories in the Pacific.
BOUNDS = ((24, 49.6, -125, -66), (51, 71.6, -180, -129), (51, 54, 172, 180), (18.5, 28.6, -179, -154),
          (17.5, 18.7, -68, -64), (4, 21, 144, 173), (-15, -10.5, -171.5, -168))
WELL_KNOWN = {"10001": (40.750, -73.997), "02108": (42.357, -71.065), "20001": (38.911, -77.017),
              "33130": (25.768, -80.204), "60601": (41.886, -87.623), "66044": (38.972, -95.235),
              "73069": (35.220, -97.458), "77002": (29.756, -95.365), "80202": (39.750, -104.996),
              "84111": (40.755, -111.884), "90210": (34.103, -118.416), "94102": (37.779, -122.419),
              "97204": (45.518, -122.674), "98101": (47.610, -122.335), "99501": (61.216, -149.876),
              "96813": (21.313, -157.850), "00901": (18.466, -66.105), "00802": (18.345, -64.930),
              "62701": (39.800, -89.649), "70112": (29.957, -90.077)}
# Neither source has names for these ZIP codes. Those of Puerto Rico are named by their position.
ISLAND_CODES = {
    "VI": {"00802": "Charlotte Amalie", "00820": "Christiansted", "00830": "Cruz Bay", "00840": "Frederiksted",
           "00850": "Kingshill", "00851": "Kingshill"},
    "GU": {"96910": "Hag\u00e5t\u00f1a", "96913": "Barrigada", "96915": "Santa Rita", "96916": "Merizo",
           "96917": "Inarajan", "96928": "Agat", "96929": "Yigo"},
    "AS": {"96799": "Pago Pago"},
    "MP": {"96950": "Saipan", "96951": "Rota", "96952": "Tinian"},
}


def read_centres(path):
    """Returns {section: (latitude, longitude, description)}, in degrees."""
    centres, section, point = {}, None, None
    for line in gzip.open(path, "rt", encoding="utf-8"):
        if match := re.match(r"\[(\w+)\]", line):
            section = match[1]
        elif match := re.match(r"centroid = \((\S+), (\S+)\)", line):
            point = tuple(math.degrees(float(number)) for number in match.groups())
            centres[section] = (*point, "")
        elif match := re.match(r"description = (.+)", line):
            centres[section] = (*point, match[1])
    return centres


def read_names(path):
    """Returns {ZIP code: (name, state, latitude, longitude)} and {state: name of the state}."""
    names, states = {}, dict(BEYOND_STATES)
    for line in pathlib.Path(path).read_text(encoding="utf-8").splitlines():
        _, code, name, state_name, state, _, _, _, _, latitude, longitude, *_ = line.split("\t")
        if state:
            names.setdefault(code, (name, state, float(latitude), float(longitude)))
            states.setdefault(state, state_name)
    return names, states


def distance(one, other):
    """Returns the distance in kilometres between two points in degrees."""
    (lat1, lon1), (lat2, lon2) = (map(math.radians, point[:2]) for point in (one, other))
    half = math.sin((lat1 - lat2) / 2) ** 2 + math.cos(lat1) * math.cos(lat2) * math.sin((lon1 - lon2) / 2) ** 2
    return 12742 * math.asin(math.sqrt(half))


def find_municipality(point, barrios, municipalities):
    """Returns the name of the municipality in Puerto Rico with the nearest barrio."""
    nearest = min(barrios, key=lambda section: distance(point, barrios[section]))
    return municipalities[nearest[:9]][2].removesuffix(" Municipio, PR")


def join(centres, places, names):
    """Returns {ZIP code: (name, state, latitude, longitude)} for the codes of both sources."""
    # A section is "fips", two digits for the state, three for the county and five for a part of it.
    puerto_rico = {section: place for section, place in places.items() if section.startswith("fips72")}
    municipalities = {section: place for section, place in puerto_rico.items() if len(section) == 9}
    barrios = {section: place for section, place in puerto_rico.items()
               if len(section) == 14 and " barrio" in place[2]}
    islands = {code: (name, state) for state, codes in ISLAND_CODES.items() for code, name in codes.items()}
    joined = dict(names)
    for code, (latitude, longitude, _) in centres.items():
        if code in names:
            named = names[code][:2]
        elif code in islands:
            named = islands[code]
        else:
            named = find_municipality((latitude, longitude), barrios, municipalities), "PR"
        joined[code] = (*named, latitude, longitude)
    return joined


def read_spellings(places):
    """Returns {(folded name, state): name}, spelled as in the Census, for cities, towns and similar places."""
    spellings = {}
    for _, _, description in places.values():
        if match := re.fullmatch(r"(.+) (?:city|town|village|borough|CDP|comunidad|zona urbana), (\w\w)",
                                 description):
            spellings.setdefault((fold(match[1]), match[2]), match[1])
    return spellings


def find_reaches(joined):
    """Returns {ZIP code: its reach in kilometres}."""

    # Straight lines through the Earth: at these distances they are as long as lines along its surface.
    def place_in_space(latitude, longitude):
        latitude, longitude = math.radians(latitude), math.radians(longitude)
        return (6371 * math.cos(latitude) * math.cos(longitude),
                6371 * math.cos(latitude) * math.sin(longitude), 6371 * math.sin(latitude))

    def cell(place):
        return tuple(math.floor(coordinate / LONGEST_REACH) for coordinate in place)

    places = {code: place_in_space(*row[2:]) for code, row in joined.items()}
    cells = collections.defaultdict(set)
    for place in places.values():
        cells[cell(place)].add(place)

    def reach(place):
        near = (math.dist(place, other)
                for neighbour in itertools.product(*((at - 1, at, at + 1) for at in cell(place)))
                for other in cells.get(neighbour, ()))
        nearest = min((far for far in near if far > SAME_PLACE), default=LONGEST_REACH)
        return min(max(REACH_PART * nearest, SHORTEST_REACH), LONGEST_REACH)

    return {code: reach(place) for code, place in places.items()}


def find_towns(joined, census_spellings, populations):
    """Returns (folded name, state, name, inhabitants, ZIP codes) of each town, in the order of their names.

    Names that compare equal share one entry, in the Census's spelling or the most frequent one.
    """
    spellings = collections.Counter(row[:2] for row in joined.values())
    groups = collections.defaultdict(list)
    for code, (name, state, *_) in sorted(joined.items()):
        groups[fold(name), state].append(code)
    towns = []
    for (folded, state), codes in groups.items():
        used = max((joined[code][:2] for code in codes), key=lambda named: spellings[named])[0]
        name = census_spellings.get((folded, state), used)
        inhabitants = populations.get((folded, state)) or populations.get((folded + "city", state), 0)
        towns.append((folded, state, name, inhabitants, codes))
    return sorted(towns, key=lambda town: (town[0].encode(), -town[3], -len(town[4]), town[1]))


def pack_states(data, joined, state_names, towns):
    """Adds the tables of the states, the towns and the ZIP codes."""
    states, codes, reaches = sorted(state_names), sorted(joined), find_reaches(joined)
    index_of = {code: index for index, code in enumerate(codes)}
    town_of = {code: index for index, town in enumerate(towns) for code in town[4]}
    data.add(state.encode() + data.text(state_names[state]) for state in states)
    data.add(data.text(name) + population(inhabitants) + number(index_of[town_codes[0]], 2) +
             number(states.index(state), 1) for _, state, name, inhabitants, town_codes in towns)
    data.add(number(int(code), 3) + number(town_of[code], 2) + position(*joined[code][2:]) +
             number(round(reaches[code] * 4), 1) for code in codes)


def check_states(joined):
    """Fails if the data are not plausible."""
    assert FEWEST <= len(joined) <= MOST, f"{len(joined)} ZIP codes"
    for code, (name, state, latitude, longitude) in joined.items():
        assert re.fullmatch(r"\d{5}", code), code
        assert name and fold(name).isascii() and "\0" not in name, (code, name)
        assert any(south <= latitude <= north and west <= longitude <= east
                   for south, north, west, east in BOUNDS), (code, name, state, latitude, longitude)
    for code, point in WELL_KNOWN.items():
        far = distance(point, joined[code][2:])
        assert far < 10, f"{code} is {far:.0f} km off"
