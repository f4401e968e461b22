"""The US National Weather Service on loopback: replays recorded answers and reports the alerts of a test."""

import datetime
import email.utils
import json
import pathlib

from loopback import Server, answer, redirect

RECORDED = pathlib.Path(__file__).resolve().parent.parent / "downloader" / "recorded"
NOW = datetime.datetime.now(datetime.timezone.utc).replace(microsecond=0)


def recorded(name):
    return (RECORDED / name).read_bytes()


def moment(hours):
    return (NOW + datetime.timedelta(hours=hours)).isoformat()


def vtec(action, event):
    return [f"/O.{action}.{event}.000000T0000Z-{NOW:%y}1231T2100Z/"]


def alert(identifier, event, **more):
    """Returns a feature in the service's format, in force for an hour."""
    parameters = {"VTEC": more.pop("vtec")} if "vtec" in more else {}
    parameters |= {name: more.pop(name) for name in list(more) if name.endswith("Threat")}
    return {"type": "Feature", "geometry": None, "properties": {
        "id": identifier, "areaDesc": "Douglas, KS", "references": [], "sent": moment(-0.1),
        "expires": moment(1), "ends": None, "status": "Actual", "messageType": "Alert", "severity": "Severe",
        "certainty": "Likely", "urgency": "Immediate", "event": event, "headline": f"{event} headline",
        "description": "Text.", "instruction": None, "response": "Shelter",
        "parameters": parameters, **more}}


def collection(*features):
    return json.dumps({"type": "FeatureCollection", "features": features, "title": "Current"}).encode()


class WeatherService:
    def __init__(self):
        self.max_age = 0
        self.clock = 0  # hours by which the service's clock is ahead of this machine's
        self.alerts = collection()
        self.replies = []  # complete answers to the next requests
        self.server = Server(self.find_answer)
        self.feed = f"nws+http://127.0.0.1:{self.server.port}/"
        self.request = self.feed + "GetXml.aspx?partnerid=7e3a90d4&"

    def find_answer(self, head):
        target = head.split(" ")[1]
        if self.replies:
            return self.replies.pop(0)
        if target.startswith("/points/38.9904"):  # as for coordinates in a non-canonical form
            return redirect("/points/40.7128,-74.006", 301)
        if target.startswith("/points/-14"):
            return answer(404, recorded("problem-outside-us.json"), "Content-Type: application/problem+json")
        body = (recorded("point-nyc.json") if target.startswith("/points/") else
                recorded("stations-nyc-41.json") if target == "/gridpoints/OKX/33,35/stations" else
                self.alerts if target.startswith("/alerts/active?status=actual&zone=") else None)
        if body is None:
            return answer(404, b"{}")
        date = email.utils.format_datetime(NOW + datetime.timedelta(hours=self.clock), usegmt=True)
        return answer(200, body, f"Cache-Control: public, max-age={self.max_age}", f"Date: {date}")

    def targets(self):
        return self.server.targets()

    def alert_requests(self):
        return [target for target in self.targets() if target.startswith("/alerts/")]

    def close(self):
        self.server.close()
