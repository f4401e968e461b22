// Reads the station feed that the program wrote into the page. Every text in it comes from
// outside: it is only ever compared, parsed as XML or shown as a text node.

// The feed's own text. It stands in the page inside a script string delimited by double quotes, in
// which the program wrote each double quote as backslash + double quote, and left all else as it
// was but for the CR LF pairs, which it took out. Line feeds and backslashes would break such a
// string or change it, so it is never run: it is cut out between its outer quotes, and the inner
// ones are put back.
function cutFeed(statement) {
    var start = statement.indexOf("\"") + 1;
    var end = statement.lastIndexOf("\"");
    return statement.substring(start, end).replace(/\\"/g, "\"");
}

// The feed as an XML document; null when it is none. The XML declaration goes first: it may name an
// encoding that a text already decoded no longer has.
function parseFeed(text) {
    var xml = text.replace(/^[\s\uFEFF]*(<\?xml\s[^>]*\?>)?\s*/, "");
    try {
        return new window.DOMParser().parseFromString(xml, "text/xml");
    } catch (error) {
        return null;
    }
}

// A coordinate in degrees; NaN unless the text is a plain decimal number from -limit to limit.
function readDegrees(text, limit) {
    var degrees = /^\s*[-+]?(\d+\.?\d*|\.\d+)\s*$/.test(text) ? parseFloat(text) : NaN;
    return Math.abs(degrees) <= limit ? degrees : NaN;
}

// The name as the program's station list shows it: of "Downtown (KABC )" only "KABC". The last
// character in the brackets goes whatever it is, because the feed's bracketed names end in a blank.
// Where nothing is left of it the list's row is empty; a dot has no other column that could name it,
// so it keeps the whole name.
function shortenName(name) {
    var inside = /^[^(]*\(([^)]*)\)/.exec(name);
    return inside && inside[1].replace(/(?:[\uD800-\uDBFF][\uDC00-\uDFFF]|[\s\S])$/, "") || name;
}

// The station that an element's attributes describe, by their names without prefix; null when it
// has no usable place.
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
        name: shortenName(values.name),
        latitude: readDegrees(values.latitude, 90),
        longitude: readDegrees(values.longitude, 180)
    };
    return isNaN(station.latitude) || isNaN(station.longitude) ? null : station;
}

// The stations of the feed, in its order: the root's children that are named as the first one is.
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
