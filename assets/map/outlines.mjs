// Creates the outlines that the page draws from the atlas packages: decoded, simplified to the detail of
// a small map, and encoded.
import { encodePath } from "./encode.mjs";

const unitedStatesId = "840";  // ISO 3166-1 number, by which the world atlas names its countries

// Simplifies a line to within the tolerance in degrees (Douglas-Peucker). Degrees of longitude count
// less towards the poles, as they do on the ground.
function simplifyLine(points, tolerance) {
    const keep = new Set([0, points.length - 1]);
    const pending = [[0, points.length - 1]];
    while (pending.length > 0) {
        const [first, last] = pending.pop();
        let worst = tolerance, at = -1;
        for (let i = first + 1; i < last; i += 1) {
            const distance = distanceToSegment(points[i], points[first], points[last]);
            if (distance > worst) [worst, at] = [distance, i];
        }
        if (at > 0) {
            keep.add(at);
            pending.push([first, at], [at, last]);
        }
    }
    return points.filter((_, i) => keep.has(i));
}

function distanceToSegment([x, y], [x1, y1], [x2, y2]) {
    const shrink = Math.cos(y * Math.PI / 180);
    const dx = (x2 - x1) * shrink, dy = y2 - y1;
    const px = (x - x1) * shrink, py = y - y1;
    const length = dx * dx + dy * dy;
    const along = length === 0 ? 0 : Math.min(1, Math.max(0, (px * dx + py * dy) / length));
    return Math.hypot(px - along * dx, py - along * dy);
}

// Returns the atlas with its arcs decoded and simplified. Neighbours share arcs, so their borders still
// meet.
function simplifyAtlas(atlas, tolerance) {
    const { scale, translate } = atlas.transform;
    const arcs = atlas.arcs.map((arc) => {
        let x = 0, y = 0;
        return simplifyLine(arc.map(([dx, dy]) => {
            x += dx;
            y += dy;
            return [x * scale[0] + translate[0], y * scale[1] + translate[1]];
        }), tolerance);
    });
    return { type: "Topology", objects: atlas.objects, arcs };
}

// Returns the parts of a ring between the longitudes -180 and 180. Rings of the atlas may cross that
// meridian or go round the pole; drawn unchanged, the step from one side to the other would be a line
// across the whole map.
function cutAtDateLine(ring) {
    let turn = 0;
    const straight = ring.map(([x, y], i) => {
        const step = i === 0 ? 0 : x - ring[i - 1][0];
        turn += step > 180 ? -360 : step < -180 ? 360 : 0;
        return [x + turn, y];
    });
    if (turn !== 0) straight.push([straight.at(-1)[0], -90], [straight[0][0], -90], straight[0]);
    return [-360, 0, 360].map((shift) => straight.map(([x, y]) => [x + shift, y]))
        .map((part) => keepSide(keepSide(part, 1), -1)).filter((part) => part.length > 3);
}

// Returns the part of a ring on one side of a meridian: side 1 is west of 180, side -1 east of -180.
function keepSide(ring, side) {
    const kept = [];
    ring.forEach((point, i) => {
        const last = ring[i - 1];
        const isIn = side * point[0] <= 180;
        if (last && isIn !== side * last[0] <= 180) {
            const share = (side * 180 - last[0]) / (point[0] - last[0]);
            kept.push([side * 180, last[1] + share * (point[1] - last[1])]);
        }
        if (isIn) kept.push(point);
    });
    return kept;
}

function encodeRings(multiPolygon, smallest) {
    const isVisible = (ring) => {
        const xs = ring.map((p) => p[0]), ys = ring.map((p) => p[1]);
        return Math.max(...xs) - Math.min(...xs) + Math.max(...ys) - Math.min(...ys) > smallest;
    };
    return multiPolygon.coordinates.flat().flatMap(cutAtDateLine).filter(isVisible)
        .map((ring) => encodePath(ring, 4)).filter(Boolean).join(" ");
}

function encodeLines(multiLine) {
    return multiLine.coordinates.map((line) => encodePath(line, 2)).filter(Boolean).join(" ");
}

// Returns the five layers of the map, each as encoded paths that spaces separate. The United States come
// from their own atlas, whose shores follow the Great Lakes, and are left out of the world's land.
export function makeOutlines(topojson, unitedStatesAtlas, worldAtlas) {
    const us = simplifyAtlas(unitedStatesAtlas, 0.008), world = simplifyAtlas(worldAtlas, 0.035);
    const countries = world.objects.countries.geometries.filter((c) => c.id !== unitedStatesId);
    const areBothForeign = (a, b) => a !== b && a.id !== unitedStatesId && b.id !== unitedStatesId;
    // The identifier of a county begins with the two digits of its state.
    const areOfOneState = (a, b) => a !== b && a.id.slice(0, 2) === b.id.slice(0, 2);
    return {
        land: encodeRings(topojson.merge(world, countries), 0.15),
        borders: encodeLines(topojson.mesh(world, world.objects.countries, areBothForeign)),
        states: encodeRings(topojson.merge(us, us.objects.states.geometries), 0.03),
        stateLines: encodeLines(topojson.mesh(us, us.objects.states, (a, b) => a !== b)),
        countyLines: encodeLines(topojson.mesh(us, us.objects.counties, areOfOneState)),
    };
}
