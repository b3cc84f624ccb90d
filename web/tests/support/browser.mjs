// Opens pages in headless Chromium, and keeps what they write on the console and ask for.
import { mkdtempSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import path from "node:path";
import { pathToFileURL } from "node:url";
import puppeteer from "puppeteer-core";

const PROGRAM = process.env.KORVAT_CHROMIUM ?? "/usr/bin/chromium";

/** A browser with its own empty folder. webgl: false takes WebGL away. close() ends it and removes the folder. */
export async function openBrowser({ webgl = true } = {}) {
    const folder = mkdtempSync(path.join(tmpdir(), "korvat-viewer-"));
    const browser = await puppeteer.launch({
        executablePath: PROGRAM, headless: true, userDataDir: path.join(folder, "profile"), timeout: 120000, protocolTimeout: 300000,
        args: [
            "--no-sandbox", "--use-angle=swiftshader", "--enable-unsafe-swiftshader", "--disable-background-networking",
            "--disable-component-update", "--disable-sync", "--no-first-run", ...(webgl ? [] : ["--disable-3d-apis"]),
        ],
    });
    let pages = 0;
    return {
        browser,
        folder,
        /** Opens a page from disk; its console and its requests are in the lists that come with it. */
        async open(html, { fragment = "", scheme = "light", width = 1280, height = 900, wait = "state", media } = {}) {
            const file = path.join(folder, `page-${++pages}.html`);
            writeFileSync(file, html);
            const page = await browser.newPage();
            const [messages, requests] = [[], []];
            page.on("console", (message) => messages.push(`${message.type()}: ${message.text()}`));
            page.on("pageerror", (error) => messages.push(`error: ${error.message}`));
            page.on("request", (request) => requests.push(request.url()));
            await page.setViewport({ width, height });
            await page.emulateMediaFeatures([{ name: "prefers-color-scheme", value: scheme }]);
            if (media) await page.emulateMediaType(media);
            const address = pathToFileURL(file).href;
            await page.goto(address + fragment, { waitUntil: "load", timeout: 120000 });
            if (wait === "state") await page.waitForSelector("#scene[data-state=shown]", { timeout: 120000 });
            return { page, messages, requests, address };
        },
        async close() {
            await browser.close();
            rmSync(folder, { recursive: true, force: true, maxRetries: 5 });
        },
    };
}

/** A promise for the next picture but one: by then what was asked for before is drawn. */
export const settled = (page) => page.evaluate(() => new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done))));

/** The picture of an element as PNG. */
export async function pictureOf(page, selector) {
    await settled(page);
    const element = await page.$(selector);
    return element.screenshot({ type: "png" });
}
