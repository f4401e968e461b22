#!/usr/bin/python3
"""The demonstration feed: answers the program's requests on the local machine, independently of the live
feed and of the weather.

  /GetXml.aspx?partnerid=7e3a90d4&requesttype=6&ZipCode=CODE       alerts of a station
  ...&RequestType=501&SearchString=TEXT                            places with a name
  ...&requesttype=1&zipcode=CODE or &CityCode=CODE                 stations of a place

The alerts of a station are in feed/CODE.xml; a station without such a file has no alerts.
"""
import argparse
import http.server
import pathlib
import sys
import urllib.parse
from xml.sax.saxutils import quoteattr

from places import PLACES

PARTNER = "7e3a90d4"
FEED = pathlib.Path(__file__).resolve().parent / "feed"
HEAD = '<?xml version="1.0" encoding="utf-8"?>\n<aws:weather xmlns:aws="http://www.aws.com/aws">'
TAIL = "</aws:weather>\n"

# The stations around a place: (name, degrees north, degrees east, data source). The call letters of a
# station are in parentheses; a feed adds a space after them.
STATIONS = (
    ("{city} Middle School", 0.012, -0.021, "WeatherBug"),
    ("{city} Municipal Airport", -0.083, 0.064, "NWS"),
    ("Channel 9 News (K{initials}9 )", 0.041, 0.035, "WeatherBug"),
    ("{city} Fire Station No. 2", -0.027, -0.058, "WeatherBug"),
    ("{city} Public Library", 0.003, 0.009, "WeatherBug"),
    ("Lakeview Elementary School", 0.094, -0.044, "WeatherBug"),
)


def element(name, attributes):
    return f"<aws:{name}" + "".join(f" {k}={quoteattr(str(v))}" for k, v in attributes) + "/>"


def list_alerts(code):
    """Returns the alert document of a station. Only codes of digits are used as file names."""
    path = FEED / f"{code}.xml"
    if code.isascii() and code.isdigit() and path.is_file():
        return path.read_text(encoding="utf-8")
    return f"{HEAD}<aws:alerts/>{TAIL}"


def list_locations(text):
    """Returns the places whose names begin with the text, which may be "city, state"."""
    city, _, region = (part.strip().lower() for part in text.partition(","))
    found = []
    for name, where, code, by_zip, _, _ in PLACES:
        if city and name.lower().startswith(city) and where.lower().startswith(region):
            # The program shows the last region that is not empty: the state, if there is one.
            found.append(element("location", (
                ("cityname", name), ("countryname", "USA" if by_zip else where),
                ("statename", where if by_zip else ""),
                ("zipcode" if by_zip else "citycode", code), ("citytype", 0 if by_zip else 1))))
    return f"{HEAD}<aws:locations>{''.join(found)}</aws:locations>{TAIL}"


def list_stations(code, by_zip):
    """Returns the stations around a place. An unknown ZIP code gets the nearest known one's place."""
    places = [place for place in PLACES if place[3] == by_zip]
    place = next((p for p in places if p[2] == code), None)
    if place is None and by_zip and len(code) == 5 and code.isascii() and code.isdigit():
        place = min(places, key=lambda p: abs(int(p[2]) - int(code)))
    if place is None:
        return HEAD + TAIL
    city, region, _, _, latitude, longitude = place
    initials = "".join(c for c in city.upper() if c.isalpha())[:2]
    stations = []
    for number, (name, north, east, source) in enumerate(STATIONS):
        where = (("state", region), ("zipcode", code), ("station-type", source)) if by_zip else (
            ("country", region), ("city-code", code))
        stations.append(element("station", (
            ("id", f"{initials}{code[-3:]}{number}"),
            ("name", name.format(city=city, initials=initials)), ("city", city), *where,
            ("latitude", f"{latitude + north:.4f}"), ("longitude", f"{longitude + east:.4f}"))))
    return HEAD + "".join(stations) + TAIL


def answer(target):
    """Returns the document for a path with its query, or None if the request is invalid."""
    path, _, query = target.partition("?")
    fields = {k.lower(): v for k, v in urllib.parse.parse_qsl(query, keep_blank_values=True)}
    if path != "/GetXml.aspx" or fields.get("partnerid") != PARTNER:
        return None
    kind = fields.get("requesttype")
    if kind == "6" and "zipcode" in fields:
        return list_alerts(fields["zipcode"])
    if kind == "501" and "searchstring" in fields:
        return list_locations(fields["searchstring"])
    if kind == "1" and ("zipcode" in fields or "citycode" in fields):
        by_zip = "zipcode" in fields
        return list_stations(fields["zipcode" if by_zip else "citycode"], by_zip)
    return None


class Handler(http.server.BaseHTTPRequestHandler):
    def do_GET(self):
        document = answer(self.path)
        body = (document or "No such document.\n").encode()
        self.send_response(200 if document else 404)
        self.send_header("Content-Type", "text/xml; charset=utf-8" if document else "text/plain")
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)

    def log_message(self, form, *values):
        print(self.log_date_time_string(), form % values, file=self.server.log, flush=True)


def main():
    parser = argparse.ArgumentParser(description="Serves the demonstration feed on 127.0.0.1.")
    parser.add_argument("--port-file", help="file for the port number, written when the server is ready")
    parser.add_argument("--log", help="file for the request log, standard output by default")
    options = parser.parse_args()
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
    server.log = open(options.log, "a", encoding="utf-8") if options.log else sys.stdout
    print(f"http://127.0.0.1:{server.server_port}/", file=server.log, flush=True)
    if options.port_file:
        pathlib.Path(options.port_file).write_text(f"{server.server_port}\n")
    try:
        server.serve_forever()
    except KeyboardInterrupt:
        pass


if __name__ == "__main__":
    main()
