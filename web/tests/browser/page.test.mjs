// The page around the view in a real browser: tables, deck, diagrams, hostile texts, pages without 3D, access, print.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import { after, before, test } from "node:test";
import { groupOf, smallReport } from "../support/groups.mjs";
import { openBrowser, settled } from "../support/browser.mjs";
import { pageOf } from "../support/page.mjs";

const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");

let chromium;
before(async () => {
    chromium = await openBrowser();
});
after(() => chromium.close());

const small = () => pageOf(smallReport());
const column = (page, index) => page.$$eval("#pile-table tbody tr", (rows, at) => rows.filter((row) => !row.hidden).map((row) => row.cells[at].textContent), index);
const liveText = (page) => page.$eval(".live", (live) => live.textContent);

test("tables sort by click and by key, and come back to the order of the deck", async () => {
    const { page, messages } = await chromium.open(small());
    const sort = "#pile-table th:nth-child(5) button";
    // Head x of piles 1 to 9: 0 and 5 cos of 22.5, 67.5, ... degrees.
    await page.click(sort);
    assert.deepEqual(await column(page, 4), ["-4.619", "-4.619", "-1.913", "-1.913", "0.000", "1.913", "1.913", "4.619", "4.619"]);
    assert.equal(await page.$eval("#pile-table th:nth-child(5)", (cell) => cell.getAttribute("aria-sort")), "ascending");
    assert.equal(await liveText(page), "Sorted by Head x, ascending");
    await page.focus(sort);
    await page.keyboard.press("Enter");
    assert.equal((await column(page, 4))[0], "4.619");
    await page.keyboard.press("Space");
    assert.deepEqual(await column(page, 0), ["1.000", "2.000", "3.000", "4.000", "5.000", "6.000", "7.000", "8.000", "9.000"]);
    assert.equal(await page.$eval("#pile-table th:nth-child(5)", (cell) => cell.getAttribute("aria-sort")), null);
    // Names of columns that reach over two rows cannot be sorted by the last row alone: no button leads astray.
    assert.equal(await page.$$eval("#section-table button", (buttons) => buttons.length), 0);
    assert.deepEqual(messages, []);
    await page.close();
});

test("tables filter, and what is copied is what is seen", async () => {
    const { page, messages } = await chromium.open(small());
    await page.type("#piles input[type=search]", "mirrored");
    assert.deepEqual(await column(page, 0), ["4.000", "5.000"]);
    assert.equal(await page.$eval("#piles .count", (count) => count.textContent), "2 of 9 rows");
    // A page on disk may not be allowed the clipboard: take both ways away in turn, and see what the page says.
    await page.evaluate(() => {
        window.copied = [];
        Object.defineProperty(navigator, "clipboard", { value: { writeText: (text) => Promise.resolve(window.copied.push(text)) }, configurable: true });
    });
    const copy = "#piles .table-tools button";
    await page.click(copy);
    await page.waitForFunction(() => document.querySelector(".live").textContent === "Copied 2 rows as CSV");
    const [csv] = await page.evaluate(() => window.copied);
    const lines = csv.split("\r\n");
    assert.equal(lines[0], "Pile,Origin,Length,Batter,Head x,Head y,Head z,Tip x,Tip y,Tip z");
    const values = await page.$$eval("#pile-4 td", (cells) => cells.map((cell) => cell.dataset.value ?? cell.textContent));
    assert.equal(lines[1], values.join(","));
    assert.ok(values[4].length > 12, "numbers are exact");
    assert.deepEqual(lines.slice(3), [""]);
    await page.evaluate(() => {
        Object.defineProperty(navigator, "clipboard", { value: undefined, configurable: true });
        document.execCommand = (command) => {
            window.copied.push(`${command} ${document.activeElement.value.split(/\r?\n/).length}`);
            return true;
        };
    });
    await page.click(copy);
    await page.waitForFunction(() => window.copied.length === 2);
    assert.equal(await page.evaluate(() => window.copied[1]), "copy 4");
    await page.evaluate(() => {
        document.execCommand = () => false;
    });
    await page.click(copy);
    await page.waitForFunction(() => document.querySelector(".live").textContent.startsWith("The browser refused"));
    assert.deepEqual(messages, []);
    await page.close();
});

test("the deck explains its numbers under the pointer and by the arrow keys", async () => {
    const { page, messages } = await chromium.open(small());
    await page.focus("#L1");
    for (let line = 2; line <= 5; ++line) await page.keyboard.press("ArrowDown");
    assert.equal(await page.evaluate(() => document.activeElement.id), "L5");
    for (const expected of [
        "Material, item 1: N, material number", "Material, item 2: EMOD, elastic modulus, F/L2", "Material, item 3: GMOD, shear modulus, F/L2",
        "Material, item 4: SIGYLD, yield stress, F/L2", "Material, item 4: SIGYLD, yield stress, F/L2",
    ]) {
        await page.keyboard.press("ArrowRight");
        assert.equal(await page.$eval(".tooltip", (box) => box.textContent), expected);
    }
    // The number of which a finding underlines a part; the remark behind it is no number of the record.
    assert.equal(await page.$$eval("#L5 .number[data-item='4']", (parts) => parts.map((part) => part.textContent).join("|")), "3.55|E5");
    assert.equal(await page.$eval("#L5", (line) => line.textContent), "  1   2.1E8  8.077E7\t3.55E5 steel 355");
    assert.equal(await page.$$eval("#L5 .number", (parts) => parts.length), 5);
    await page.keyboard.press("Escape");
    assert.equal(await page.$eval(".tooltip", (box) => box.hidden), true);
    await page.keyboard.press("ArrowDown");
    assert.equal(await page.evaluate(() => document.activeElement.id), "L6");
    // A line that goes on with the record: its numbers are items 3 to 5.
    await page.keyboard.press("ArrowDown");
    await page.keyboard.press("ArrowDown");
    await page.keyboard.press("ArrowLeft");
    assert.equal(await page.$eval(".tooltip", (box) => box.textContent), "Pile segments, item 5: SEG(I), segment type");
    await page.hover("#L17");
    await page.hover("#L17 .number[data-item='4']");
    assert.equal(await page.$eval(".tooltip", (box) => box.textContent), "Pile geometry, item 4: XHEAD(1), XHEAD(1) of the pile, L");
    assert.equal(await page.$$eval("#deck [tabindex='0']", (stops) => stops.length), 1);
    assert.deepEqual(messages, []);
    await page.close();
});

test("the points of a diagram give their values", async () => {
    const { page, messages } = await chromium.open(small());
    await page.focus("figure.curve");
    await page.keyboard.press("ArrowRight");
    await page.keyboard.press("ArrowRight");
    const tip = () => page.$$eval(".tooltip div", (lines) => lines.map((line) => line.textContent));
    assert.deepEqual(await tip(), ["Elastic curve", "N = 0\u00a0kN", "M = 3310\u00a0kN·m"]);
    await page.hover("figure.curve .plastic circle:last-child");
    assert.deepEqual(await tip(), ["Plastic curve", "N = -19500\u00a0kN", "M = 0\u00a0kN·m"]);
    assert.deepEqual(messages, []);
    await page.close();
});

test("hostile texts are texts", async () => {
    const evil = `</script><img src=x onerror="alert(1)"><b>\u202Eevil\u2028\u0007`;
    const report = { ...smallReport(), label: evil };
    report.load_vectors[0].label = evil;
    report.materials[0].name = evil;
    report.records = Object.fromEntries(Object.entries(report.records).map(([key, record]) => [key, { ...record, title: evil }]));
    report.other = { ...smallReport({ compared: true }).other, label: evil };
    const { page, messages } = await chromium.open(pageOf(report, { log: evil }), { fragment: "#colour=material&pile=%3Cimg%3E" });
    await page.click("#L5");
    await page.keyboard.press("ArrowRight");
    assert.ok((await page.$eval(".tooltip", (box) => box.textContent)).startsWith(evil));
    assert.equal(await page.$$eval("img, b", (elements) => elements.length), 0);
    assert.ok((await page.$eval(".legend", (legend) => legend.textContent)).includes(evil));
    assert.ok((await page.$eval("select[name=vector]", (select) => select.textContent)).includes("onerror"));
    assert.deepEqual(messages, []);
    await page.close();
});

test("the small page has everything but the view", async () => {
    const html = pageOf(smallReport(), { threeD: false });
    assert.ok(html.length < 100000, `${html.length} characters`);
    const { page, messages } = await chromium.open(html, { wait: "" });
    await page.click("#pile-3 td:nth-child(2)");
    assert.deepEqual(await page.$$eval(".selected", (elements) => elements.map((element) => element.getAttribute("data-pile") ?? "strip")), ["3", "3", "3", "strip", "3", "3"]);
    await page.waitForFunction(() => location.hash === "#pile=3");
    assert.deepEqual(messages, []);
    await page.close();
});

test("pages without data, without geometry or with data of another version say so and work", async () => {
    const bare = { ...smallReport(), piles: [], nodes: undefined, elements: undefined };
    const cases = [
        [pageOf(bare), "There is no 3D view: the deck gave no geometry."],
        [pageOf({ ...smallReport(), version: 2 }), "There is no 3D view: the data are of version 2, this viewer reads 1."],
        [pageOf(smallReport(), { noData: true }), "There is no 3D view: the deck gave no geometry."],
    ];
    for (const [html, line] of cases) {
        const { page, messages } = await chromium.open(html, { wait: "" });
        assert.equal(await page.$eval("#no-3d", (text) => (text.hidden ? "" : text.textContent)), line);
        assert.equal(await page.$eval("#scene", (scene) => scene.hidden), true);
        assert.deepEqual(messages, []);
        await page.close();
    }
});

test("a failed deck shows what could be read, thin where no diameter is known", async () => {
    const group = groupOf("A deck that failed", [
        { number: 1, head: [0, 0, 0], tip: [5, 0, 30], elements: [{ section: 0, diameter: 0, length: Math.hypot(5, 30) }] },
        { number: 2, head: [8, 0, 0], tip: [3, 0, 30], elements: [{ section: 0, diameter: 0.9, length: Math.hypot(5, 30) }] },
    ], []);
    const { page, messages } = await chromium.open(pageOf({ ...smallReport(), complete: false, ...group, clashes: [], load_vectors: [] }), { fragment: "#colour=diameter&pile=1" });
    assert.deepEqual(await page.$$eval(".legend li", (entries) => entries.map((entry) => entry.textContent)).then((texts) => texts.slice(0, 2)), ["0.9\u00a0m", "not known"]);
    assert.deepEqual(messages, []);
    await page.close();
});

test("without WebGL the page says so in one line and works", async () => {
    const other = await openBrowser({ webgl: false });
    try {
        const { page, messages } = await other.open(small(), { wait: "" });
        assert.equal(await page.$eval("#no-3d", (line) => line.hidden), false);
        assert.equal(await page.$eval("#scene", (scene) => scene.hidden), true);
        await page.click("#pile-3 td:nth-child(2)");
        assert.equal(await page.$eval("#details h3", (heading) => heading.textContent), "Pile 3");
        assert.deepEqual(messages, []);
    } finally {
        await other.close();
    }
});

for (const scheme of ["light", "dark"])
    test(`axe finds nothing, ${scheme}`, async () => {
        for (const [html, wait] of [[pageOf(smallReport({ compared: true })), "state"], [pageOf(smallReport(), { threeD: false }), ""]]) {
            const { page } = await chromium.open(html, { scheme, wait, fragment: "#pile=4" });
            await page.type("#piles input[type=search]", "given");
            await page.evaluate(axe);
            const { violations } = await page.evaluate(() => window.axe.run());
            assert.deepEqual(violations.map(({ id, nodes }) => `${id}: ${nodes.map((node) => node.html).join(" ")}`), []);
            await page.close();
        }
    });

test("with text at 200 % and on a narrow window nothing is cut off sideways", async () => {
    for (const [width, size] of [[1280, "200%"], [360, "100%"]]) {
        const { page } = await chromium.open(small(), { width, fragment: "#pile=4" });
        await page.evaluate((text) => {
            document.documentElement.style.fontSize = text;
        }, size);
        await settled(page);
        const over = await page.evaluate(() => [...document.querySelectorAll("body *")].filter((element) => {
            if (element.closest(".scroll-box, .details-table, #log pre, .labels, .skip, .live, svg")) return false;
            return element.getBoundingClientRect().right > document.documentElement.clientWidth + 1;
        }).map((element) => `${element.tagName}.${element.className}`));
        assert.deepEqual(over, [], `${width} ${size}`);
        await page.close();
    }
});

test("the tab key reaches every part of the page in a few steps and shows where it is", async () => {
    const { page } = await chromium.open(small());
    const seen = [];
    for (let step = 0; step < 120; ++step) {
        await page.keyboard.press("Tab");
        const at = await page.evaluate(() => {
            const element = document.activeElement;
            const outlined = getComputedStyle(element).outlineStyle !== "none";
            return element === document.body ? null : { name: element.id || element.name || element.className || element.tagName, outlined, section: element.closest("section")?.id ?? "" };
        });
        if (!at) break;
        assert.ok(at.outlined, `${at.name} shows no focus`);
        seen.push(at.section);
    }
    assert.ok(seen.length < 100, `${seen.length} stops`);
    assert.deepEqual([...new Set(seen)].filter((section) => section !== ""), ["findings", "view", "sections", "piles", "deck", "log"]);
    await page.close();
});

test("printed, the page is a note on A4 with the picture, without controls", async () => {
    const { page } = await chromium.open(small(), { fragment: "#pile=3" });
    const pdf = Buffer.from(await page.pdf({ preferCSSPageSize: true }));
    assert.equal(pdf.subarray(0, 5).toString(), "%PDF-");
    const boxes = new Set([...pdf.toString("latin1").matchAll(/\/MediaBox\s*\[([^\]]+)\]/g)].map((match) => match[1].trim().split(/\s+/).map((value) => Math.round(Number(value))).join(" ")));
    assert.deepEqual([...boxes], ["0 0 595 842"]);
    await page.emulateMediaType("print");
    const shown = await page.evaluate(() => ({
        controls: [...document.querySelectorAll(".toolbar, .table-tools, #contents, .stage, .help, #details")].filter((element) => getComputedStyle(element).display !== "none").length,
        picture: document.querySelector(".print-picture").width > 300 && getComputedStyle(document.querySelector(".print-picture")).display,
        clipped: [...document.querySelectorAll(".scroll-box")].filter((box) => box.scrollHeight > box.clientHeight + 1 && getComputedStyle(box).overflow !== "visible").length,
    }));
    assert.deepEqual(shown, { controls: 0, picture: "block", clipped: 0 });
    await page.close();
});
