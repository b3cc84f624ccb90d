// What is known of the selected pile: its numbers, its segments, its sections over depth, its nodes, its lines of the deck.
import { headOf, isCapPoint, tipOf, tubesOf } from "../data/group.ts";
import type { Group, Pile, Report } from "../data/report.ts";
import { byId, make } from "./dom.ts";
import { exactNumber, shortNumber, withUnit } from "./numbers.ts";
import type { State, Store } from "./state.ts";

type Cells = readonly string[];

/** A number stands at the right; what is none may take several lines. */
const cellOf = (text: string): HTMLElement => make("td", text !== "" && Number.isFinite(Number(text)) ? { class: "n", text } : { text });

function tableOf(caption: string, heading: Cells, rows: readonly Cells[]): HTMLElement {
    const table = make("table", { class: "small" },
        make("caption", { text: caption }),
        make("thead", {}, make("tr", {}, ...heading.map((text) => make("th", { text, attributes: { scope: "col" } })))),
        make("tbody", {}, ...rows.map((row) => make("tr", {}, ...row.map(cellOf)))));
    // What scrolls sideways must be within reach of the keyboard.
    return make("div", { class: "details-table", attributes: { tabindex: "0", role: "region", "aria-label": caption } }, table);
}

/** How a section is called: its tubes as diameter by wall. */
export function sectionText(group: Group, number: number): string {
    const section = group.sections.get(number);
    const tubes = section ? tubesOf(group, section).filter((tube) => tube.diameter > 0) : [];
    return tubes.map((tube) => `${shortNumber(tube.diameter)} × ${shortNumber(tube.wall)}`).join(" + ");
}

function sectionWords(group: Group, number: number): string {
    if (number === 0) return "no section";
    const tubes = sectionText(group, number);
    return tubes === "" ? `section ${number}` : `section ${number} (${tubes})`;
}

/** The sections of a pile from its head down: levels of begin and end, number, tubes. Neighbours of the same section are one. */
export function sectionsOverDepth(group: Group, pile: Pile): Cells[] {
    const rows: Cells[] = [];
    let begin = 0;
    for (let k = 1; k <= pile.elements; ++k) {
        const same = k < pile.elements && group.section[pile.first_element + k] === group.section[pile.first_element + begin];
        if (same) continue;
        const number = group.section[pile.first_element + begin];
        rows.push([
            shortNumber(group.z[pile.first_node + begin]),
            shortNumber(group.z[pile.first_node + k]),
            number > 0 ? `${number}` : "–",
            sectionText(group, number),
        ]);
        begin = k;
    }
    return rows;
}

const coordinates = (group: Group, node: number): string[] =>
    [group.x[node], group.y[node], group.z[node]].map(exactNumber);

function nodeTable(group: Group, pile: Pile): HTMLElement {
    const rows = Array.from({ length: pile.nodes }, (_, k) => {
        const element = pile.first_element + k;
        const below = k < pile.elements
            ? [`${group.section[element]}`, exactNumber(group.diameter[element]), exactNumber(group.length[element]), exactNumber(group.strain[element])]
            : ["", "", "", ""];
        return [`${k + 1}`, ...coordinates(group, pile.first_node + k), ...below];
    });
    return tableOf("Each node with the element below it", ["Node", "x", "y", "z", "Section", "Diameter", "Length", "Strain"], rows);
}

function facts(report: Report, group: Group, pile: Pile): [string, string][] {
    const { length, force } = report.units;
    const from = pile.source > 0 ? `${pile.origin} from pile ${pile.source}` : pile.origin;
    const point = ([x, y, z]: readonly number[]): string => [x, y, z].map(shortNumber).join(", ");
    if (isCapPoint(pile)) return [["Kind", "cap point"], ["Origin", from], ["Point", point(headOf(group, pile))]];
    const list: [string, string][] = [
        ["Origin", from],
        ["Length", withUnit(shortNumber(pile.length), length)],
        ["Batter", pile.batter === null ? "not finite" : `${shortNumber(Number(pile.batter.toFixed(3)))}° from the vertical`],
        ["Head", point(headOf(group, pile))],
        ["Tip", `${point(tipOf(group, pile))} (code ${pile.tip_code})`],
        ["Elements", `${pile.elements}`],
    ];
    if (pile.fixed_to > 0) list.push(["Fixed to", `pile ${pile.fixed_to}`]);
    if (pile.weight !== null && pile.weight !== undefined) list.push(["Weight", withUnit(shortNumber(pile.weight), force)]);
    return list;
}

function clashLines(report: Report, number: number): string[] {
    return report.clashes.filter((clash) => clash.piles.includes(number)).map((clash) => {
        const other = clash.piles[0] === number ? clash.piles[1] : clash.piles[0];
        return `overlaps pile ${other} by ${withUnit(shortNumber(clash.overlap), report.units.length)} at z = ${shortNumber(clash.point[2])}`;
    });
}

function changeText(report: Report, number: number): string | null {
    if (report.changes?.changed.includes(number)) return "differs from the other group";
    if (report.changes?.only_here.includes(number)) return "is not in the other group";
    return null;
}

function linkList(pile: Pile): HTMLElement {
    const links = pile.lines.flatMap((line, i) => [
        ...(i > 0 ? [document.createTextNode(", ")] : []),
        make("a", { text: `${line}`, attributes: { href: `#L${line}` } }),
    ]);
    return make("p", {}, document.createTextNode("Lines of the deck: "), ...links);
}

function elementText(report: Report, group: Group, pile: Pile, element: number): string | null {
    const index = pile.first_element + element - 1;
    if (element < 1 || element > pile.elements) return null;
    const node = pile.first_node + element - 1;
    const section = group.section[index];
    return `Element ${element}: ${sectionWords(group, section)}, length ${withUnit(shortNumber(group.length[index]), report.units.length)}, `
        + `z from ${shortNumber(group.z[node])} to ${shortNumber(group.z[node + 1])}`;
}

function contentOf(report: Report, group: Group, pile: Pile, state: State): Node[] {
    const nodes: Node[] = [make("h3", { text: `Pile ${pile.number}` })];
    const change = changeText(report, pile.number);
    if (change) nodes.push(make("p", { class: "changed-note", text: `This pile ${change}.` }));
    const element = state.element !== null ? elementText(report, group, pile, state.element) : null;
    if (element) nodes.push(make("p", { class: "element-note", text: element }));
    nodes.push(make("dl", {}, ...facts(report, group, pile).flatMap(([name, value]) => [make("dt", { text: name }), make("dd", { text: value })])));
    for (const text of clashLines(report, pile.number)) nodes.push(make("p", { class: "clash-note", text: `Clash: ${text}` }));
    if (pile.lines.length > 0) nodes.push(linkList(pile));
    if (pile.segments.length > 0)
        nodes.push(tableOf("Segments from the head", ["Type", "Elements", "Length"],
            pile.segments.map((segment) => [`${segment.type}`, `${segment.elements}`, shortNumber(segment.length)])));
    const sections = sectionsOverDepth(group, pile);
    if (sections.length > 0) nodes.push(tableOf("Sections over depth", ["z from", "z to", "Section", "Tubes"], sections));
    // Closed at first: a reader of the screen hears the summary, not hundreds of numbers.
    const box = make("details", {}, make("summary", { text: `Nodes and elements (${pile.nodes})` }));
    box.addEventListener("toggle", () => {
        if (box.open && box.children.length === 1) box.append(nodeTable(group, pile));
    });
    nodes.push(box);
    return nodes;
}

/** Fills the panel of details from the selection, when the page has one. */
export function wireDetails(report: Report, store: Store): void {
    const panel = byId("details");
    const group = report.group;
    if (!panel || !group) return;
    const update = (state: State): void => {
        const index = state.pile === null ? undefined : group.indexOf.get(state.pile);
        if (index === undefined)
            panel.replaceChildren(make("p", { class: "help", text: "Select a pile in the view, a drawing, a table or the deck: what is known of it appears here." }));
        else panel.replaceChildren(...contentOf(report, group, group.piles[index], state));
    };
    update(store.get());
    store.listen((now, before) => {
        if (now.pile !== before.pile || now.element !== before.element) update(now);
    });
}
