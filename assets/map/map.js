// Draws the stations on outlines of land and states, and talks with the program: it calls
// setMapCenter through a hidden image that it writes into the element "ResetCenter", and reads
// the element "SVSelectedCity", which holds the identifier of the station last clicked.

var unitedStates = [[24.4, -124.9], [49.5, -66.9]];  // south west and north east, in degrees
var closestFit = 10;       // zoom that fitting several stations stops at
var closestFitOfOne = 7;   // the same for a single one: its state's lines stay in sight
var dotStyle = {stroke: true, color: "#ffffff", weight: 1.5, fillColor: "#1d5f8f", fillOpacity: 1};
var selectedStyle = {stroke: true, color: "#2a0f06", weight: 2, fillColor: "#e0561f", fillOpacity: 1};

var map, stations, dots, selectedDot, dotCanvas;
var pageZoom;  // the zoom that the page itself chose last

// Lines and rings come as differences in hundredths of a degree: x, y, then steps from there.
function decodeOutlines(paths) {
    return paths.map(function (steps) {
        var points = [];
        var x = 0, y = 0, i;
        for (i = 0; i < steps.length; i += 2) {
            x += steps[i];
            y += steps[i + 1];
            points.push([y / 100, x / 100]);
        }
        return points;
    });
}

function drawOutlines() {
    var canvas = L.canvas({pane: "tilePane"});
    function style(color, weight, fillColor) {
        return {
            renderer: canvas, pane: "tilePane", interactive: false, color: color, weight: weight,
            fill: !!fillColor, fillColor: fillColor, fillOpacity: 1, smoothFactor: 0.8
        };
    }
    L.polygon(decodeOutlines(outlines.land), style("#a9b9c2", 1, "#ebe9e2")).addTo(map);
    L.polyline(decodeOutlines(outlines.borders), style("#c6c1b4", 1)).addTo(map);
    L.polygon(decodeOutlines(outlines.states), style("#93a4ae", 1, "#faf8f2")).addTo(map);
    L.polyline(decodeOutlines(outlines.stateLines), style("#bdb6a6", 1)).addTo(map);
}

// The name as an element to show: built as a text node, so nothing in it can act.
function makeNameElement(dot) {
    var element = document.createElement("span");
    element.appendChild(document.createTextNode(dot.station.name));
    return element;
}

function dotRadius() {
    return stations.length > 100 ? 4.5 : 6;
}

// Shows a station's name while the pointer is on it, and for as long as it is selected.
function bindName(dot, isSelected) {
    dot.unbindTooltip();
    dot.bindTooltip(makeNameElement, {
        permanent: isSelected, className: isSelected ? "selected" : "", offset: [isSelected ? 10 : 6, 0]
    });
}

function selectDot(dot) {
    if (dot === selectedDot) {
        return;
    }
    if (selectedDot) {
        selectedDot.setStyle(dotStyle).setRadius(dotRadius());
        bindName(selectedDot, false);
    }
    selectedDot = dot;
    dot.setStyle(selectedStyle).setRadius(9).bringToFront();
    bindName(dot, true);
}

// What the program reads. The element is not there before the program first centres the map.
function tellClicked(text) {
    var element = document.getElementById("SVSelectedCity");
    if (!element) {
        element = document.createElement("div");
        element.id = "SVSelectedCity";
        document.body.appendChild(element);
    }
    while (element.firstChild) {
        element.removeChild(element.firstChild);
    }
    element.appendChild(document.createTextNode(text));
}

function drawStation(station) {
    var dot = L.circleMarker([station.latitude, station.longitude],
        L.extend({renderer: dotCanvas, radius: dotRadius()}, dotStyle));
    dot.station = station;
    bindName(dot, false);
    dot.on("click", function () {
        selectDot(dot);
        tellClicked(station.id);
    });
    return dot.addTo(map);
}

function stationBounds() {
    return stations.length === 0 ? L.latLngBounds(unitedStates)
        : L.latLngBounds(stations.map(function (station) {
            return [station.latitude, station.longitude];
        }));
}

function closestZoom() {
    return stations.length === 1 ? closestFitOfOne : closestFit;
}

function showAll() {
    map.fitBounds(stationBounds(), {
        animate: false, maxZoom: closestZoom(),
        paddingTopLeft: [46, 14], paddingBottomRight: [14, 44]  // clear of the buttons and the scale
    });
    pageZoom = map.getZoom();
}

// Centres a place. The zoom is the page's choice until a person changes it: one at which every
// station stays in sight whichever of them is in the middle.
function showPlace(place) {
    var isPageZoom = map.getZoom() === pageZoom;
    var zoomOfHalf = map.getBoundsZoom(stationBounds(), false, L.point(40, 40)) - 1;
    if (isPageZoom && stations.length > 0) {
        pageZoom = Math.max(Math.min(zoomOfHalf, closestZoom()), map.getMinZoom());
    }
    map.setView(place, isPageZoom ? pageZoom : map.getZoom(), {animate: false});
}

// The station at a place, else the one nearest to it; the selected one where several are as near.
function findNearest(place) {
    var nearest = null, least = Infinity;
    dots.forEach(function (dot) {
        var distance = place.distanceTo(dot.getLatLng());
        if (distance < least || (distance === least && dot === selectedDot)) {
            nearest = dot;
            least = distance;
        }
    });
    return nearest;
}

// Called by the program's image with the coordinates of the station selected in its list, as
// text in degrees, or with nothing for the view of all stations. Others are ignored.
function setMapCenter(latitude, longitude) {
    var place;
    if (!map) {
        return;
    }
    if (arguments.length === 0) {
        showAll();
        return;
    }
    place = {lat: readDegrees(latitude, 90), lng: readDegrees(longitude, 180)};
    if (isNaN(place.lat) || isNaN(place.lng)) {
        return;
    }
    place = L.latLng(place.lat, place.lng);
    showPlace(place);
    if (dots.length > 0) {
        selectDot(findNearest(place));
    }
    // The program looks only for a text other than the last, which it keeps from search to search:
    // with a blank in between, a second click on the same station counts again.
    tellClicked(" ");
}

function addControls() {
    var ShowAllControl = L.Control.extend({
        onAdd: function () {
            var bar = L.DomUtil.create("div", "leaflet-bar");
            var link = L.DomUtil.create("a", "showAll", bar);
            link.href = "#";
            link.title = "Show all stations";
            link.setAttribute("role", "button");
            link.appendChild(document.createTextNode("All"));
            L.DomEvent.disableClickPropagation(bar);
            L.DomEvent.on(link, "click", function (event) {
                L.DomEvent.preventDefault(event);
                showAll();
            });
            return bar;
        }
    });
    var NoticeControl = L.Control.extend({
        onAdd: function () {
            var notice = L.DomUtil.create("div", "notice");
            notice.appendChild(document.createTextNode("No stations to show"));
            return notice;
        }
    });
    map.addControl(stations.length > 0 ? new ShowAllControl({position: "topleft"})
        : new NoticeControl({position: "topright"}));
    map.addControl(L.control.scale({maxWidth: 100}));
    map.attributionControl.setPrefix("Leaflet");
    map.attributionControl.addAttribution("Outlines: Natural Earth, US Census Bureau");
}

function start() {
    var feed = document.getElementById("StationFeed");
    stations = readStations(feed.textContent);
    // The program reads the whole body twenty times a second: the feed need not be in it.
    feed.parentNode.removeChild(feed);
    map = L.map("StationMap", {
        minZoom: 0, maxZoom: 13, keyboardPanDelta: 60, zoomSnap: 0.25,
        center: [38, -96], zoom: 3
    });
    drawOutlines();
    dotCanvas = L.canvas({tolerance: 3});
    dots = stations.map(drawStation);
    addControls();
    showAll();
    map.on("resize", function () {
        showPlace(map.getCenter());
    });
}

window.setMapCenter = setMapCenter;
// The browser's own menu would lead away from the page, or print and show its source.
document.oncontextmenu = function () {
    return false;
};
if (document.addEventListener) {
    document.addEventListener("DOMContentLoaded", start, false);
}
