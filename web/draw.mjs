// Draws parts of a report page for the documents: node draw.mjs PAGE [SELECTOR FRAGMENT PICTURE]...
import { pathToFileURL } from "node:url";
import puppeteer from "puppeteer-core";

const [page, ...wishes] = process.argv.slice(2);
const browser = await puppeteer.launch({
    executablePath: process.env.KORVAT_CHROMIUM ?? "/usr/bin/chromium", headless: true,
    args: ["--no-sandbox", "--use-angle=swiftshader", "--enable-unsafe-swiftshader", "--disable-background-networking",
        "--disable-component-update", "--disable-sync", "--no-first-run", "--force-color-profile=srgb", "--hide-scrollbars"],
});
try {
    for (let i = 0; i < wishes.length; i += 3) {
        const [selector, fragment, picture] = wishes.slice(i, i + 3);
        const tab = await browser.newPage();
        await tab.setViewport({ width: 1180, height: 1000 });
        await tab.emulateMediaFeatures([{ name: "prefers-color-scheme", value: "light" }]);
        await tab.goto(pathToFileURL(page).href + fragment, { waitUntil: "load" });
        await tab.waitForSelector("#scene[data-state=shown]", { timeout: 60000 });
        await tab.evaluate(() => new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done))));
        const part = await tab.$(selector);
        if (!part) throw new Error(`${page} has no ${selector}`);
        await part.screenshot({ path: picture });
        await tab.close();
    }
} finally {
    await browser.close();
}
