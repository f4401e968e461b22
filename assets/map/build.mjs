// Builds the map page's template:
// node build.mjs <folder that contains node_modules> <zctas.gz> <places.gz> <US.txt> <file to write>
import { createRequire } from "node:module";
import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { dirname, join, resolve } from "node:path";
import { fileURLToPath } from "node:url";
import { findLaterThanEs5 } from "./es5.mjs";
import { makeOutlines } from "./outlines.mjs";
import { makeTowns } from "./towns.mjs";

const pageLimit = 600000;  // bytes
const leastCovered = 0.9;  // share of the ZIP codes that have three named towns at the closest fit
const here = dirname(fileURLToPath(import.meta.url));
const [packagesFolder, zctasFile, placesFile, namesFile, outputFile] = process.argv.slice(2).map((path) => resolve(path));
const require = createRequire(join(packagesFolder, "package.json"));

const readSource = (name) => readFileSync(join(here, name), "utf8");
const readPackaged = (name) => readFileSync(require.resolve(name), "utf8");

function fail(lines) {
    console.error(lines.join("\n"));
    process.exit(1);
}

// The page is one file, so style rules with a url (none is needed here) and the source map comment are
// removed.
const leafletStyles = readPackaged("leaflet/dist/leaflet.css").replace(/[^{}]*\{[^{}]*url\([^{}]*\}/g, "");
const leaflet = readPackaged("leaflet/dist/leaflet.js").replace(/^\/\/# sourceMappingURL=.*$/m, "");
const outlines = JSON.stringify(makeOutlines(require("topojson-client"),
    require("us-atlas/counties-10m.json"), require("world-atlas/countries-50m.json")));
const { towns, covered } = makeTowns(zctasFile, placesFile, namesFile);
// JSON text with other than ASCII characters escaped.
const townsText = JSON.stringify(towns).replace(/[^\x00-\x7f]/g,
    (letter) => `\\u${letter.charCodeAt(0).toString(16).padStart(4, "0")}`);
const script = ["(function () {\n\"use strict\";", `var outlines = ${outlines};`, `var townClasses = ${townsText};`,
    ...["decode.js", "feed.js", "markers.js", "labels.js", "towns.js", "map.js"].map(readSource), "}());"].join("\n");
const styles = `${leafletStyles}\n${readSource("map.css")}`;

const pieces = { styles, leaflet, script };
const page = readSource("index.html").replace(/\{\{(\w+)\}\}/g, (_, name) => pieces[name].trim())
    .replace(/\r?\n/g, "\r\n");

// Leaflet checks for the names of the first row and has substitutes. Those of the second row are
// members of its own objects, or old members of a canvas or the window.
const allowedInLeaflet = ["globalThis", "requestAnimationFrame", "trunc", "classList", "composedPath", "Uint8Array",
    "includes", "remove", "content", "fill", "scrollTo"];
const acorn = require("acorn");
const faults = [
    ...findLaterThanEs5(acorn, "leaflet.js", leaflet, allowedInLeaflet),
    ...findLaterThanEs5(acorn, "map script", script),
];
for (const [name, text] of Object.entries(pieces)) {
    if (/<\/(script|style)|<!--/i.test(text)) faults.push(`${name}: contains text that ends its element`);
}
if (page.split("[XML]").length !== 2) faults.push("[XML] must occur exactly once");
if (/url\(|@import|\ssrc=|<link/i.test(styles + script)) {
    faults.push("the page refers to another file");
}
if (/[^\x00-\x7f]/.test(page)) faults.push("the page is not ASCII");
if (page.length > pageLimit) faults.push(`the page has ${page.length} bytes, over ${pageLimit}`);
if (covered < leastCovered) faults.push(`only ${covered} of the ZIP codes have three named towns`);
if (faults.length > 0) fail(faults);

mkdirSync(dirname(outputFile), { recursive: true });
writeFileSync(outputFile, page);
console.log(`${outputFile}: ${page.length} bytes (outlines ${outlines.length}, towns ${townsText.length}), `
    + `three towns for ${(100 * covered).toFixed(1)} % of the ZIP codes`);
