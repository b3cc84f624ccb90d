// The pages that the program writes, in a real browser: KORVAT_TOOLS is the program, KORVAT_EXAMPLES the folder of the examples.
import assert from "node:assert/strict";
import { spawnSync } from "node:child_process";
import { mkdtempSync, readFileSync, rmSync, statSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import path from "node:path";
import { after, before, test } from "node:test";
import { openBrowser, settled } from "../support/browser.mjs";

const { KORVAT_TOOLS: program, KORVAT_EXAMPLES: examples } = process.env;
if (!program || !examples) throw new Error("KORVAT_TOOLS and KORVAT_EXAMPLES are not set");

const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");
const MEGABYTE = 1e6;

let chromium;
let folder;
before(async () => {
    chromium = await openBrowser();
    folder = mkdtempSync(path.join(tmpdir(), "korvat-report-"));
});
after(async () => {
    await chromium.close();
    rmSync(folder, { recursive: true, force: true });
});

/** Writes a report and gives its text; the exit code must be the expected one. */
function reportOf(deck, { options = [], code = 0 } = {}) {
    const file = path.join(folder, "report.html");
    const run = spawnSync(program, ["report", "-o", file, ...options, deck], { encoding: "utf8" });
    assert.equal(run.status, code, run.stderr);
    return { html: readFileSync(file, "utf8"), size: statSync(file).size };
}

const example = (name) => path.join(examples, name);

/** What axe finds, as rule and place. */
async function faultsIn(page) {
    await page.evaluate(axe);
    const { violations } = await page.evaluate(() => window.axe.run());
    return violations.flatMap(({ id, nodes }) => nodes.map(({ target }) => `${id}: ${target}`));
}

for (const name of ["jacket", "dolphin", "insert-piles", "barge-impact", "limits", "limits-revision-5"]) {
    test(`${name}: quiet, alone, and one selection for all`, async () => {
        const { html, size } = reportOf(example(name));
        assert.ok(size < (name.startsWith("limits") ? 12 : 1) * MEGABYTE, `${size} bytes`);
        const { page, messages, requests, address } = await chromium.open(html);
        const first = await page.evaluate(() => performance.getEntriesByName("first-picture")[0].startTime);
        console.log(`${name}: ${(size / MEGABYTE).toFixed(2)} MB, first picture after ${(first / 1000).toFixed(2)} s`);
        const rows = await page.$$eval("#pile-table tbody tr", (all) => all.map((row) => row.dataset.pile));
        const last = rows.at(-1);
        await page.evaluate((pile) => document.querySelector(`#pile-${pile}`).click(), last);
        await settled(page);
        assert.match(await page.$eval("#details", (box) => box.textContent), new RegExp(`^Pile ${last}\\D`));
        const lines = await page.$$eval(`#deck-lines li[data-pile="${last}"]`, (all) => all.map((line) => line.classList.contains("selected")));
        assert.ok(lines.length > 0 && lines.every((isSelected) => isSelected));
        await page.waitForFunction((pile) => location.hash === `#pile=${pile}`, {}, last);
        assert.deepEqual(messages, []);
        assert.deepEqual(requests.filter((request) => !request.startsWith(address)), []);
        await page.close();
    });
}

for (const scheme of ["light", "dark"]) {
    test(`axe finds nothing in a group with composites, curves and a cap, ${scheme}`, async () => {
        const { page, messages } = await chromium.open(reportOf(example("insert-piles")).html, { scheme, fragment: "#pile=2" });
        assert.deepEqual(await faultsIn(page), []);
        assert.deepEqual(messages, []);
        await page.close();
    });
}

test("two groups compared", async () => {
    const jacket = readFileSync(path.join(example("jacket"), "KORVAT.INP"), "utf8");
    const other = path.join(folder, "other.inp");
    // Pile 1, from which the others are generated, is moved by half a metre at its head and tip.
    const moved = jacket.replace(/^( {2}1 +0 +0 +)12\.0( +10\.0 +0\.0 +)20\.0/m, "$112.5$220.5");
    assert.notEqual(moved, jacket);
    writeFileSync(other, moved);
    const { page, messages } = await chromium.open(reportOf(example("jacket"), { options: ["--compare", other] }).html);
    const rows = await page.$$eval("#comparison tbody tr", (all) => all.map((row) => row.dataset.pile ?? ""));
    assert.deepEqual([...new Set(rows)].sort(), ["1", "2", "3", "4"]);
    assert.deepEqual(await faultsIn(page), []);
    assert.deepEqual(messages, []);
    await page.close();
});

test("a deck that fails", async () => {
    const deck = path.join(folder, "failing.inp");
    const sound = readFileSync(path.join(example("jacket"), "KORVAT.INP"), "utf8");
    writeFileSync(deck, sound.replace("2.100E8 ", "-1.0    "));
    const { page, messages } = await chromium.open(reportOf(deck, { code: 1 }).html);
    assert.equal(await page.$$eval("#findings li.error", (all) => all.length), 1);
    assert.equal(await page.$$eval("#deck-lines mark.error", (all) => all.length), 1);
    assert.equal(await page.$$eval("#pile-table tbody tr", (all) => all.length), 4);
    assert.deepEqual(await faultsIn(page), []);
    assert.deepEqual(messages, []);
    await page.close();
});

test("a file that is no deck", async () => {
    const deck = path.join(folder, "zeros");
    writeFileSync(deck, Buffer.alloc(5000));
    const { page, messages } = await chromium.open(reportOf(deck, { code: 1 }).html, { wait: "load" });
    assert.equal(await page.$eval("#no-3d", (line) => line.hidden), false);
    assert.deepEqual(await faultsIn(page), []);
    assert.deepEqual(messages, []);
    await page.close();
});

test("the small page", async () => {
    const { html, size } = reportOf(example("dolphin"), { options: ["--no-3d"] });
    assert.ok(size < 0.3 * MEGABYTE, `${size} bytes`);
    const { page, messages } = await chromium.open(html, { wait: "load" });
    assert.equal(await page.$("#view"), null);
    await page.click("#pile-table th:nth-child(2) button");
    assert.deepEqual(await faultsIn(page), []);
    assert.deepEqual(messages, []);
    await page.close();
});

test("printed, the drawings and the tables are there", async () => {
    const { page } = await chromium.open(reportOf(example("insert-piles")).html);
    const pdf = Buffer.from(await page.pdf({ format: "A4" })).toString("latin1");
    const pages = (pdf.match(/\/Type\s*\/Page\b/g) ?? []).length;
    console.log(`insert-piles: ${pages} pages of A4`);
    assert.ok(pages >= 5 && pages <= 25, `${pages} pages`);
    await page.close();
});
