// The built map page, filled as the program fills it, in a browser: what a person sees and clicks,
// and what the program reads and writes.
import assert from "node:assert/strict";
import { mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { join, resolve } from "node:path";
import { pathToFileURL } from "node:url";
import { after, before, test } from "node:test";

const { chromium } = createRequire(resolve(process.env.MAP_PACKAGES, "package.json"))("playwright-core");
const template = readFileSync(process.env.MAP_PAGE, "utf8");
const folder = mkdtempSync(join(tmpdir(), "mapPage"));
const file = join(folder, "CitySearch.html");
const size = { width: 400, height: 300 };
const middle = { x: 200, y: 150 };
const colors = { dot: "29,95,143", selected: "224,86,31", states: "250,248,242", land: "235,233,226", water: "0,0,0" };

let browser;
before(async () => {
    browser = await chromium.launch({
        executablePath: process.env.CHROMIUM,
        args: ["--no-sandbox", "--disable-gpu", "--no-first-run", "--disable-background-networking",
            "--disable-component-update", "--disable-sync"],
    });
});
after(async () => {
    await browser.close();
    rmSync(folder, { recursive: true });
});

// How the program puts a feed into the page.
const fill = (xml) => template.replaceAll("[XML]", () => xml.replaceAll("\r\n", "").replaceAll("\"", "\\\""));

const escape = (text) => text.replaceAll("&", "&amp;").replaceAll("<", "&lt;").replaceAll("\"", "&quot;");
const element = ([id, name, latitude, longitude]) => `<aws:station id="${escape(id)}" name="${escape(name)}"`
    + ` city="Here" state="NY" zipcode="10001" latitude="${latitude}" longitude="${longitude}"/>`;
const feed = (stations, extra = "") => `<?xml version="1.0"?>\r\n<aws:weather xmlns:aws="http://aws.example/">\n`
    + `${stations.map(element).join("\r\n")}${extra}</aws:weather>\r\n`;

// Opens the page with a feed. Any script error, dialog or request beyond the page itself fails.
async function open(t, xml, prepare = () => {}) {
    writeFileSync(file, fill(xml));
    const page = await browser.newPage({ viewport: size });
    const faults = [];
    page.on("pageerror", (error) => faults.push(error.stack));
    page.on("dialog", (dialog) => faults.push(`dialog: ${dialog.message()}`) && dialog.dismiss());
    page.on("request", (request) => {
        if (!request.url().startsWith(pathToFileURL(file).href)) faults.push(`request: ${request.url()}`);
    });
    t.after(async () => {
        await page.close();
        assert.deepEqual(faults, []);
    });
    await page.addInitScript(prepare);
    await page.goto(pathToFileURL(file).href);
    return page;
}

// Writes what the program writes to centre the map, and waits until the page has acted on it.
async function center(page, ...coordinates) {
    await page.evaluate((list) => {
        const place = document.all.ResetCenter;
        place.innerHTML = `<IMG onerror = "setMapCenter(${list});" src="#" STYLE="display:none;" >`;
        window.isCentred = false;
        place.firstChild.addEventListener("error", () => { window.isCentred = true; });
    }, coordinates.map((text) => `'${text}'`).join(","));
    await waitFor("the image's error", () => page.evaluate(() => window.isCentred));
}

// The colour that the map's canvases show at a point, those above first; water is where none drew.
const colorAt = (page, { x, y }) => page.evaluate(([px, py]) => {
    const canvases = [...document.querySelectorAll("canvas")].reverse();
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
        await new Promise((go) => setTimeout(go, 30));
    }
    assert.fail(`waited in vain: ${what}`);
}

const waitForColor = (page, point, color) =>
    waitFor(`${color} at ${point.x},${point.y}`, async () => await colorAt(page, point) === colors[color]);

// How far from the middle, along a step, the next dot stands; 0 when none does.
async function distanceToDot(page, dx, dy) {
    for (let n = 12; n < 200; n += 1) {
        if (await colorAt(page, { x: middle.x + dx * n, y: middle.y + dy * n }) === colors.dot) return n + 3.5;
    }
    return 0;
}

const clicked = (page) => page.evaluate(() => document.all.SVSelectedCity && document.all.SVSelectedCity.innerHTML);
const tooltips = (page) => page.locator(".leaflet-tooltip").allTextContents();

const scaleOf = (page) => page.locator(".leaflet-control-scale").innerText();

// Centres a station as the program does and waits until it stands in the middle with its name.
async function choose(page, latitude, longitude, name) {
    await center(page, latitude, longitude);
    await waitFor(name, async () => (await tooltips(page)).join() === name);
    await waitForColor(page, middle, "selected");
}

async function clickMiddle(page, id) {
    await page.mouse.click(middle.x, middle.y);
    await waitFor(`click on ${id}`, async () => await clicked(page) === id);
}

const three = [["KNYC", "Central Park", "40.78", "-73.97"], ["4711", "School (PS 9 )", "40.78", "-73.47"],
    ["W-3", "Park (", "41.08", "-73.97"]];

test("the file declares its zone, its engine and the feed's place", () => {
    assert.match(template, /^<!DOCTYPE html>\r\n<!-- saved from url=\(0014\)about:internet -->\r\n/);
    assert.match(template, /<head>\r\n<meta http-equiv="X-UA-Compatible" content="IE=edge">\r\n/);
    assert.equal(template.split("\"[XML]\"").length, 2);
    assert.equal(template.split("[XML]").length, 2);
    assert.doesNotMatch(template.replaceAll("\r\n", ""), /[\r\n]/);
});

test("every station stands at its coordinates and a click on it tells its identifier", async (t) => {
    const page = await open(t, feed(three));
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
    const east = await distanceToDot(page, 1, 0), north = await distanceToDot(page, 0, -1);
    const expected = (height(41.08) - height(40.78)) / (0.5 * Math.PI / 180);
    assert.ok(Math.abs(north / east - expected) < 0.06, `${north} / ${east}, not ${expected}`);
});

test("the same station can be clicked again after another was chosen in the list", async (t) => {
    const page = await open(t, feed(three));
    await choose(page, "40.78", "-73.97", "Central Park");
    await clickMiddle(page, "KNYC");
    await center(page, "40.78", "-73.47");
    await waitFor("another text", async () => await clicked(page) === " ");
    await choose(page, "40.78", "-73.97", "Central Park");
    await clickMiddle(page, "KNYC");
});

test("without coordinates the map goes back to all stations; unusable ones do nothing", async (t) => {
    const page = await open(t, feed(three));
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

test("the keyboard pans and zooms", async (t) => {
    const page = await open(t, feed(three));
    await choose(page, "40.78", "-73.97", "Central Park");
    const before = await distanceToDot(page, 1, 0);
    assert.ok(before > 0);
    await page.locator("#StationMap").focus();
    await page.keyboard.press("-");
    await waitFor("half the distance", async () => Math.abs(await distanceToDot(page, 1, 0) - before / 2) < 4);
    await page.keyboard.press("ArrowRight");
    await waitForColor(page, { x: middle.x - 60, y: middle.y }, "selected");
});

test("the page's own zoom follows the window's size; a zoom that a person chose stays", async (t) => {
    const page = await open(t, feed(three));
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

test("land, lakes and sea lie where they do, without a network", async (t) => {
    const page = await open(t, feed([]));
    assert.match(await page.innerText("body"), /No stations to show/);
    assert.match(await page.innerText("body"), /Natural Earth, US Census Bureau/);
    // Each differs in colour from the one before it.
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

const act = "window.hacked=1";
const hostileNames = ["\"", "C:\\", "\\\"", `";${act};//`, `\\";${act};//`, "O'Hare", "]]>", "-->", "<!-- <script>",
    `</script><script>${act}</script>`, `</plaintext><img src=x onerror=${act}>`, `<img src=x onerror=${act}>`,
    "[XML]", "$& $1 $`", "&lt;b&gt; &amp;", "SVSelectedCity", "Łódź \u{1F327}"];

test("hostile names and identifiers stay text", async (t) => {
    const page = await open(t, feed(hostileNames.map((name, i) => [name, name, 30 + i, -100])));
    for (const [i, name] of hostileNames.entries()) {
        await choose(page, 30 + i, -100, name);
    }
    const i = hostileNames.findIndex((name) => name.startsWith("<img"));
    await choose(page, 30 + i, -100, hostileNames[i]);
    await clickMiddle(page, `&lt;img src=x onerror=${act}&gt;`);
    assert.equal(await page.evaluate(() => window.hacked), undefined);
});

test("nothing else in a feed acts, and the stations after it still show", async (t) => {
    const markup = `</textarea></xmp></plaintext></script><script>${act}</script><img src=x onerror=${act}>`;
    for (const raw of [`<!-- ${markup} -->`, `<![CDATA[${markup}]]>`, `<?pi ${markup}?>`, `<script>${act}</script>`,
        `<plaintext></plaintext><img src="x" onerror="${act}"/>`, "\n\\\n\\", "\\", "<aws:other id=\"x\" latitude=\"1\" longitude=\"1\"/>"]) {
        await t.test(raw.slice(0, 20), async (t2) => {
            const page = await open(t2, feed([three[0]], raw + element(["last", "Last", "1", "2"])));
            await choose(page, "1", "2", "Last");
            await clickMiddle(page, "last");
            assert.equal(await page.evaluate(() => window.hacked), undefined);
            assert.equal(await page.evaluate(() => document.scripts.length + document.images.length), 3);
        });
    }
});

test("stations without a usable place are left out; no feed at all leaves an empty map", async (t) => {
    const bad = [["", "1"], ["1", ""], ["90.1", "0"], ["0", "-180.5"], ["NaN", "0"], ["1,5", "2"], ["Infinity", "0"]];
    for (const xml of [feed(bad.map(([latitude, longitude]) => ["x", "X", latitude, longitude])), "", "<a", "<other><s id='1'/></other>"]) {
        const page = await open(t, xml);
        await page.getByText("No stations to show").waitFor({ timeout: 5000 });
    }
});

test("500 stations stay quick and keep the text that the program polls short", async (t) => {
    const stations = Array.from({ length: 500 }, (_, i) => [`s${i}`, `Station ${i}`, 25 + i % 25, -120 + Math.floor(i / 25) * 2.5]);
    const page = await open(t, feed(stations));
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

// What the control's engine lacks is taken away, and its own XML document put in the place of the parser.
function makeOlder() {
    const Parser = window.DOMParser;
    const lacking = [[window, ["fetch", "Promise", "requestAnimationFrame", "cancelAnimationFrame", "PointerEvent",
        "ResizeObserver", "URL", "DOMParser"]], [Element.prototype, ["classList", "closest", "matches", "remove",
        "append", "prepend", "replaceChildren"]], [NodeList.prototype, ["forEach"]], [Event.prototype, ["composedPath"]]];
    for (const [owner, names] of lacking) for (const name of names) delete owner[name];
    window.ActiveXObject = function XmlDocument(name) {
        this.loadXML = (xml) => {
            this.documentElement = name === "Microsoft.XMLDOM" && new Parser().parseFromString(xml, "text/xml").documentElement;
            return true;
        };
    };
}

test("an older engine is enough", async (t) => {
    const page = await open(t, feed(three), makeOlder);
    await choose(page, "40.78", "-73.47", "PS 9");
    await clickMiddle(page, "4711");
});
