// The map: outlines of land, states and counties, the view, and the interface to the program. The program calls
// setMapCenter through a hidden image that it writes into the element "ResetCenter", and reads the
// identifier of the station last clicked from the element "SVSelectedCity".

var unitedStates = [[24.4, -124.9], [49.5, -66.9]];  // south west and north east, in degrees
var closestZoomOfSeveral = 9.25;  // as in towns.mjs
var closestZoomOfOne = 7;  // the borders of its state stay in sight
var countyZoom = 6.5;  // the least zoom that shows the county lines

var map, stations;
var pageZoom;  // the last zoom that the page chose, not the user

function drawOutlines() {
    var canvas = L.canvas({pane: "tilePane"});
    var counties;
    function style(color, weight, fillColor) {
        return {
            renderer: canvas, pane: "tilePane", interactive: false, color: color, weight: weight,
            fill: !!fillColor, fillColor: fillColor, fillOpacity: 1, smoothFactor: 0.8
        };
    }
    L.polygon(decodePaths(outlines.land), style("#a9b9c2", 1, "#ebe9e2")).addTo(map);
    L.polyline(decodePaths(outlines.borders), style("#c6c1b4", 1)).addTo(map);
    L.polygon(decodePaths(outlines.states), style("#93a4ae", 1, "#faf8f2")).addTo(map);
    L.polyline(decodePaths(outlines.stateLines), style("#a9a18f", 1.5)).addTo(map);
    function showCounties() {
        if (map.getZoom() >= countyZoom) {
            counties = counties || L.polyline(decodePaths(outlines.countyLines), style("#d6d0c1", 1));
            map.addLayer(counties);
        } else if (counties) {
            map.removeLayer(counties);
        }
    }
    map.on("zoomend", showCounties);
    showCounties();
}

// Sets the text that the program reads. The element does not exist until the program first centres the
// map.
function setClickedText(text) {
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

function stationBounds() {
    return stations.length === 0 ? L.latLngBounds(unitedStates)
        : L.latLngBounds(stations.map(function (station) {
            return [station.latitude, station.longitude];
        }));
}

function closestZoom() {
    return stations.length === 1 ? closestZoomOfOne : closestZoomOfSeveral;
}

function showAll() {
    map.fitBounds(stationBounds(), {
        animate: false, maxZoom: closestZoom(),
        paddingTopLeft: [46, 14], paddingBottomRight: [14, 44]  // clear of the buttons and the scale
    });
    pageZoom = map.getZoom();
}

// Places the text of the selected station, then the names of towns in the space that is left.
function arrangeLabels() {
    placeSelectedText();
    drawTowns();
}

// Centres a place. Until the user changes the zoom, the page chooses one at which every station stays
// in sight whichever of them is centred.
function showPlace(place) {
    var isPageZoom = map.getZoom() === pageZoom;
    var zoomOfHalf = map.getBoundsZoom(stationBounds(), false, L.point(40, 40)) - 1;
    if (isPageZoom && stations.length > 0) {
        pageZoom = Math.max(Math.min(zoomOfHalf, closestZoom()), map.getMinZoom());
    }
    map.setView(place, isPageZoom ? pageZoom : map.getZoom(), {animate: false});
}

// Called by the program's image with the coordinates of the station selected in its list, as texts in
// degrees, or without arguments for the view of all stations. Unusable coordinates are ignored.
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
    if (markers.length > 0) {
        selectMarker(findNearestMarker(place));
    }
    // The program reacts only to a text that differs from the last one, which it keeps between
    // searches. The space lets a second click on the same station count again.
    setClickedText(" ");
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
    map.attributionControl.addAttribution("Natural Earth, US Census Bureau, GeoNames");
}

function start() {
    var feed = document.getElementById("StationFeed");
    stations = readStations(feed.textContent);
    // The program reads the whole body twenty times a second, so the body stays short.
    feed.parentNode.removeChild(feed);
    map = L.map("StationMap", {minZoom: 0, maxZoom: 13, keyboardPanDelta: 60, zoomSnap: 0.25});
    showAll();  // first, because each later change of the zoom projects the outlines again
    drawOutlines();
    drawMarkers(function (station) {
        setClickedText(station.id);
    });
    addControls();
    createTownLayer();
    map.on("moveend", arrangeLabels);
    arrangeLabels();
    map.on("resize", function () {
        showPlace(map.getCenter());
    });
}

window.setMapCenter = setMapCenter;
// The browser's own menu could leave the page, print it, or show its source.
document.oncontextmenu = function () {
    return false;
};
if (document.addEventListener) {
    document.addEventListener("DOMContentLoaded", start, false);
}
