// Arrays, fragments, CSV, order of rows, numbers of the deck, numbers as text, and the state.
import assert from "node:assert/strict";
import { test } from "node:test";
import { bytesOf, doublesOf, wholes16Of, wholes32Of } from "../../src/data/base64.ts";
import { diameterAtNode, materialOf, pileOfNode } from "../../src/data/group.ts";
import { readReport } from "../../src/data/report.ts";
import { columnNames, csvOf, safeText } from "../../src/page/csv.ts";
import { sectionsOverDepth } from "../../src/page/details.ts";
import { formatFragment, isStateFragment, parseFragment } from "../../src/page/fragment.ts";
import { exactNumber, shortNumber, withUnit } from "../../src/page/numbers.ts";
import { passes, sortedOrder } from "../../src/page/order.ts";
import { DEFAULTS, makeStore } from "../../src/page/state.ts";
import { explain, itemOf, numbersOf } from "../../src/page/tokens.ts";
import { sampleGroup, sectionOf } from "./samples.ts";

test("base64 of little-endian arrays", () => {
    assert.deepEqual([...bytesOf("AQID")], [1, 2, 3]);
    // 1.0 is 3F F0 and six zeros, -2.0 is C0 and seven: in memory from the other end.
    assert.deepEqual([...doublesOf("AAAAAAAA8D8AAAAAAAAAwA==", 2)], [1, -2]);
    // 01 02 is 0x0201; 01 00 01 00 is 65537.
    assert.deepEqual([...wholes16Of("AQI=", 1)], [0x0201]);
    assert.deepEqual([...wholes32Of("AQABAA==", 1)], [65537]);
    assert.throws(() => doublesOf("AQID", 1), /3 bytes where 8 are due/);
    assert.throws(() => bytesOf("%%"));
});

test("a report of another format or version is refused, an empty one is read", () => {
    assert.throws(() => readReport("{}"), /not those of a report/);
    assert.throws(() => readReport('{"format":"korvat report","version":2}'), /version 2/);
    const report = readReport('{"format":"korvat report","version":1}');
    assert.equal(report.group, null);
    assert.equal(report.nodeValues.node.length, 0);
    const pile = '{"number":1,"first_node":0,"nodes":2,"first_element":0,"elements":1}';
    const nodes = '{"count":1,"x":"AAAAAAAA8D8=","y":"AAAAAAAA8D8=","z":"AAAAAAAA8D8="}';
    const elements = '{"count":0,"section":"","diameter":"","length":"","strain":""}';
    assert.throws(() => readReport(`{"format":"korvat report","version":1,"piles":[${pile}],"nodes":${nodes},"elements":${elements}}`), /pile 1/);
});

test("numbers that are not finite are null: loads take them as nothing, a clash without place is left out", () => {
    const report = readReport(`{"format":"korvat report","version":1,
        "load_vectors":[{"label":"a","loads":[{"pile":1,"force":[1,null,3],"moment":[null,0,2]}]}],
        "clashes":[{"piles":[1,2],"point":[0,null,1],"overlap":1},{"piles":[1,3],"point":[0,5,1],"overlap":1}]}`);
    assert.deepEqual(report.loadVectors[0].loads[0], { pile: 1, force: [1, 0, 3], moment: [0, 0, 2] });
    assert.deepEqual(report.clashes.map((clash) => clash.piles), [[1, 3]]);
});

test("nodes know their pile and their diameter", () => {
    const group = sampleGroup();
    assert.deepEqual([0, 1, 4, 5, 6, 7].map((node) => pileOfNode(group, node)), [0, 1, 1, 2, 2, -1]);
    // Node 3 is between an element of 1.0 and one of 0.6; node 4 is the tip below 0.6; node 0 is the cap point.
    assert.deepEqual([0, 3, 4].map((node) => diameterAtNode(group, node)), [0, 1, 0.6]);
});

test("the material of a composite is that of its tubes when they agree", () => {
    const sections = new Map([
        [1, sectionOf(1, 0, 0, { material: null, tubes: [3, 4] })], [2, sectionOf(2, 0, 0, { material: null, tubes: [3, 5] })],
        [3, sectionOf(3, 1, 0.1)], [4, sectionOf(4, 1, 0.1)], [5, sectionOf(5, 1, 0.1, { material: 7 })],
    ]);
    const group = { ...sampleGroup(), sections };
    assert.deepEqual([1, 2, 5, 99].map((number) => materialOf(group, number)), [1, null, 7, null]);
});

test("sections over depth: neighbours of a section are one line", () => {
    const group = sampleGroup();
    assert.deepEqual(sectionsOverDepth(group, group.piles[1]), [["0", "5", "1", "1 × 0.03"], ["5", "10", "2", "0.6 × 0.02"]]);
    assert.deepEqual(sectionsOverDepth(group, group.piles[0]), []);
});

test("the fragment is read and written alike", () => {
    const text = "pile=12&element=3&colour=wall&view=top&projection=true&show=numbers,mudline,nodes&vector=2&cut=-10";
    const state = parseFragment(text);
    assert.deepEqual({ ...state, show: [...state.show] }, {
        pile: 12, element: 3, colour: "wall", view: "top", trueProjection: true, show: ["numbers", "mudline", "nodes"], vector: 2, cut: -10,
    });
    assert.equal(formatFragment(state), text);
    assert.equal(formatFragment(DEFAULTS), "");
    assert.equal(formatFragment(parseFragment("view=62,18.5,120,1,-2,3.25")), "view=62,18.5,120,1,-2,3.25");
    assert.deepEqual([...parseFragment("show=").show], []);
    assert.equal(formatFragment(parseFragment("show=")), "show=");
});

test("what a fragment gets wrong is as at first", () => {
    const state = parseFragment("pile=-1&element=2&colour=red&view=1,2,3&projection=yes&vector=0&cut=1e999&evil=%3Cscript%3E");
    assert.deepEqual(state, DEFAULTS);
    assert.equal(parseFragment("view=1,91,5,0,0,0").view, "oblique");
    assert.equal(parseFragment("view=1,9,0,0,0,0").view, "oblique");
    assert.equal(parseFragment("cut=0x10").cut, null);
    assert.deepEqual([isStateFragment("L12"), isStateFragment("pile=1")], [false, true]);
});

test("CSV quotes what it must, and no text becomes a formula", () => {
    assert.equal(csvOf([["a", "b,c"], ['say "x"', "1\n2"]]), 'a,"b,c"\r\n"say ""x""","1\n2"\r\n');
    assert.deepEqual(["=1+1", "@x", "-a", "plain"].map(safeText), ["'=1+1", "'@x", "'-a", "plain"]);
});

test("columns are named by all headings above them", () => {
    const cell = (text: string, columns = 1, rows = 1) => ({ text, columns, rows });
    assert.deepEqual(columnNames([[cell("Pile", 1, 2), cell("Head", 2), cell("Tip", 1, 2)], [cell("x"), cell("y")]]),
        ["Pile", "Head x", "Head y", "Tip"]);
    assert.deepEqual(columnNames([]), []);
});

test("rows sort by number where there is one, by text else, and empty ones come last", () => {
    const number = (value: number) => ({ text: value.toFixed(1), value });
    const word = (text: string) => ({ text, value: null });
    assert.deepEqual(sortedOrder([number(10), number(9), number(-1), number(9)], "ascending"), [2, 1, 3, 0]);
    assert.deepEqual(sortedOrder([number(10), number(9), number(-1), number(9)], "descending"), [0, 1, 3, 2]);
    assert.deepEqual(sortedOrder([word("b10"), word("B2"), word(""), word("a")], "ascending"), [3, 1, 0, 2]);
    assert.deepEqual(sortedOrder([word("b"), word(" "), word("c")], "descending"), [2, 0, 1]);
});

test("a filter asks for every word; = asks for a whole cell", () => {
    const row = [{ text: "12", value: 12 }, { text: "mirrored", value: null }, { text: "112.50", value: 112.5 }];
    assert.deepEqual(["", "mirr 12", "MIRR", "copied", "=12", "=112.5", "=1", "mirr ="].map((filter) => passes(row, filter)),
        [true, true, true, false, true, true, false, false]);
});

test("the leading numbers of a line are the items of its record", () => {
    // Blanks, commas and tabs part them; the remark begins with the first word.
    assert.deepEqual(numbersOf("  1, 2.1E8\t-.5d3 steel 355", 1).map(({ start, end, item }) => [start, end, item]), [[2, 3, 1], [5, 10, 2], [11, 16, 3]]);
    assert.deepEqual(numbersOf(" 7 8", 5).map(({ item }) => item), [5, 6]);
    assert.deepEqual(numbersOf("a 1", 1), []);
});

test("items beyond the record repeat its last ones, or are not explained", () => {
    const items = ["N", "A", "B"].map((name) => ({ name, meaning: `the ${name}`, unit: name === "A" ? "F/L2" : "-" }));
    const record = { title: "Points", items };
    assert.deepEqual([1, 3, 4, 9].map((item) => itemOf(record, item)?.name), ["N", "B", "B", "B"]);
    assert.deepEqual([4, 5, 6].map((item) => itemOf({ ...record, repeat: 2 }, item)?.name), ["A", "B", "A"]);
    assert.equal(itemOf({ ...record, repeat: 0 }, 4), null);
    assert.equal(explain(record, 2), "Points, item 2: A, the A, F/L2");
    assert.equal(explain(record, 1), "Points, item 1: N, the N");
});

test("numbers as text", () => {
    assert.deepEqual([0.1 + 0.2, -0, 1234567.8, 1e-7, NaN].map(shortNumber), ["0.3", "0", "1234570", "1e-7", "NaN"]);
    assert.deepEqual([0.1 + 0.2, -0].map(exactNumber), ["0.30000000000000004", "-0"]);
    assert.deepEqual([withUnit("1", "m"), withUnit("1", null)], ["1\u00a0m", "1"]);
});

test("the store tells of changes only", () => {
    const store = makeStore(DEFAULTS);
    const heard: (number | null)[] = [];
    store.listen((now) => heard.push(now.pile));
    store.set({ pile: 3 });
    store.set({ pile: 3 });
    store.set({ pile: null });
    assert.deepEqual(heard, [3, null]);
});
