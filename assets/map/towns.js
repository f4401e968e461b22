// The names of towns. A town is drawn where its name overlaps no station, no text and no larger town.

var townZooms = [0, 4, 4.5, 5.5];  // the least zoom of each class, the class of the largest first
var townSpacing = 12;  // pixels between names while the map is farther than the closest fit
var townHalfHeight = 7;  // pixels
var townFont = "11px \"Segoe UI\", Tahoma, Arial, sans-serif";
var mostTownsNamed = 20;  // in the map's description

var towns, townCanvas;

function createTownLayer() {
    var pane = map.createPane("towns");
    pane.style.zIndex = 350;  // over the outlines, under the stations
    pane.style.pointerEvents = "none";
    townCanvas = L.DomUtil.create("canvas", "leaflet-zoom-hide", pane);
    towns = [];
    townClasses.forEach(function (members, i) {
        var names = members.names.split(",");
        decodePath(members.path).forEach(function (place, j) {
            towns.push({name: names[j], place: place, zoom: townZooms[i]});
        });
    });
}

// Returns the towns that may be named in the current view.
function findTownsInView() {
    var bounds = map.getBounds();
    var south = bounds.getSouth(), north = bounds.getNorth(), west = bounds.getWest(), east = bounds.getEast();
    var zoom = map.getZoom();
    return towns.filter(function (town) {
        return town.zoom <= zoom && town.place[0] > south && town.place[0] < north
            && town.place[1] > west && town.place[1] < east;
    });
}

// Sizes the canvas to the map, clears it, and returns its context in pixels of the map.
function prepareTownCanvas() {
    var size = map.getSize(), ratio = window.devicePixelRatio || 1;
    var context = townCanvas.getContext("2d");
    townCanvas.width = Math.round(size.x * ratio);
    townCanvas.height = Math.round(size.y * ratio);
    townCanvas.style.width = size.x + "px";
    townCanvas.style.height = size.y + "px";
    L.DomUtil.setPosition(townCanvas, map.containerPointToLayerPoint([0, 0]));
    context.scale(ratio, ratio);
    context.font = townFont;
    context.textAlign = "center";
    context.textBaseline = "middle";
    context.lineJoin = "round";
    context.lineWidth = 3;
    context.strokeStyle = "#faf8f2";
    context.fillStyle = "#5a5445";
    return context;
}

// Returns the middle of a town's name: on the town, or near it. Returns null when each place is taken.
function findTownPlace(town, halfWidth, taken, spacing) {
    var point = map.latLngToContainerPoint(town.place);
    var beside = halfWidth + 10;
    var places = [[0, 0], [0, -14], [0, 14], [beside, 0], [-beside, 0], [0, -22], [0, 22]].map(function (offset) {
        return point.add(offset);
    }).filter(function (middle) {
        var box = boxAround(middle, halfWidth, townHalfHeight);
        var wide = boxAround(middle, halfWidth + spacing, townHalfHeight + spacing);
        return isInView(box) && !taken.fixed.some(overlaps.bind(null, box))
            && !taken.names.some(overlaps.bind(null, wide));
    });
    return places[0] || null;
}

function drawTowns() {
    var context = prepareTownCanvas();
    var spacing = map.getZoom() < closestZoomOfSeveral ? townSpacing : 0;
    var taken = {
        fixed: findMarkerBoxes(null).concat(findControlBoxes(), selectedTextBox ? [selectedTextBox] : []), names: []
    };
    var drawn = [];
    findTownsInView().forEach(function (town) {
        var halfWidth = context.measureText(town.name).width / 2 + 2;
        var middle = findTownPlace(town, halfWidth, taken, spacing);
        if (middle) {
            taken.names.push(boxAround(middle, halfWidth, townHalfHeight));
            context.strokeText(town.name, middle.x, middle.y);
            context.fillText(town.name, middle.x, middle.y);
            drawn.push(town.name);
        }
    });
    describeTowns(drawn);
}

// Names the towns in the map's description for screen readers.
function describeTowns(names) {
    var text = "Map of the weather stations found";
    if (names.length > 0) {
        text += ". Towns: " + names.slice(0, mostTownsNamed).join(", ");
    }
    map.getContainer().setAttribute("aria-label", text);
}
