// Chooses the towns that the map names: all large ones, then those that bring a name into the view of
// the most ZIP codes that still lack some. Their labels do not overlap at the page's closest fit.
import { readFileSync } from "node:fs";
import { gunzipSync } from "node:zlib";
import { encodePath } from "./encode.mjs";

// The page at the search dialog's first size, in pixels, and its closest fit of several stations.
const view = { width: 338, height: 292, zoom: 9.25 };
const labelHeight = 15, letterWidth = 6.2, labelPadding = 6;  // pixels, at the page's font size
const mostTowns = 9000;
const longestName = 24;  // letters
const wantedTowns = 4;  // for each ZIP code; one more than needed, because a station may cover one
const cellSize = 64;  // pixels
const kinds = ["city", "town", "village", "borough", "zona urbana", "comunidad", "CDP"];

// A town's class by its number of ZIP codes, a measure of its size. The page shows each class from
// another zoom on.
const classLimits = [20, 6, 2];

// Returns a position in pixels at the closest fit, in the map's projection.
function project(latitude, longitude) {
    const world = 256 * 2 ** view.zoom;
    const north = Math.log(Math.tan(Math.PI / 4 + latitude * Math.PI / 360));
    return [(longitude + 180) / 360 * world, (0.5 - north / (2 * Math.PI)) * world];
}

// Finds items by position: each is stored under the square cell that contains it.
class Grid {
    #cells = new Map();
    add(item) {
        const key = `${Math.floor(item.x / cellSize)},${Math.floor(item.y / cellSize)}`;
        if (!this.#cells.has(key)) this.#cells.set(key, []);
        this.#cells.get(key).push(item);
    }
    // Returns the items within the distances of a point.
    find({ x, y }, dx, dy) {
        const found = [];
        for (let i = Math.floor((x - dx) / cellSize); i <= Math.floor((x + dx) / cellSize); i += 1) {
            for (let j = Math.floor((y - dy) / cellSize); j <= Math.floor((y + dy) / cellSize); j += 1) {
                for (const item of this.#cells.get(`${i},${j}`) ?? []) {
                    if (Math.abs(item.x - x) <= dx && Math.abs(item.y - y) <= dy) found.push(item);
                }
            }
        }
        return found;
    }
}

function* readSections(path) {
    let section = "", point = null;
    for (const line of gunzipSync(readFileSync(path)).toString("utf8").split("\n")) {
        const degrees = /^centroid = \((\S+), (\S+)\)/.exec(line);
        if (line[0] === "[") section = line.slice(1, -1);
        else if (degrees) {
            point = [degrees[1], degrees[2]].map((radians) => Number(radians) * 180 / Math.PI);
            yield { section, point };
        } else if (line.startsWith("description = ")) yield { section, point, description: line.slice(14) };
    }
}

// Returns the ZIP codes in their order, with their positions: the Census's where it has an area of the
// code. Names and states are missing where only the Census has the code.
function readZipCodes(zctasFile, namesFile) {
    const codes = new Map();
    for (const line of readFileSync(namesFile, "utf8").split("\n")) {
        const [, code, name, , state, , , , , latitude, longitude] = line.split("\t");
        if (state) codes.set(code, { name, state, point: [Number(latitude), Number(longitude)] });
    }
    for (const { section, point } of readSections(zctasFile)) {
        codes.set(section, { ...codes.get(section), point, hasArea: true });
    }
    return [...codes].sort(([a], [b]) => (a < b ? -1 : 1)).map(([, code]) => ({ ...at(code.point), ...code, towns: 0 }));
}

function at(point) {
    const [x, y] = project(...point);
    return { point, x, y };
}

// Returns the towns of both sources, the largest first. A town of several ZIP codes is placed at the first
// one that has an area, which is mostly downtown; the centre of its land may lie far out.
function readTowns(placesFile, zipCodes) {
    const towns = new Map();
    const add = (name, state, point, kind) => {
        const key = `${name.toLowerCase().replace(/[^a-z]/g, "").replace(/^saint/, "st")},${state}`;
        const width = name.length * letterWidth + labelPadding;
        if (!towns.has(key)) towns.set(key, { name, ...at(point), kind, width, codes: [] });
        return towns.get(key);
    };
    for (const { point, description } of readSections(placesFile)) {
        const match = /^(.+) (city|town|village|borough|CDP|comunidad|zona urbana), (\w\w)$/.exec(description ?? "");
        if (match && match[1].length <= longestName) add(match[1], match[3], point, kinds.indexOf(match[2]));
    }
    const urbanZones = [...towns.values()].filter((town) => kinds[town.kind] === "zona urbana");
    const distance = (one, other) => Math.hypot(one.x - other.x, one.y - other.y);
    for (const code of zipCodes) {
        if (code.name) add(code.name, code.state, code.point, kinds.length).codes.push(code);
        else {
            // Most are in Puerto Rico, which has an urban zone in each municipality.
            const nearest = urbanZones.reduce((a, b) => (distance(code, b) < distance(code, a) ? b : a));
            if (distance(code, nearest) < view.width / 2) nearest.codes.push(code);
        }
    }
    return [...towns.values()].map((town) => {
        const size = town.codes.length;
        const downtown = size > 1 && kinds[town.kind] !== "zona urbana" && town.codes.find((code) => code.hasArea);
        return { ...town, ...downtown && at(downtown.point), size };
    }).sort((a, b) => b.size - a.size || a.kind - b.kind || (a.name < b.name ? -1 : 1));
}

const inView = (grid, town) => grid.find(town, (view.width - town.width) / 2, (view.height - labelHeight) / 2);

function chooseTowns(towns, zipCodes) {
    const chosen = [], labels = new Grid(), places = new Grid();
    zipCodes.forEach((code) => places.add(code));
    const longest = Math.max(...towns.map((town) => town.width));
    const isFree = (town) => labels.find(town, (town.width + longest) / 2, labelHeight)
        .every((other) => Math.abs(other.x - town.x) > (town.width + other.width) / 2);
    const gainOf = (town) => inView(places, town).filter((code) => code.towns < wantedTowns).length;
    const choose = (town) => {
        chosen.push(town);
        labels.add(town);
        for (const code of inView(places, town)) code.towns += 1;
    };
    const isLarge = (town) => town.size >= classLimits.at(-1);
    towns.filter(isLarge).forEach((town) => isFree(town) && choose(town));
    // A gain only falls as others are chosen, so the one first in order is the best once its gain is
    // still the same.
    let rest = towns.filter((town) => !isLarge(town)).map((town) => ({ town, gain: gainOf(town) }));
    for (let wanted = Math.max(...rest.map(({ gain }) => gain)); wanted > 0 && chosen.length < mostTowns; wanted -= 1) {
        rest = rest.filter((entry) => {
            if (entry.gain < wanted || chosen.length >= mostTowns) return true;
            if (!isFree(entry.town)) return false;
            entry.gain = gainOf(entry.town);
            if (entry.gain < wanted) return entry.gain > 0;
            choose(entry.town);
            return false;
        });
    }
    return chosen;
}

// Returns the towns by class, the class of the largest first: names, separated by commas, and encoded
// positions; and the share of ZIP codes that have three towns in sight.
export function makeTowns(zctasFile, placesFile, namesFile) {
    const zipCodes = readZipCodes(zctasFile, namesFile);
    const chosen = chooseTowns(readTowns(placesFile, zipCodes), zipCodes);
    const classOf = ({ size }) => classLimits.filter((limit) => size < limit).length;
    const classes = [...classLimits, 0].map((_, i) => chosen.filter((town) => classOf(town) === i));
    return {
        // No two towns have the same position, so the path has as many points as there are names.
        towns: classes.map((members) => ({
            names: members.map(({ name }) => name).join(),
            path: encodePath(members.map(({ point: [latitude, longitude] }) => [longitude, latitude]), 1),
        })),
        covered: zipCodes.filter((code) => code.towns >= 3).length / zipCodes.length,
    };
}
