// Opens in a browser the alert pages that the program wrote.
import assert from "node:assert/strict";
import { createRequire } from "node:module";
import { join, resolve } from "node:path";
import { pathToFileURL } from "node:url";
import { after, before, test } from "node:test";

const require = createRequire(resolve(process.env.MAP_PACKAGES, "package.json"));
const { chromium } = require("playwright-core");

let browser;
before(async () => {
    browser = await chromium.launch({
        executablePath: process.env.CHROMIUM,
        args: ["--no-sandbox", "--disable-gpu", "--no-first-run", "--disable-background-networking"],
    });
});
after(() => browser.close());

for (const [name, alerts] of [["no-alerts", 0], ["one-alert", 1], ["scripts", 4], ["sixty-alerts", 60]]) {
    for (const colorScheme of ["light", "dark"]) {
        test(`${name}, ${colorScheme}: accessible, self-contained and as wide as its window`, async (t) => {
            const address = pathToFileURL(join(process.env.ALERT_PAGES, `${name}.html`)).href;
            const page = await browser.newPage({ viewport: { width: 400, height: 800 }, colorScheme });
            t.after(() => page.close());
            const faults = [];
            page.on("request", (request) => request.url() === address || faults.push(request.url()));
            page.on("console", (message) => faults.push(message.text()));
            await page.goto(address);
            assert.equal(await page.title(), "Weather alerts - Skyvane Alerts");
            assert.equal(await page.locator("article").count(), alerts);
            assert.equal(await page.evaluate(() => document.documentElement.scrollWidth), 400);
            assert.equal(await page.evaluate(() => getComputedStyle(document.body).maxWidth), "736px", "no style");
            assert.equal(await page.locator("script, img, [onerror]").count(), 0);
            assert.deepEqual(faults, []);
            if (alerts === 1) {
                const alert = page.locator("main > details:first-child[open] > article:first-of-type");
                assert.match(await alert.innerText(), /Second\n+Last\. (Long\. ?){300}/);
                assert.ok((await alert.boundingBox()).y < 500);
            }
            // The page allows no scripts, but those of the test's own world run.
            await page.evaluate(() => document.querySelectorAll("details").forEach((place) => { place.open = true; }));
            await page.evaluate(require("axe-core").source);
            const { violations } = await page.evaluate(() => window.axe.run());
            assert.deepEqual(violations.map(({ id, nodes }) => [id, nodes[0].html]), []);
        });
    }
}
