"""A public alert server on loopback: lists the alerts of a test and sends their CAP documents."""

import datetime
import email.utils
import json
import uuid
from xml.sax.saxutils import escape

from loopback import Server, answer, redirect
from weather_service import NOW, moment

AREA = "/alert/area?"


def info(event="Thunderstorm", **more):
    """Returns an info block; a value of None omits the element."""
    facts = {"language": "en", "category": "Met", "event": event, "responseType": "Shelter",
             "urgency": "Immediate", "severity": "Severe", "certainty": "Likely", "expires": moment(1),
             "senderName": "Weather Office", "headline": f"{event} headline", "description": "Text.",
             "area": "<areaDesc>City</areaDesc>", **more}
    elements = "".join(f"<{name}>{value if name in ('area', 'parameter') else escape(value)}</{name}>"
                       for name, value in facts.items() if value is not None)
    return f"<info>{elements}</info>"


def cap(identifier, *infos, **more):
    """Returns a document in force for an hour."""
    facts = {"identifier": identifier, "sender": "office@example", "sent": moment(-0.1), "status": "Actual",
             "msgType": "Alert", "scope": "Public", **more}
    head = "".join(f"<{name}>{escape(value)}</{name}>" for name, value in facts.items() if value is not None)
    return (f'<?xml version="1.0" encoding="UTF-8"?><alert xmlns="urn:oasis:names:tc:emergency:cap:1.2">'
            f"{head}{''.join(infos)}</alert>").encode()


class AlertServer:
    def __init__(self, us_port):
        self.max_age = 0
        self.clock = 0  # hours by which the server's clock is ahead of this machine's
        self.documents = {}  # by identifier
        self.failures = {}  # complete answers by a part of the target
        self.server = Server(self.find_answer)
        self.host = f"127.0.0.1:{self.server.port}"
        self.request = f"fpas+http://{self.host}/GetXml.aspx?partnerid=7e3a90d4&"
        self.feed = f"live+http://127.0.0.1:{us_port},{self.host}/"
        self.live = self.feed + "GetXml.aspx?partnerid=7e3a90d4&"

    def set(self, *documents):
        """Replaces the alerts; None is a document that is listed but no longer exists."""
        self.documents = {str(uuid.uuid4()): document for document in documents}
        return list(self.documents)

    def find_answer(self, head):
        target = head.split(" ")[1]
        for part, reply in self.failures.items():
            if part in target:
                return reply
        if target.startswith(AREA):
            date = email.utils.format_datetime(NOW + datetime.timedelta(hours=self.clock), usegmt=True)
            return answer(200, json.dumps(list(self.documents)).encode(), f"Date: {date}",
                          f"Cache-Control: max-age={self.max_age}", "Content-Type: application/json")
        name = target.rpartition("/")[2].removesuffix(".xml")
        document = self.documents.get(name)
        if document is None:
            return answer(404, b"not found")
        if not target.endswith(".xml"):
            return redirect(f"/media/{name}.xml", 301)
        return answer(200, document, "Content-Type: application/xml")

    def targets(self):
        return self.server.targets()

    def close(self):
        self.server.close()
