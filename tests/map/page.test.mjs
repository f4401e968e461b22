// Tests the pages that the program wrote in a browser: what the user sees and clicks, and what the
// program reads and writes.
import assert from "node:assert/strict";
import { readFileSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { join, resolve } from "node:path";
import { pathToFileURL } from "node:url";
import { after, before, test } from "node:test";
import { afterOddities, hostile, three } from "./feeds.mjs";

const { chromium } = createRequire(resolve(process.env.MAP_PACKAGES, "package.json"))("playwright-core");
const folder = process.env.MAP_PAGES;
const size = { width: 400, height: 300 };
const middle = { x: 200, y: 150 };
const colors = { marker: "29,95,143", selected: "224,86,31", states: "250,248,242", land: "235,233,226", water: "0,0,0" };

let browser;
before(async () => {
    browser = await chromium.launch({
        executablePath: process.env.CHROMIUM,
        args: ["--no-sandbox", "--disable-gpu", "--no-first-run", "--disable-background-networking",
            "--disable-component-update", "--disable-sync"],
    });
});
after(() => browser.close());

// Opens the page of a feed. Any script error, dialog or request for another file fails the test.
async function open(t, name, prepare = () => {}) {
    const address = pathToFileURL(join(folder, `${name}.html`)).href;
    const page = await browser.newPage({ viewport: size });
    const faults = [];
    page.on("pageerror", (error) => faults.push(error.stack));
    page.on("dialog", (dialog) => faults.push(`dialog: ${dialog.message()}`) && dialog.dismiss());
    page.on("request", (request) => {
        if (!request.url().startsWith(address)) faults.push(`request: ${request.url()}`);
    });
    t.after(async () => {
        await page.close();
        assert.deepEqual(faults, []);
    });
    await page.addInitScript(prepare);
    await page.goto(address);
    return page;
}

// Writes the program's markup for centring the map, with other coordinates or none, and waits for the
// page to act on it.
const centerMarkup = readFileSync(join(folder, "ResetCenter.element"), "utf8");
async function center(page, ...coordinates) {
    await page.evaluate((markup) => {
        const place = document.all.ResetCenter;
        place.innerHTML = markup;
        window.isCentred = false;
        place.firstChild.addEventListener("error", () => { window.isCentred = true; });
    }, centerMarkup.replace(/'.*'/, coordinates.map((text) => `'${text}'`).join(",")));
    await waitFor("the image's error", () => page.evaluate(() => window.isCentred));
}

// Returns the colour of the station or the outline drawn at a point; that of water when there is none.
const colorAt = (page, { x, y }) => page.evaluate(([px, py]) => {
    const canvases = [...document.querySelectorAll(".leaflet-tile-pane canvas, .leaflet-overlay-pane canvas")].reverse();
    for (const canvas of canvases) {
        const box = canvas.getBoundingClientRect();
        const scale = canvas.width / box.width;
        const data = canvas.getContext("2d").getImageData((px - box.left) * scale, (py - box.top) * scale, 1, 1).data;
        if (data[3] === 255) return [...data].slice(0, 3).join(",");
    }
    return "0,0,0";
}, [x, y]);

async function waitFor(what, isDone) {
    for (const end = Date.now() + 5000; Date.now() < end;) {
        if (await isDone()) return;
        await new Promise((resume) => setTimeout(resume, 30));
    }
    assert.fail(`timed out waiting for ${what}`);
}

const waitForColor = (page, point, color) =>
    waitFor(`${color} at ${point.x},${point.y}`, async () => await colorAt(page, point) === colors[color]);

// Returns the distance from the middle to the next marker in a direction, or 0.
async function distanceToMarker(page, dx, dy) {
    for (let n = 12; n < 200; n += 1) {
        if (await colorAt(page, { x: middle.x + dx * n, y: middle.y + dy * n }) === colors.marker) return n + 3.5;
    }
    return 0;
}

const clicked = (page) => page.evaluate(() => document.all.SVSelectedCity && document.all.SVSelectedCity.innerHTML);
const tooltips = (page) => page.locator(".leaflet-tooltip").allTextContents();

const scaleOf = (page) => page.locator(".leaflet-control-scale").innerText();

// Centres a station as the program does and waits until it is in the middle with its name.
async function choose(page, latitude, longitude, name) {
    await center(page, latitude, longitude);
    await waitFor(name, async () => (await tooltips(page)).join() === name);
    await waitForColor(page, middle, "selected");
}

async function clickMiddle(page, id) {
    await page.mouse.click(middle.x, middle.y);
    await waitFor(`click on ${id}`, async () => await clicked(page) === id);
}

test("the file declares its security zone and its engine", () => {
    const [head, rest] = readFileSync(join(folder, "three.html"), "utf8").split("var stationFeed = ");
    assert.match(head, /^<!DOCTYPE html>\r\n<!-- saved from url=\(0014\)about:internet -->\r\n/);
    assert.match(head, /<head>\r\n<meta http-equiv="X-UA-Compatible" content="IE=edge">\r\n/);
    assert.match(rest, /^"<\?xml/);
    assert.doesNotMatch(head.replaceAll("\r\n", ""), /[\r\n]/);
});

test("every station is at its coordinates, and a click on it sets its identifier", async (t) => {
    const page = await open(t, "three");
    assert.equal(await clicked(page), undefined);
    assert.doesNotMatch(await page.evaluate(() => document.body.innerHTML), /SVSelectedCity|aws:/);
    const shown = ["Central Park", "PS 9", "Park ("];
    for (const [i, [id, , latitude, longitude]] of three.entries()) {
        await choose(page, latitude, longitude, shown[i]);
        await clickMiddle(page, id);
    }
    // Half a degree east and 0.3 degrees north of the first, in the map's projection.
    const height = (degrees) => Math.log(Math.tan(Math.PI / 4 + degrees * Math.PI / 360));
    await choose(page, "40.78", "-73.97", "Central Park");
    const east = await distanceToMarker(page, 1, 0), north = await distanceToMarker(page, 0, -1);
    const expected = (height(41.08) - height(40.78)) / (0.5 * Math.PI / 180);
    assert.ok(Math.abs(north / east - expected) < 0.06, `${north} / ${east}, not ${expected}`);
});

test("a station can be clicked again after another was chosen in the list", async (t) => {
    const page = await open(t, "three");
    await choose(page, "40.78", "-73.97", "Central Park");
    await clickMiddle(page, "KNYC");
    await center(page, "40.78", "-73.47");
    await waitFor("the text between", async () => await clicked(page) === " ");
    await choose(page, "40.78", "-73.97", "Central Park");
    await clickMiddle(page, "KNYC");
});

test("no coordinates show all stations; unusable ones are ignored", async (t) => {
    const page = await open(t, "three");
    const picture = () => page.evaluate(() => document.querySelector(".leaflet-overlay-pane canvas").toDataURL());
    const first = await scaleOf(page);
    await center(page, "10", "20");
    await waitFor("a wider view", async () => await scaleOf(page) !== first);
    const moved = await picture();
    for (const [latitude, longitude] of [["x", "1"], ["91", "1"], ["1", "181"], ["", ""], ["1e1", "20"]]) {
        await center(page, latitude, longitude);
        await page.waitForTimeout(80);
        assert.equal(await picture(), moved, `${latitude}, ${longitude}`);
    }
    await center(page);
    await waitFor("the first view", async () => await scaleOf(page) === first);
});

test("the keyboard pans and zooms; the browser's own menu does not open", async (t) => {
    const page = await open(t, "three");
    await choose(page, "40.78", "-73.97", "Central Park");
    const before = await distanceToMarker(page, 1, 0);
    assert.ok(before > 0);
    await page.locator("#StationMap").focus();
    await page.keyboard.press("-");
    let last = before;  // the next key would stop a zoom in progress
    await waitFor("half the distance, and a map at rest", async () => {
        const isAtRest = Math.abs(last - (last = await distanceToMarker(page, 1, 0))) < 0.01;
        return isAtRest && Math.abs(last - before / 2) < 4;
    });
    await page.keyboard.press("ArrowRight");
    await waitForColor(page, { x: middle.x - 60, y: middle.y }, "selected");
    assert.equal(await page.locator("#StationMap").evaluate((map) =>
        map.dispatchEvent(new MouseEvent("contextmenu", { bubbles: true, cancelable: true }))), false);
});

test("the page's zoom follows the window's size; the user's zoom stays", async (t) => {
    const page = await open(t, "three");
    await choose(page, "40.78", "-73.97", "Central Park");
    const first = await scaleOf(page);
    await page.setViewportSize({ width: 200, height: 150 });
    await waitFor("a wider view", async () => await scaleOf(page) !== first);
    await page.setViewportSize(size);
    await waitFor("the first view", async () => await scaleOf(page) === first);
    await page.locator("#StationMap").focus();
    await page.keyboard.press("+");
    await waitFor("a closer view", async () => await scaleOf(page) !== first);
    const chosen = await scaleOf(page);
    for (const [, , latitude, longitude] of [three[1], three[2], three[0]]) {
        await center(page, latitude, longitude);
        await waitForColor(page, middle, "selected");
        assert.equal(await scaleOf(page), chosen);
    }
});

test("land, lakes and sea are in the right places, without a network", async (t) => {
    const page = await open(t, "unusable");
    assert.match(await page.innerText("body"), /No stations to show/);
    assert.match(await page.innerText("body"), /Natural Earth, US Census Bureau/);
    // Each place has another colour than the one before it.
    for (const [place, latitude, longitude, color] of [["Lake Michigan", 43.5, -87.1, "water"],
        ["Kansas", 38.6, -98.3, "states"], ["Pacific", 20, -140, "water"], ["Saskatchewan", 55, -106, "land"],
        ["North Sea", 56, 3, "water"], ["Alaska", 65.5, -152, "states"], ["Chukotka", 66.5, -176, "land"],
        ["Caspian Sea", 42, 51, "water"], ["Siberia", 62, 100, "land"]]) {
        await t.test(place, async () => {
            await center(page, latitude, longitude);
            await waitForColor(page, middle, color);
        });
    }
});

test("at the dialog's first size the selected text is whole and covers no other station", async (t) => {
    // A long name, and another station just east of it.
    writeFileSync(join(folder, "near.html"), readFileSync(join(folder, "three.html"), "utf8")
        .replace("Central Park", "Central Park and Botanical Garden").replace("-73.47", "-73.87"));
    const page = await open(t, "near");
    await page.setViewportSize({ width: 338, height: 292 });
    await center(page, "40.78", "-73.97");
    const measure = () => page.evaluate((marker) => {
        const { left, top, right, bottom, width, height } =
            document.querySelector(".leaflet-tooltip.selected").getBoundingClientRect();
        const canvas = document.querySelector(".leaflet-overlay-pane canvas");
        const origin = canvas.getBoundingClientRect();
        const { data } = canvas.getContext("2d").getImageData(left - origin.left, top - origin.top, width, height);
        const colors = Array.from({ length: data.length / 4 }, (_, i) => data.slice(4 * i, 4 * i + 3).join());
        return { isWhole: Math.min(left, top, 338 - right, 292 - bottom) >= 0, isClear: !colors.includes(marker) };
    }, colors.marker);
    assert.deepEqual(await measure(), { isWhole: true, isClear: true });
    await page.locator("#StationMap").focus();
    for (const x of [109, 49]) {
        await page.waitForTimeout(400);  // a move in progress ignores keys
        await page.keyboard.press("ArrowRight");
        await waitForColor(page, { x, y: 146 }, "selected");
        await waitFor("a whole and clear text", async () => Object.values(await measure()).every(Boolean));
    }
});

test("the map names the towns around a place", async (t) => {
    const page = await open(t, "three");
    await page.setViewportSize({ width: 338, height: 292 });
    for (const [latitude, longitude, town] of [["40.78", "-73.97", "Newark"], ["38.97", "-95.24", "Topeka"]]) {
        await center(page, latitude, longitude);
        const names = (await page.getAttribute("#StationMap", "aria-label")).split(/[:,] /).slice(1);
        assert.ok(names.length >= 3 && names.includes(town), `${names}`);
        assert.ok(await page.evaluate(() => {
            const { data } = document.querySelector(".leaflet-towns-pane canvas").getContext("2d").getImageData(0, 0, 338, 292);
            return data.some((value) => value > 0);
        }), "no name is drawn");
    }
});

test("hostile names and identifiers stay text, and other markup in a feed has no effect", async (t) => {
    const page = await open(t, "hostile");
    for (const [, name, latitude, longitude] of [...hostile, ...afterOddities]) {
        await choose(page, latitude, longitude, name);
    }
    const [id, name, latitude, longitude] = hostile.find(([text]) => text.startsWith("<img"));
    await choose(page, latitude, longitude, name);
    await clickMiddle(page, id.replace("<", "&lt;").replace(">", "&gt;"));
    assert.equal(await page.evaluate(() => window.hacked), undefined);
    assert.equal(await page.evaluate(() => document.scripts.length + document.images.length), 3);
});

test("500 stations draw quickly and keep the polled body short", async (t) => {
    const page = await open(t, "many");
    const spent = await page.evaluate(() => {
        const [timing] = performance.getEntriesByType("navigation");
        return timing.domContentLoadedEventEnd - timing.responseEnd;
    });
    assert.ok(spent < 2000, `${spent} ms to draw`);
    await choose(page, "30", "-100", "Station 205");
    await clickMiddle(page, "s205");
    const length = await page.evaluate(() => document.body.innerHTML.length);
    assert.ok(length < 8000, `${length} characters`);
});

// Removes what the browser control's engine lacks.
function removeNewerFeatures() {
    const lacking = [[window, ["fetch", "Promise", "requestAnimationFrame", "cancelAnimationFrame", "PointerEvent",
        "ResizeObserver", "URL"]], [Element.prototype, ["classList", "closest", "matches", "remove",
        "append", "prepend", "replaceChildren"]], [NodeList.prototype, ["forEach"]], [Event.prototype, ["composedPath"]]];
    for (const [owner, names] of lacking) for (const name of names) delete owner[name];
}

test("the page works in an older engine", async (t) => {
    const page = await open(t, "three", removeNewerFeatures);
    await choose(page, "40.78", "-73.47", "PS 9");
    await clickMiddle(page, "4711");
});
