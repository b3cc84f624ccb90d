// Writes report pages like those of the program, from the data of a report: what the viewer's tests open in a browser.
import { createHash } from "node:crypto";
import { readFileSync } from "node:fs";
import path from "node:path";
import { fileURLToPath } from "node:url";

const dist = path.join(path.dirname(fileURLToPath(import.meta.url)), "..", "..", "dist");

export const escape = (text) => String(text)
    .replaceAll("&", "&amp;").replaceAll("<", "&lt;").replaceAll(">", "&gt;").replaceAll('"', "&quot;");

const hash = (text) => `'sha256-${createHash("sha256").update(text, "utf8").digest("base64")}'`;
const number = (value) => (value === null ? "<td></td>" : `<td class="n" data-value="${value}">${Number(value).toFixed(3)}</td>`);

function doubles(text) {
    const bytes = Buffer.from(text, "base64");
    return Array.from({ length: bytes.length / 8 }, (_, i) => bytes.readDoubleLE(8 * i));
}

function endsOf(report) {
    if (!report.nodes) return [];
    const [x, y, z] = ["x", "y", "z"].map((axis) => doubles(report.nodes[axis]));
    return report.piles.map((pile) => {
        const [head, tip] = [pile.first_node, pile.first_node + pile.nodes - 1];
        return { pile, head: [x[head], y[head], z[head]], tip: [x[tip], y[tip], z[tip]] };
    });
}

function drawing(id, caption, ends, across, down) {
    const values = (axis) => ends.flatMap(({ head, tip }) => [head[axis], tip[axis]]);
    const [left, right] = [Math.min(...values(across)) - 3, Math.max(...values(across)) + 3];
    const [top, bottom] = [Math.min(...values(down)) - 3, Math.max(...values(down)) + 3];
    const piles = ends.map(({ pile, head, tip }) => `<g class="pile" data-pile="${pile.number}">
<line x1="${head[across]}" y1="${head[down]}" x2="${tip[across]}" y2="${tip[down]}" stroke="currentColor" stroke-width="0.3"/>
<circle cx="${head[across]}" cy="${head[down]}" r="0.6" fill="currentColor"/>
<text x="${head[across] + 0.8}" y="${head[down] - 0.5}" font-size="1.4" fill="currentColor">${pile.number}</text></g>`);
    return `<figure id="${id}"><svg xmlns="http://www.w3.org/2000/svg" role="img" aria-label="${caption}" width="520" viewBox="${left} ${top} ${right - left} ${bottom - top}">${piles.join("\n")}</svg><figcaption>${caption}</figcaption></figure>`;
}

function curve() {
    const points = [[15600, 0], [0, 3310], [-15600, 0]];
    const draw = (kind, factor) => `<g class="${kind}">${points.map(([n, m]) =>
        `<circle class="point" cx="${20 + (m * factor) / 40}" cy="${120 - (n * factor) / 200}" r="3" data-axial="${n * factor}" data-moment="${m * factor}"><title>N = ${n * factor}</title></circle>`).join("")}</g>`;
    return `<figure class="curve" data-section="3"><svg xmlns="http://www.w3.org/2000/svg" role="img" aria-label="Yield curve of section 3" width="260" height="240" viewBox="0 0 260 240">${draw("elastic", 1)}${draw("plastic", 1.25)}</svg><figcaption>Section 3</figcaption></figure>`;
}

/** The lines of the deck that the pages show: [text, record, first item, pile, class]. */
function deckLines(report) {
    const lines = Array.from({ length: 15 }, () => ["", null, null, null, ""]);
    lines[0] = [report.label, null, null, null, ""];
    lines[1] = ["* a comment", null, null, null, "comment"];
    lines[4] = ["  1   2.1E8  8.077E7\t3.55E5 steel 355", "material", 1, null, ""];
    lines[6] = ["  2   3", "segments", 1, null, ""];
    lines[7] = ["  1 2 3", "segments", 3, null, ""];
    for (const { pile, head, tip } of endsOf(report)) {
        const line = pile.lines[0];
        if (line) lines[line - 1] = [`  ${pile.number} 0 0  ${[...head, ...tip].map((value) => value.toFixed(3)).join("  ")}`, "pile", 1, pile.number, ""];
    }
    return Array.from(lines, (line) => line ?? ["", null, null, null, ""]);
}

function deck(report) {
    const items = deckLines(report).map(([text, record, item, pile, kind], i) => {
        const attributes = [
            `id="L${i + 1}" value="${i + 1}"`, kind ? `class="${kind}"` : "", record ? `data-r="${record}" data-i="${item}"` : "", pile ? `data-pile="${pile}"` : "",
        ].filter(Boolean).join(" ");
        const marked = i === 4 ? escape(text).replace("3.55", '<mark class="warning" data-rule="yield" title="unusual yield stress">3.55</mark>') : escape(text);
        return `<li ${attributes}>${marked}</li>`;
    });
    return `<section id="deck"><h2>Deck</h2><ol id="deck-lines">${items.join("\n")}</ol></section>`;
}

/** A whole page. threeD: with the view; small: the script without three.js; log: text of the log; noData: without the JSON. */
export function pageOf(report, { threeD = true, small = !threeD, log = " NORMAL EXIT FROM KORVAT", noData = false, sections = true } = {}) {
    const style = readFileSync(path.join(dist, "viewer.css"), "utf8");
    const script = readFileSync(path.join(dist, small ? "viewer-small.js" : "viewer.js"), "utf8");
    const ends = endsOf(report);
    const kept = threeD ? report : { ...report, nodes: undefined, elements: undefined };
    const json = JSON.stringify(kept).replaceAll("<", "\\u003c").replaceAll("\u2028", "\\u2028").replaceAll("\u2029", "\\u2029");
    const policy = `default-src 'none'; script-src ${hash(script)}; style-src ${hash(style)}; img-src data:; base-uri 'none'; form-action 'none'`;
    const pileRows = ends.map(({ pile, head, tip }) => `<tr data-pile="${pile.number}" id="pile-${pile.number}">${number(pile.number)}<td>${pile.origin}</td>${number(pile.length)}${number(pile.batter)}${head.map(number).join("")}${tip.map(number).join("")}</tr>`);
    const parts = [
        `<section id="findings"><h2>Check</h2><ul><li class="warning" data-rule="yield" data-line="5">unusual yield stress, <a href="#L5">line 5</a></li><li class="note" data-rule="blank" data-line="2">a remark, <a href="#L2">line 2</a></li></ul></section>`,
        threeD ? `<section id="view"><h2>View</h2><p id="no-3d" hidden>This browser shows no 3D graphics (WebGL); the drawings below show the group.</p><div id="scene"></div><aside id="details" aria-live="polite" aria-label="Selected pile"></aside></section>` : "",
        sections && report.nodes ? `<section id="drawings"><h2>Drawings</h2>${drawing("plan", "Plan", ends, 0, 1)}${drawing("elevation-x", "Elevation X–Z", ends, 0, 2)}${drawing("elevation-y", "Elevation Y–Z", ends, 1, 2)}<figure class="strip" data-piles="2 3 4"><svg xmlns="http://www.w3.org/2000/svg" role="img" aria-label="Strip" width="60" height="200" viewBox="0 0 6 20"><rect x="1" y="1" width="4" height="18" fill="none" stroke="currentColor" stroke-width="0.2"/></svg><figcaption>Piles 2, 3, 4</figcaption></figure></section>` : "",
        sections && report.sections ? `<section id="sections"><h2>Sections</h2><table id="section-table" class="data"><thead><tr><th rowspan="2" scope="col">Section</th><th colspan="2" scope="colgroup">Tube</th></tr><tr><th scope="col">Diameter</th><th scope="col">Wall</th></tr></thead><tbody>${report.sections.map((s) => `<tr data-section="${s.number}">${number(s.number)}${number(s.diameter)}${number(s.wall)}</tr>`).join("")}</tbody></table>${curve()}</section>` : "",
        ends.length > 0 ? `<section id="piles"><h2>Piles</h2><div class="table-wrap" tabindex="0" role="region" aria-label="Piles"><table id="pile-table" class="data"><caption>Piles</caption><thead><tr>${["Pile", "Origin", "Length", "Batter", "Head x", "Head y", "Head z", "Tip x", "Tip y", "Tip z"].map((name) => `<th scope="col">${name}</th>`).join("")}</tr></thead><tbody>${pileRows.join("\n")}</tbody></table></div></section>` : "",
        deck(report),
        `<section id="log"><h2>Log</h2><pre>${escape(log)}</pre></section>`,
    ].filter(Boolean);
    const contents = parts.map((part) => /<section id="([^"]+)"><h2>([^<]+)/.exec(part)).map(([, id, name]) => `<li><a href="#${id}">${name}</a></li>`);
    return `<!doctype html><html lang="en"><head><meta charset="utf-8">
<meta http-equiv="Content-Security-Policy" content="${policy}">
<meta name="viewport" content="width=device-width, initial-scale=1"><title>${escape(report.label)} - KORVAT</title><style>${style}</style></head>
<body><a class="skip" href="#main">Skip to the content</a>
<header id="head"><h1>${escape(report.label)}</h1><dl class="facts"><div><dt>Deck</dt><dd>KORVAT.INP</dd></div><div><dt>Revision</dt><dd>${report.revision}</dd></div><div><dt>Findings</dt><dd>1 warning, 1 note</dd></div></dl></header>
<nav id="contents" aria-label="Contents"><ul>${contents.join("")}</ul></nav>
<main id="main" tabindex="-1">${parts.join("\n")}</main>
${noData ? "" : `<script type="application/json" id="korvat-data">${json}</script>`}<script>${script}</script></body></html>`;
}
