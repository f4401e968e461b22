"""The cities of countries other than the United States."""
import collections
import json
import pathlib
import re
import unicodedata

from folding import fold, name_hash
from states import distance
from tables import number, population, position

TERRITORIES = {"AS", "GU", "MP", "PR", "VI"}  # of the United States: their ZIP codes are in the gazetteer
FEWEST_INHABITANTS = 5000
FEWEST, MOST = 41_000, 45_000  # cities
# Names of countries that countries-list writes without their accents.
ACCENTED = {"AX": "Åland", "BL": "Saint Barthélemy", "CW": "Curaçao", "RE": "Réunion", "ST": "São Tomé and Príncipe"}
# Other names that people search for.
OTHER_COUNTRY_NAMES = {"AE": "UAE", "CD": "Congo", "CV": "Cape Verde", "CZ": "Czech Republic", "GB": "UK",
                       "MK": "Macedonia", "MM": "Burma", "NL": "Holland", "SZ": "Swaziland", "TL": "Timor-Leste",
                       "TR": "Turkey"}
# The scripts other than Latin in which countries write names.
SCRIPTS = {script: countries.split() for script, countries in {
    "ARABIC": "AE AF BH DJ DZ EG EH IL IQ IR JO KM KW LB LY MA MR OM PK PS QA SA SD SO SY TD TN YE",
    "ARMENIAN": "AM", "BENGALI": "BD IN", "CJK": "CN HK JP MO SG TW",
    "CYRILLIC": "BA BG BY KG KZ MD ME MK MN RS RU TJ UA UZ XK", "DEVANAGARI": "IN NP", "ETHIOPIC": "ER ET",
    "GEORGIAN": "GE", "GREEK": "CY GR", "GUJARATI": "IN", "GURMUKHI": "IN", "HANGUL": "KP KR", "HEBREW": "IL",
    "HIRAGANA": "JP", "KANNADA": "IN", "KATAKANA": "JP", "KHMER": "KH", "LAO": "LA", "MALAYALAM": "IN",
    "MYANMAR": "MM", "ORIYA": "IN", "SINHALA": "LK", "TAMIL": "IN LK", "TELUGU": "IN", "THAANA": "MV", "THAI": "TH",
}.items()}
FEWEST_NAMES = 35  # of a well-known city
# Cities with the same name and region get the name of a nearby city with at least this many inhabitants added.
FEWEST_NEAR = 20_000
WELL_KNOWN = {2988507: ("Paris", "France"), 2657896: ("Zürich", "Switzerland"), 3093133: ("Łódź", "Poland"),
              3448439: ("São Paulo", "Brazil"), 745044: ("Istanbul", "Türkiye"), 2761369: ("Vienna", "Austria"),
              6058560: ("London", "Canada"), 1850147: ("Tokyo", "Japan"), 2147714: ("Sydney", "Australia")}

City = collections.namedtuple("City", "number name country region population latitude longitude")


def read_varint(data, at):
    """Returns the number of variable length at a position, and the position after it."""
    value = shift = 0
    while True:
        byte = data[at]
        value |= (byte & 0x7F) << shift
        at, shift = at + 1, shift + 7
        if byte < 0x80:
            return value, at


def read_fields(message):
    """Yields the fields of a protocol buffer's message: (number, value), an integer or bytes."""
    at = 0
    while at < len(message):
        key, at = read_varint(message, at)
        value, at = read_varint(message, at)
        if key & 7 == 2:  # a length
            at, value = at + value, message[at:at + value]
        yield key >> 3, value


def read_messages(data):
    """Yields the messages, each with its length before it."""
    at = 0
    while at < len(data):
        size, at = read_varint(data, at)
        yield data[at:at + size]
        at += size


def read_cities(path):
    """Returns the cities of cities.pbf. A position is the difference from the one before it."""
    def signed(value):
        return value >> 1 ^ -(value & 1)

    cities, latitude, longitude = [], 0, 0
    for message in read_messages(pathlib.Path(path).read_bytes()):
        fields = dict(read_fields(message))
        longitude, latitude = longitude + signed(fields[10]), latitude + signed(fields[11])
        name, country, region = (fields[at].decode() for at in (2, 3, 8))
        cities.append(City(signed(fields[1]), name, country, region, fields.get(9, 0), latitude / 1e5,
                           longitude / 1e5))
    return cities


def find_populations(cities):
    """Returns {(folded name, state): inhabitants} for the United States and their territories."""
    populations = {}
    for city in cities:
        if city.country == "US" or city.country in TERRITORIES:
            key = fold(city.name), city.region if city.country == "US" else city.country
            populations[key] = max(populations.get(key, 0), city.population)
    return populations


def find_cities_abroad(cities):
    """Returns the cities in the order of their names."""
    abroad = [city for city in cities if city.country != "US" and city.country not in TERRITORIES and
              city.population >= FEWEST_INHABITANTS]
    return sorted(abroad, key=lambda city: (fold(city.name).encode(), -city.population, city.number))


def read_countries(path):
    return json.loads(pathlib.Path(path).read_text(encoding="utf-8")) | ACCENTED


def read_regions(path):
    """Returns {(country, code): name}."""
    rows = json.loads(pathlib.Path(path).read_text(encoding="utf-8"))
    return {tuple(row["code"].split(".", 1)): row["name"] for row in rows}


def find_near(city, cities, taken):
    """Returns the name of the nearest larger city in the country whose name is not taken."""
    larger = [other for other in cities if other.country == city.country and other.name not in taken and
              other.population >= max(FEWEST_NEAR, city.population)]
    return min(larger, key=lambda other: distance((city.latitude, city.longitude), (other.latitude, other.longitude)),
               default=city).name


def name_regions(cities, regions):
    """Returns {number: (name of the region, whether it is shown)}.

    It is shown if the country has several cities of the name. If the region has several too, or if its name is
    not known, the nearest larger city follows it: "Bavaria near Munich".
    """
    named = {city.number: (regions.get((city.country, city.region), ""), False) for city in cities}
    namesakes = collections.defaultdict(list)
    for city in cities:
        namesakes[fold(city.name), city.country].append(city)
    for group in namesakes.values():
        counts = collections.Counter(named[city.number][0] for city in group)
        taken = {city.name for city in group}
        for city in group if len(group) > 1 else []:
            region = named[city.number][0]
            if counts[region] > 1 or not region:
                near = find_near(city, cities, taken)
                taken.add(near)
                region = f"{region} near {near}".strip()
            named[city.number] = region, True
    return named


def find_script(name):
    """Returns the script of the first letter, as Unicode names it."""
    return next((unicodedata.name(char, "?").split()[0] for char in name if char.isalpha()), "?")


def find_other_names(path, cities):
    """Returns sorted (hash of the folded name, index of the city) of the cities' other names.

    All of them would take too much space, so only names in a script of the country are kept, and, for well-known
    cities, names in Latin letters. Airport codes are skipped, and so are transcriptions in lower case, which are
    not in use.
    """
    index_of, found = {city.number: index for index, city in enumerate(cities)}, set()
    for line in pathlib.Path(path).read_text(encoding="utf-8").splitlines():
        row = line.split("\t")
        index = index_of.get(int(row[0]))
        if index is None:
            continue
        city, all_names, names = cities[index], row[3].split(","), {}
        for name in all_names:
            folded = fold(name)
            if folded not in ("", fold(city.name)) and not re.match(r"[a-z]|[A-Z]{3,4}$", name):
                names[folded] = find_script(name)
        is_known = len(all_names) >= FEWEST_NAMES or row[7] == "PPLC"  # a capital
        found |= {(name_hash(folded), index) for folded, script in names.items()
                  if (is_known if script == "LATIN" else city.country in SCRIPTS.get(script, ()))}
    return sorted(found)


def pack_world(data, cities, country_names, regions, other_names):
    """Adds the tables of the countries, the regions, the cities and their other names."""
    countries = sorted({city.country for city in cities})
    region_names = name_regions(cities, regions)
    keys = [(city.country, region_names[city.number][0]) for city in cities]
    region_index = {key: index for index, key in enumerate(sorted(set(keys)))}
    data.add(country.encode() + data.text(country_names[country]) + data.text(OTHER_COUNTRY_NAMES.get(country, ""))
             for country in countries)
    data.add(data.text(region) + number(countries.index(country), 1) for country, region in region_index)
    data.add(data.text(city.name) + population(city.population) +
             number(region_index[key] | region_names[city.number][1] << 15, 2) + number(city.number, 3) +
             position(city.latitude, city.longitude) for city, key in zip(cities, keys))
    data.add(number(hashed, 4) + number(index, 2) for hashed, index in other_names)


def check_world(cities, country_names):
    """Fails if the data are not plausible."""
    assert FEWEST <= len(cities) <= MOST, f"{len(cities)} cities"
    for city in cities:
        assert fold(city.name) and "\0" not in city.name, city
        assert abs(city.latitude) <= 90 and abs(city.longitude) <= 180, city
    known = {city.number: (city.name, country_names[city.country]) for city in cities}
    for city_number, expected in WELL_KNOWN.items():
        assert known[city_number] == expected, (known[city_number], expected)
