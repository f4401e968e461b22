// The markers of the stations: their looks, their text, and which one is selected.

var markerStyle = {stroke: true, color: "#ffffff", weight: 1.5, fillColor: "#1d5f8f", fillOpacity: 1};
var selectedStyle = {stroke: true, color: "#2a0f06", weight: 2, fillColor: "#e0561f", fillOpacity: 1};

var markers, selectedMarker, markerCanvas;

// Returns the name as the program's station list shows it: of "Downtown (KABC )" only "KABC". The last
// character in the parentheses is always removed, because the feed ends that part with a space. When
// nothing is left the list shows an empty name; a marker then keeps the whole name.
function shortenName(name) {
    var inside = /^[^(]*\(([^)]*)\)/.exec(name);
    return inside && inside[1].replace(/(?:[\uD800-\uDBFF][\uDC00-\uDFFF]|[\s\S])$/, "") || name;
}

// Returns the text of a marker as a text node in an element, so that markup in a name has no effect.
function makeMarkerText(marker) {
    var element = document.createElement("span");
    element.appendChild(document.createTextNode(shortenName(marker.station.name)));
    return element;
}

// Shows the text while the pointer is on the marker, and for as long as the marker is selected.
function bindMarkerText(marker, isSelected) {
    marker.unbindTooltip();
    marker.bindTooltip(makeMarkerText(marker), {
        permanent: isSelected, className: isSelected ? "selected" : "", offset: [isSelected ? 0 : 6, 0],
        direction: isSelected ? "center" : "auto"
    });
}

// Returns the radius in pixels of a marker that is not selected.
function markerRadius() {
    return stations.length > 100 ? 4.5 : 6;
}

function selectMarker(marker) {
    if (marker === selectedMarker) {
        return;
    }
    if (selectedMarker) {
        selectedMarker.setStyle(markerStyle).setRadius(markerRadius());
        bindMarkerText(selectedMarker, false);
    }
    selectedMarker = marker;
    marker.setStyle(selectedStyle).setRadius(9).bringToFront();
    bindMarkerText(marker, true);
    arrangeLabels();
}

// Draws a station's marker and returns it. A click selects it and calls onClick with the station.
function drawMarker(station, onClick) {
    var marker = L.circleMarker([station.latitude, station.longitude],
        L.extend({renderer: markerCanvas, radius: markerRadius()}, markerStyle));
    marker.station = station;
    bindMarkerText(marker, false);
    marker.on("click", function () {
        selectMarker(marker);
        onClick(station);
    });
    return marker.addTo(map);
}

function drawMarkers(onClick) {
    markerCanvas = L.canvas({tolerance: 3});
    markers = stations.map(function (station) {
        return drawMarker(station, onClick);
    });
}

// Returns the marker nearest to a place, or null. Among equally near ones the selected marker wins.
function findNearestMarker(place) {
    var nearest = null, least = Infinity;
    markers.forEach(function (marker) {
        var distance = place.distanceTo(marker.getLatLng());
        if (distance < least || (distance === least && marker === selectedMarker)) {
            nearest = marker;
            least = distance;
        }
    });
    return nearest;
}
