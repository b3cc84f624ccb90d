// The 3D view in a real browser: first picture, switches, selection, address, keys, compared groups, lost graphics.
import assert from "node:assert/strict";
import { after, before, test } from "node:test";
import { largestReport, smallReport } from "../support/groups.mjs";
import { openBrowser, pictureOf, settled } from "../support/browser.mjs";
import { pageOf } from "../support/page.mjs";

let chromium;
before(async () => {
    chromium = await openBrowser();
});
after(() => chromium.close());

const small = () => pageOf(smallReport());

/** How many of a thousand points of the canvas are not clear, and how many colours they have. */
const inkOf = (page) => page.evaluate(async () => {
    const canvas = document.querySelector(".stage canvas");
    // The picture is there until the page is drawn: look at it in the same task as a new picture.
    canvas.dispatchEvent(new PointerEvent("pointerleave"));
    window.dispatchEvent(new Event("beforeprint"));
    const copy = document.querySelector(".print-picture");
    const { data } = copy.getContext("2d").getImageData(0, 0, copy.width, copy.height);
    const colours = new Set();
    let ink = 0;
    for (let i = 0; i < data.length; i += 4) {
        if (data[i] + data[i + 1] + data[i + 2] < 720) ++ink;
        colours.add((data[i] << 16) | (data[i + 1] << 8) | data[i + 2]);
    }
    return { ink: ink / (data.length / 4), colours: colours.size };
});

const selected = (page) => page.evaluate(() => ({
    rows: [...document.querySelectorAll("tr.selected[aria-selected=true]")].map((row) => row.dataset.pile),
    lines: [...document.querySelectorAll("li.selected[aria-current=true]")].map((line) => line.dataset.pile),
    drawings: [...document.querySelectorAll("g.pile.selected")].map((group) => group.dataset.pile),
    strips: document.querySelectorAll("figure.strip.selected").length,
    label: document.querySelector(".label.selected")?.textContent ?? null,
    heading: document.querySelector("#details h3")?.textContent ?? null,
}));

const everywhere = (pile, strips = 0) => ({
    rows: [`${pile}`], lines: [`${pile}`], drawings: [`${pile}`, `${pile}`, `${pile}`], strips, label: `${pile}`, heading: `Pile ${pile}`,
});
const nowhere = { rows: [], lines: [], drawings: [], strips: 0, label: null, heading: null };

/** Waits until the address of the page has the text behind #. */
const fragmentIs = (page, text) => page.waitForFunction((expected) => location.hash === expected, {}, text === "" ? "" : `#${text}`);

/** A point of the pile's tube, a little below the number at its head, in the view from the side. */
async function pointOnPile(page, number) {
    return page.evaluate((text) => {
        const label = [...document.querySelectorAll(".label.pile")].find((one) => one.textContent === text);
        const box = label.getBoundingClientRect();
        return { x: box.left + box.width / 2, y: box.bottom + 26 };
    }, `${number}`);
}

test("the first picture comes, without a word on the console and without a request", async () => {
    const { page, messages, requests, address } = await chromium.open(small());
    const { ink, colours } = await inkOf(page);
    assert.ok(ink > 0.02 && colours > 50, `${ink} of the picture is drawn in ${colours} colours`);
    assert.deepEqual(messages, []);
    assert.deepEqual(requests, [address]);
    assert.equal(await page.$eval("#no-3d", (line) => line.hidden), true);
    await page.close();
});

test("the policy of the page holds", async () => {
    const { page, messages } = await chromium.open(small());
    await page.evaluate(() => {
        const image = document.createElement("img");
        image.src = "https://example.invalid/picture.png";
        document.body.append(image);
    });
    await page.waitForFunction(() => true);
    await settled(page);
    assert.ok(messages.some((text) => text.includes("Content Security Policy")), messages.join("\n"));
    await page.close();
});

test("every switch changes the picture or its labels, and back again", async () => {
    const { page, messages } = await chromium.open(small(), { fragment: "#view=62,18,110,0,0,15" });
    const names = await page.$$eval(".toolbar fieldset input", (inputs) => inputs.map((input) => input.name));
    assert.deepEqual(names, ["axes", "numbers", "mudline", "nodes", "links", "springs", "forces", "moments", "displacements", "loads", "clashes"]);
    for (const name of names) {
        const first = await pictureOf(page, ".stage");
        await page.click(`.toolbar input[name=${name}]`);
        const second = await pictureOf(page, ".stage");
        assert.ok(!first.equals(second), `${name} changes nothing`);
        await page.click(`.toolbar input[name=${name}]`);
        assert.ok(first.equals(await pictureOf(page, ".stage")), `${name} does not come back`);
    }
    assert.deepEqual(messages, []);
    await page.close();
});

test("colours, views, projection, vector and section change the picture, and the legend says what by", async () => {
    const { page, messages } = await chromium.open(small());
    const legends = {
        wall: ["Wall thickness", "0.02\u00a0m", "0.03\u00a0m", "0.06\u00a0m"], diameter: ["Diameter", "0.8\u00a0m", "1\u00a0m", "1.2\u00a0m"],
        material: ["Material", "1: steel", "2"], pile: ["Pile", "2", "3", "4", "5", "6", "7", "8", "9"],
        origin: ["Origin of the pile", "given", "copied", "mirrored", "interpolated"],
        section: ["Section", "1: 2 tubes", "2: 1 × 0.03\u00a0m", "3: 0.8 × 0.02\u00a0m"],
    };
    let before = await pictureOf(page, ".stage");
    const changes = async (what) => {
        const now = await pictureOf(page, ".stage");
        assert.ok(!before.equals(now), `${what} changes nothing`);
        before = now;
    };
    for (const [by, expected] of Object.entries(legends)) {
        await page.select("select[name=colour]", by);
        assert.deepEqual(await page.$$eval(".legend h3, .legend ul:first-of-type li", (parts) => parts.map((part) => part.textContent)), expected);
        await changes(by);
    }
    for (const view of ["top", "x", "y", "oblique"]) {
        await page.click(`button[data-view=${view}]`);
        assert.equal(await page.$eval(`button[data-view=${view}]`, (button) => button.getAttribute("aria-pressed")), "true");
        await changes(view);
    }
    await page.click("input[name=projection]");
    await changes("projection");
    await page.select("select[name=vector]", "2");
    await changes("vector");
    assert.match(await page.$eval(".legend .notes", (list) => list.textContent), /Load vector 2: longest force 120\u00a0kN/);
    await page.click("input[name=cut]");
    await changes("cut");
    await page.$eval("input[name=cut-depth]", (input) => {
        input.value = "20";
        input.dispatchEvent(new Event("change"));
    });
    await changes("depth");
    await fragmentIs(page, "projection=true&vector=2&cut=20");
    assert.deepEqual(messages, []);
    await page.close();
});

test("pointing names the element, a click selects its pile everywhere, Escape nowhere", async () => {
    const { page, messages } = await chromium.open(small(), { fragment: "#view=x&projection=true" });
    await settled(page);
    const { x, y } = await pointOnPile(page, 3);
    await page.$eval(".stage", (stage) => stage.scrollIntoView({ block: "center" }));
    const moved = await pointOnPile(page, 3);
    await page.mouse.move(moved.x, moved.y);
    await page.waitForFunction(() => !document.querySelector(".tooltip").hidden);
    const lines = await page.$$eval(".tooltip div", (parts) => parts.map((part) => part.textContent));
    assert.deepEqual(lines.slice(0, 4), ["Pile 3, element 1", "Section 1", "Diameter 1.2, wall 0.04\u00a0m", "Diameter 1.1, wall 0.02\u00a0m"]);
    assert.match(lines[4], /^z = \d/);
    await page.mouse.click(moved.x, moved.y);
    await settled(page);
    assert.deepEqual(await selected(page), everywhere(3, 1));
    assert.match(await page.$eval("#details", (panel) => panel.textContent), /Element 1: section 1 \(1\.2 × 0\.04 \+ 1\.1 × 0\.02\), length 2\.5\u00a0m/);
    await fragmentIs(page, "pile=3&element=1&view=x&projection=true");
    await page.keyboard.press("Escape");
    await settled(page);
    assert.deepEqual(await selected(page), nowhere);
    assert.ok(x > 0 && y > 0);
    assert.deepEqual(messages, []);
    await page.close();
});

test("table, deck and drawing select too", async () => {
    const { page, messages } = await chromium.open(small());
    await page.click("#pile-5 td:nth-child(2)");
    await settled(page);
    assert.deepEqual(await selected(page), everywhere(5));
    await page.click("#L17");
    await settled(page);
    assert.deepEqual(await selected(page), everywhere(2, 1));
    await page.click("#plan g[data-pile='6'] circle");
    await settled(page);
    const now = await selected(page);
    assert.deepEqual([now.rows, now.heading], [["6"], "Pile 6"]);
    await page.focus("#pile-5");
    await page.keyboard.press("ArrowDown");
    await page.keyboard.press("ArrowDown");
    await page.keyboard.press("Enter");
    await settled(page);
    assert.deepEqual((await selected(page)).rows, ["7"]);
    assert.equal(await page.evaluate(() => document.activeElement.id), "pile-7");
    assert.deepEqual(messages, []);
    await page.close();
});

test("the address restores the view, at first and when it changes", async () => {
    const fragment = "#pile=7&element=2&colour=wall&view=top&projection=true&show=nodes,numbers&vector=2&cut=1";
    const { page, messages } = await chromium.open(small(), { fragment });
    const controls = () => page.evaluate(() => ({
        colour: document.querySelector("select[name=colour]").value,
        vector: document.querySelector("select[name=vector]").value,
        view: document.querySelector("button[aria-pressed=true]")?.dataset.view ?? null,
        on: [...document.querySelectorAll(".toolbar input:checked")].map((input) => input.name),
        depth: document.querySelector("input[name=cut-depth]").value,
        pile: document.querySelector("#details h3")?.textContent ?? null,
    }));
    assert.deepEqual(await controls(), { colour: "wall", vector: "2", view: "top", on: ["projection", "numbers", "nodes", "cut"], depth: "1", pile: "Pile 7" });
    const first = await pictureOf(page, ".stage");
    await page.evaluate(() => {
        location.hash = "#pile=2&view=45,20,90,0,0,10";
    });
    await page.waitForFunction(() => document.querySelector("#details h3").textContent === "Pile 2");
    assert.deepEqual(await controls(), {
        colour: "section", vector: "1", view: null, on: ["axes", "numbers", "mudline", "links", "loads", "clashes"], depth: "1", pile: "Pile 2",
    });
    assert.ok(!first.equals(await pictureOf(page, ".stage")));
    // An anchor of the page leaves the view as it is.
    await page.evaluate(() => {
        location.hash = "#L5";
    });
    await settled(page);
    assert.equal((await controls()).pile, "Pile 2");
    assert.deepEqual(messages, []);
    await page.close();
});

test("the keyboard alone turns, zooms, moves, fits and selects", async () => {
    const { page, messages } = await chromium.open(small());
    await page.focus(".stage canvas");
    const changing = async (key, modifier) => {
        const before = await pictureOf(page, ".stage");
        if (modifier) await page.keyboard.down(modifier);
        await page.keyboard.press(key);
        if (modifier) await page.keyboard.up(modifier);
        assert.ok(!before.equals(await pictureOf(page, ".stage")), `${modifier ?? ""} ${key} changes nothing`);
    };
    for (const key of ["ArrowLeft", "ArrowDown", "+", "+", "-", "Home"]) await changing(key);
    await changing("ArrowRight", "Shift");
    await changing("PageDown");
    await changing("PageDown");
    assert.equal((await selected(page)).heading, "Pile 2");
    await changing("PageDown", "Shift");
    assert.match(await page.$eval("#details", (panel) => panel.textContent), /Element 1:/);
    assert.equal(await page.$eval(".live", (live) => live.textContent), "Pile 2, element 1");
    await changing("PageUp");
    await changing("PageUp");
    assert.equal((await selected(page)).heading, "Pile 9");
    await changing("Escape");
    assert.deepEqual(await selected(page), nowhere);
    assert.deepEqual(messages, []);
    await page.close();
});

test("the mouse turns, moves and zooms; the wheel only once the view has the focus", async () => {
    const { page, messages } = await chromium.open(small());
    const box = await page.$eval(".stage canvas", (canvas) => {
        canvas.scrollIntoView({ block: "center" });
        const { left, top, width, height } = canvas.getBoundingClientRect();
        return { x: left + width / 8, y: top + height / 2 };
    });
    const fragment = () => page.evaluate(() => location.hash);
    await page.mouse.move(box.x, box.y);
    const scrolled = () => page.evaluate(() => window.scrollY);
    const top = await scrolled();
    await page.mouse.wheel({ deltaY: 120 });
    await page.waitForFunction((before) => window.scrollY > before, {}, top);
    assert.equal(await fragment(), "");
    await page.$eval(".stage canvas", (canvas) => {
        canvas.focus();
        canvas.scrollIntoView({ block: "center" });
    });
    await page.mouse.wheel({ deltaY: 120 });
    await page.waitForFunction(() => location.hash.startsWith("#view="));
    const zoomed = await fragment();
    const drag = async (button) => {
        const before = await fragment();
        await page.mouse.move(box.x, box.y);
        await page.mouse.down({ button });
        await page.mouse.move(box.x + 60, box.y + 30, { steps: 4 });
        await page.mouse.up({ button });
        await page.waitForFunction((old) => location.hash !== old, {}, before);
        return (await fragment()).slice("#view=".length).split(",").map(Number);
    };
    const before = zoomed.slice("#view=".length).split(",").map(Number);
    const turned = await drag("left");
    // 60 pixels at 0.35 degrees each, and 30.
    assert.ok(Math.abs(turned[0] - before[0] - 21) < 1e-3 && Math.abs(turned[1] - before[1] - 10.5) < 1e-3, `${before} to ${turned}`);
    const moved = await drag("right");
    assert.deepEqual(moved.slice(0, 3), turned.slice(0, 3));
    assert.notDeepEqual(moved.slice(3), turned.slice(3));
    assert.deepEqual(messages, []);
    await page.close();
});

test("a compared group lies over this one and can be switched off", async () => {
    const { page, messages } = await chromium.open(pageOf(smallReport({ compared: true })));
    const both = await pictureOf(page, ".stage");
    assert.match(await page.$eval(".legend .notes", (list) => list.textContent), /Other group: The group as it was before/);
    assert.ok((await page.$$eval(".label", (labels) => labels.map((label) => label.textContent))).includes("3 *"));
    await page.click("input[name=other]");
    assert.ok(!both.equals(await pictureOf(page, ".stage")));
    await page.click("#pile-3 td:nth-child(2)");
    assert.match(await page.$eval("#details", (panel) => panel.textContent), /This pile differs from the other group/);
    assert.deepEqual(messages, []);
    await page.close();
});

test("lost graphics are told of and come back", async () => {
    const { page } = await chromium.open(small());
    const before = await pictureOf(page, ".stage");
    await page.evaluate(() => {
        window.lose = document.querySelector(".stage canvas").getContext("webgl2").getExtension("WEBGL_lose_context");
        window.lose.loseContext();
    });
    await page.waitForFunction(() => !document.querySelector(".lost").hidden);
    await page.evaluate(() => window.lose.restoreContext());
    await page.waitForFunction(() => document.querySelector(".lost").hidden);
    assert.ok(before.equals(await pictureOf(page, ".stage")));
    await page.close();
});

test("the view follows the scheme of the page", async () => {
    const { page, messages } = await chromium.open(small());
    const light = await pictureOf(page, ".stage");
    await page.emulateMediaFeatures([{ name: "prefers-color-scheme", value: "dark" }]);
    await settled(page);
    const dark = await pictureOf(page, ".stage");
    assert.ok(!light.equals(dark));
    await page.emulateMediaFeatures([{ name: "prefers-color-scheme", value: "light" }]);
    await settled(page);
    assert.ok(light.equals(await pictureOf(page, ".stage")));
    assert.deepEqual(messages, []);
    await page.close();
});

for (const everyElement of [false, true])
    test(`the largest group opens and answers${everyElement ? ", each element of another section" : ""}`, async () => {
        const html = pageOf(largestReport({ everyElement }));
        assert.ok(html.length < 12e6);
        const { page, messages } = await chromium.open(html, { fragment: "#view=x&projection=true" });
        const { ink } = await inkOf(page);
        assert.ok(ink > 0.05);
        const first = await page.evaluate(() => performance.getEntriesByName("first-picture")[0].startTime);
        process.stdout.write(`first picture of the largest group after ${Math.round(first)} ms\n`);
        await page.focus(".stage canvas");
        await page.keyboard.press("PageDown");
        assert.equal(await page.$eval("#details h3", (heading) => heading.textContent), "Pile 1");
        assert.deepEqual(messages, []);
        await page.close();
    });
