// Makes the map page's template: node build.mjs <folder that holds node_modules> <file to write>
import { createRequire } from "node:module";
import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { dirname, join, resolve } from "node:path";
import { fileURLToPath } from "node:url";
import { findLaterThanEs5 } from "./es5.mjs";
import { makeOutlines } from "./outlines.mjs";

const outlinesLimit = 300 * 1024;  // bytes
const here = dirname(fileURLToPath(import.meta.url));
const [packagesFolder, outputFile] = process.argv.slice(2).map((path) => resolve(path));
const require = createRequire(join(packagesFolder, "package.json"));

const readSource = (name) => readFileSync(join(here, name), "utf8");
const readPackaged = (name) => readFileSync(require.resolve(name), "utf8");

function fail(lines) {
    console.error(lines.join("\n"));
    process.exit(1);
}

// The page stands alone: rules that name a file beside them (none is used here) and the pointer
// to a debugger's map are left out.
const leafletStyles = readPackaged("leaflet/dist/leaflet.css").replace(/[^{}]*\{[^{}]*url\([^{}]*\}/g, "");
const leaflet = readPackaged("leaflet/dist/leaflet.js").replace(/^\/\/# sourceMappingURL=.*$/m, "");
const outlines = JSON.stringify(makeOutlines(require("topojson-client"),
    require("us-atlas/states-10m.json"), require("world-atlas/countries-50m.json")));
const script = ["(function () {\n\"use strict\";", `var outlines = ${outlines};`,
    readSource("stations.js"), readSource("map.js"), "}());"].join("\n");
const styles = `${leafletStyles}\n${readSource("map.css")}`;

const pieces = { styles, leaflet, script };
const page = readSource("index.html").replace(/\{\{(\w+)\}\}/g, (_, name) => pieces[name].trim())
    .replace(/\r?\n/g, "\r\n");

// Leaflet asks for the first row before it uses it and brings a substitute; the second row are
// members of its own objects, of a canvas or of the window since long ago.
const knownInLeaflet = ["globalThis", "requestAnimationFrame", "trunc", "classList", "composedPath", "Uint8Array",
    "includes", "remove", "content", "fill", "scrollTo"];
const acorn = require("acorn");
const faults = [
    ...findLaterThanEs5(acorn, "leaflet.js", leaflet, knownInLeaflet),
    ...findLaterThanEs5(acorn, "map script", script),
];
for (const [name, text] of Object.entries(pieces)) {
    if (/<\/(script|style)|<!--/i.test(text)) faults.push(`${name}: would end its element`);
}
if (page.split("[XML]").length !== 2) faults.push("the feed's marker does not stand exactly once");
if (/url\(|@import|\ssrc=|<link/i.test(styles + script)) {
    faults.push("the page names another file");
}
if (/[^\x00-\x7f]/.test(page)) faults.push("the page is not plain ASCII");
if (outlines.length > outlinesLimit) faults.push(`outlines: ${outlines.length} bytes, over ${outlinesLimit}`);
if (faults.length > 0) fail(faults);

mkdirSync(dirname(outputFile), { recursive: true });
writeFileSync(outputFile, page);
console.log(`${outputFile}: ${page.length} bytes, outlines ${outlines.length}`);
