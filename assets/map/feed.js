// Reads the station feed that the program wrote into the page. The feed is not trusted: its texts are
// only compared, parsed as XML, or shown as text nodes.

// Returns the feed's text from the page's statement, a script string in double quotes. The program
// escaped the double quotes in it and removed the CR LF pairs, but left line feeds and backslashes,
// which would break or change the string. The statement is therefore never run: the text between
// the outer quotes is taken, and the inner quotes are restored.
function cutFeed(statement) {
    var start = statement.indexOf("\"") + 1;
    var end = statement.lastIndexOf("\"");
    return statement.substring(start, end).replace(/\\"/g, "\"");
}

// Returns the feed as an XML document, or null. The XML declaration is removed first: it may name an
// encoding, and the text is already decoded.
function parseFeed(text) {
    var xml = text.replace(/^[\s\uFEFF]*(<\?xml\s[^>]*\?>)?\s*/, "");
    try {
        return new window.DOMParser().parseFromString(xml, "text/xml");
    } catch (error) {
        return null;
    }
}

// Returns a coordinate in degrees, or NaN unless the text is a plain decimal number from -limit to
// limit.
function readDegrees(text, limit) {
    var degrees = /^\s*[-+]?(\d+\.?\d*|\.\d+)\s*$/.test(text) ? parseFloat(text) : NaN;
    return Math.abs(degrees) <= limit ? degrees : NaN;
}

// Returns the station that an element's attributes describe (by names without prefix), or null when
// its coordinates are unusable.
function readStation(element) {
    var values = {id: "", name: "", latitude: "", longitude: ""};
    var i, name, station;
    for (i = 0; i < element.attributes.length; i += 1) {
        name = element.attributes[i].nodeName;
        if (!/^xmlns(:|$)/.test(name)) {
            name = name.substring(name.indexOf(":") + 1);
            if (values.hasOwnProperty(name)) {
                values[name] = element.attributes[i].nodeValue;
            }
        }
    }
    station = {
        id: values.id,
        name: values.name,
        latitude: readDegrees(values.latitude, 90),
        longitude: readDegrees(values.longitude, 180)
    };
    return isNaN(station.latitude) || isNaN(station.longitude) ? null : station;
}

// Returns the stations of the feed in its order: the root's children that have the same name as the
// first one.
function readStations(statement) {
    var feed = parseFeed(cutFeed(statement));
    var root = feed && feed.documentElement;
    var stations = [];
    var node = root && root.nodeName === "aws:weather" ? root.firstChild : null;
    var kind, station;
    for (; node; node = node.nextSibling) {
        if (node.nodeType === 1) {
            kind = kind || node.nodeName;
            station = node.nodeName === kind ? readStation(node) : null;
            if (station) {
                stations.push(station);
            }
        }
    }
    return stations;
}
