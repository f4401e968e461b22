// Where texts go on the map: what they must leave free, and the place of the selected station's text.
// Boxes are in pixels of the map: left, top, right, bottom.
function boxAround(point, halfWidth, halfHeight) {
    return [point.x - halfWidth, point.y - halfHeight, point.x + halfWidth, point.y + halfHeight];
}

function overlaps(box, other) {
    return box[0] < other[2] && other[0] < box[2] && box[1] < other[3] && other[1] < box[3];
}

function isInView(box) {
    var size = map.getSize();
    return box[0] >= 0 && box[1] >= 0 && box[2] <= size.x && box[3] <= size.y;
}

// Returns the boxes of the markers in view, without the given one.
function findMarkerBoxes(without) {
    var radius = markerRadius(), size = map.getSize();
    var view = [0, 0, size.x, size.y];
    return markers.filter(function (marker) {
        return marker !== without;
    }).map(function (marker) {
        return boxAround(map.latLngToContainerPoint(marker.getLatLng()), radius, radius);
    }).filter(function (box) {
        return overlaps(box, view);
    });
}

// Returns the boxes of the buttons, the scale and the sources.
function findControlBoxes() {
    var corner = map.getContainer().getBoundingClientRect();
    return Array.prototype.map.call(document.querySelectorAll(".leaflet-control"), function (control) {
        var rect = control.getBoundingClientRect();
        var left = corner.left + map.getContainer().clientLeft, top = corner.top + map.getContainer().clientTop;
        return [rect.left - left, rect.top - top, rect.right - left, rect.bottom - top];
    });
}

// Returns the offsets of a label's middle from its marker, the best first: beside it, above and below
// it, then shifted along its sides and further away.
function findLabelOffsets(halfWidth, halfHeight) {
    var offsets = [];
    [12, 20, 32, 48].forEach(function (gap) {
        [0, -0.3, 0.3, -0.7, 0.7, -1, 1].forEach(function (shift) {
            var x = halfWidth + gap, y = halfHeight + gap;
            offsets.push([x, shift * y], [-x, shift * y], [shift * x, -y], [shift * x, y]);
        });
    });
    return offsets;
}

// The box of the selected station's text, or null while its marker is out of view.
var selectedTextBox = null;

// Moves the text of the selected marker to where it is whole and covers the fewest other markers and
// controls.
function placeSelectedText() {
    var tooltip = selectedMarker && selectedMarker.getTooltip();
    var element = tooltip && tooltip.getElement();
    var point, halfWidth, halfHeight, taken, least = Infinity, best = null;
    selectedTextBox = null;
    if (!element) {
        return;
    }
    point = map.latLngToContainerPoint(selectedMarker.getLatLng());
    element.style.visibility = map.getSize().contains(point) && point.x >= 0 && point.y >= 0 ? "" : "hidden";
    if (element.style.visibility) {
        return;
    }
    wrapText(element.firstChild);
    halfWidth = element.offsetWidth / 2;
    halfHeight = element.offsetHeight / 2;
    taken = findMarkerBoxes(selectedMarker).concat(findControlBoxes());
    findLabelOffsets(halfWidth, halfHeight).forEach(function (offset) {
        var box = boxAround(point.add(offset), halfWidth, halfHeight);
        var covered = taken.filter(function (other) {
            return overlaps(box, other);
        }).length;
        if (isInView(box) && covered < least) {
            least = covered;
            best = offset;
            selectedTextBox = box;
        }
    });
    if (best) {
        tooltip.options.offset = L.point(best);
        tooltip.update();
    }
}

// Sets the width of a text, so that a long one wraps: the pane around it has no width to wrap to.
function wrapText(span) {
    var longest = Math.min(270, map.getSize().x / 2 - 34);  // fits beside a marker in the middle
    span.style.width = "auto";
    span.style.whiteSpace = "nowrap";
    span.style.width = Math.ceil(Math.min(span.getBoundingClientRect().width, longest)) + "px";
    span.style.whiteSpace = "normal";
}
