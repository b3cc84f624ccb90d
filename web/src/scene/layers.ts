// What the view shows beside the tubes: each switch has a layer, made when it is first asked for.
import { Group as Layer, type Object3D } from "three";
import type { Rgb } from "../colour/palette.ts";
import { diameterAtNode, headOf, isCapPoint, nodeAt, pileOfNode, tipOf } from "../data/group.ts";
import type { Group, Report } from "../data/report.ts";
import { arrow, arrowScale, linearSpring, rotationalSpring, tailsOf, touchPoint } from "../geometry/arrows.ts";
import { clashRadius, linksOf } from "../geometry/links.ts";
import { ball, cone, stick, type Solid } from "../geometry/solids.ts";
import { add, length, scale, sub, unit, type Vec } from "../geometry/vec.ts";
import { shortNumber, withUnit } from "../page/numbers.ts";
import type { Shown } from "../page/state.ts";
import { axesAt, mudlineOf, type Box } from "./box.ts";
import { dots, lines, sheet, solidMesh } from "./build.ts";
import { dotMaterial, solidMaterial, type Shared } from "./materials.ts";
import type { Theme } from "./theme.ts";

export interface Label {
    readonly text: string;
    readonly point: Vec;
    readonly kind: "pile" | "cap" | "axis" | "clash" | "plain";
    /** Labels that would lie over one of a higher rank are left out. */
    readonly rank: number;
    /** The number of the pile that it names. */
    readonly pile?: number;
    /** Where the line that it names ends: a section by depth moves the label along it. */
    readonly end?: Vec;
}

export interface LayerContent {
    readonly object: Object3D;
    readonly labels: readonly Label[];
    /** What the legend says of it. */
    readonly note?: { readonly text: string; readonly colour: Rgb };
}

export interface Surroundings {
    readonly report: Report;
    readonly group: Group;
    readonly box: Box;
    readonly origin: Vec;
    readonly shared: Shared;
    readonly theme: Theme;
}

const axisOf = (group: Group, index: number): Vec =>
    unit(sub(tipOf(group, group.piles[index]), headOf(group, group.piles[index])));

/** Solids in one colour, seen faintly through what hides them. */
function ghosted(around: Surroundings, solids: readonly Solid[], colour: Rgb, isCut = true): Layer {
    const layer = new Layer();
    if (solids.length === 0) return layer;
    const { shared, origin } = around;
    const clear = solidMesh(solids, 10, origin, solidMaterial(shared, colour, { isCut })).mesh;
    const ghost = clear.clone();
    ghost.material = solidMaterial(shared, colour, { isCut, opacity: 0.3, depthTest: false, flatness: 1 });
    ghost.renderOrder = 5;
    clear.renderOrder = 6;
    layer.add(ghost, clear);
    return layer;
}

function axes(around: Surroundings): LayerContent {
    const { box, theme } = around;
    const at = axesAt(box);
    const size = 0.16 * box.extent;
    const thickness = 0.0022 * box.extent;
    const directions: readonly [string, Vec][] = [["x", [1, 0, 0]], ["y", [0, 1, 0]], ["z", [0, 0, 1]]];
    const solids = directions.flatMap(([, direction]) => [
        stick(at, add(at, scale(direction, size)), thickness),
        cone(add(at, scale(direction, size)), add(at, scale(direction, 1.12 * size)), 3 * thickness),
    ]);
    const labels = directions.map(([text, direction]): Label =>
        ({ text, point: add(at, scale(direction, 1.2 * size)), kind: "axis", rank: 3 }));
    return { object: ghosted(around, solids, theme.axes, false), labels };
}

function numbers({ group, report }: Surroundings): LayerContent {
    const { changed = [], only_here: onlyHere = [] } = report.changes ?? {};
    const marked = new Set([...changed, ...onlyHere]);
    const labels = group.piles.map((pile): Label => ({
        text: marked.has(pile.number) ? `${pile.number} *` : `${pile.number}`,
        point: headOf(group, pile),
        end: tipOf(group, pile),
        kind: isCapPoint(pile) ? "cap" : "pile",
        rank: marked.has(pile.number) ? 2 : 1,
        pile: pile.number,
    }));
    return { object: new Layer(), labels };
}

function mudline({ box, origin, shared, theme }: Surroundings): LayerContent {
    const { low, high } = mudlineOf(box);
    const corners: Vec[] = [[low[0], low[1], 0], [high[0], low[1], 0], [high[0], high[1], 0], [low[0], high[1], 0]];
    const [a, b, c, d] = corners;
    const material = solidMaterial(shared, theme.mudline, { opacity: 0.22, flatness: 1, bothSides: true });
    const plane = sheet([a, b, c, a, c, d], [0, 0, -1], origin, material);
    plane.renderOrder = 4;
    const edge = lines([a, b, b, c, c, d, d, a], origin, theme.mudline, shared);
    const layer = new Layer();
    layer.add(plane, edge);
    return { object: layer, labels: [{ text: "mudline, z = 0", point: c, kind: "plain", rank: 0 }] };
}

function nodes({ group, origin, shared, theme }: Surroundings): LayerContent {
    const points = Array.from(group.x, (_, node) => nodeAt(group, node));
    const lifts = new Float32Array(points.length);
    for (const pile of group.piles)
        for (let k = 0; k < pile.nodes; ++k) {
            const of = (element: number): number =>
                element >= 0 && element < pile.elements ? group.diameter[pile.first_element + element] : 0;
            lifts[pile.first_node + k] = 0.55 * Math.max(of(k - 1), of(k));
        }
    return { object: dots(points, lifts, origin, dotMaterial(shared, theme.node, 5)), labels: [] };
}

function links(around: Surroundings): LayerContent {
    const { group, box, theme } = around;
    const thickness = 0.0018 * box.extent;
    const solids = linksOf(group).map((link) => stick(link.from, link.to, thickness));
    const caps = group.piles.filter(isCapPoint).flatMap((pile) => ball(headOf(group, pile), 0.009 * box.extent));
    return { object: ghosted(around, [...solids, ...caps], theme.link), labels: [] };
}

/** The three values at a place in the six of each node. */
function triples(values: Float64Array, first: 0 | 3): Vec[] {
    return Array.from({ length: values.length / 6 }, (_, k): Vec =>
        [values[6 * k + first], values[6 * k + first + 1], values[6 * k + first + 2]]);
}

const ofNodes = (around: Surroundings): readonly number[] => [...around.report.nodeValues.node];

const LONGEST = 0.14;

/** An arrow at each node for its value. */
function nodeArrows(around: Surroundings, places: readonly number[], values: readonly Vec[], heads: 1 | 2): Solid[] {
    const { group, box } = around;
    const longest = LONGEST * box.extent;
    const perUnit = arrowScale(values, longest);
    return values.flatMap((value, k) => {
        const node = places[k];
        const index = pileOfNode(group, node);
        if (index < 0) return [];
        const tip = touchPoint(nodeAt(group, node), value, axisOf(group, index), diameterAtNode(group, node) / 2);
        return arrow(tip, value, perUnit, longest, heads);
    });
}

/** Where the arrows of all loads, forces and moments begin. */
export function arrowTails(report: Report, group: Group, box: Box): Vec[] {
    const longest = LONGEST * box.extent;
    const ofLoads = report.loadVectors.flatMap(({ loads }) => {
        const known = loads.filter(({ pile }) => group.indexOf.has(pile));
        const heads = known.map(({ pile }) => nodeAt(group, group.piles[group.indexOf.get(pile) ?? 0].first_node));
        return [...tailsOf(heads, known.map(({ force }) => force), longest), ...tailsOf(heads, known.map(({ moment }) => moment), longest)];
    });
    const nodes = [...report.nodeValues.node].map((node) => nodeAt(group, node));
    const { forces } = report.nodeValues;
    return [...ofLoads, ...tailsOf(nodes, triples(forces, 0), longest), ...tailsOf(nodes, triples(forces, 3), longest)];
}

const largest = (values: readonly Vec[]): number => values.reduce((most, value) => Math.max(most, length(value)), 0);

function momentUnit({ report }: Surroundings): string | null {
    return report.units.force && report.units.length ? `${report.units.force}\u00b7${report.units.length}` : null;
}

function nodeVectors(around: Surroundings, values: Float64Array, first: 0 | 3, heads: 1 | 2, colour: Rgb, name: string, unitText: string | null): LayerContent {
    const vectors = triples(values, first);
    return {
        object: ghosted(around, nodeArrows(around, ofNodes(around), vectors, heads), colour),
        labels: [],
        note: { text: `${name}: longest arrow ${withUnit(shortNumber(largest(vectors)), unitText)}`, colour },
    };
}

function springs(around: Surroundings): LayerContent {
    const { report, group, box, theme } = around;
    const { node, springs: values } = report.nodeValues;
    const directions: readonly Vec[] = [[1, 0, 0], [0, 1, 0], [0, 0, 1]];
    const thickness = 0.0022 * box.extent;
    const most = [0, 3].map((first) => triples(values, first as 0 | 3).reduce((sum, v) => Math.max(sum, ...v.map(Math.abs)), 0));
    const solids: Solid[] = [];
    node.forEach((place, k) => {
        const radius = diameterAtNode(group, place) / 2;
        directions.forEach((direction, i) => {
            const linear = Math.abs(values[6 * k + i]);
            // The share is of the root: springs differ by powers of ten, and the weak ones count too.
            if (linear > 0) solids.push(...linearSpring(nodeAt(group, place), direction, radius + 0.06 * box.extent * Math.sqrt(linear / most[0]), thickness));
            const rotational = Math.abs(values[6 * k + 3 + i]);
            if (rotational > 0) solids.push(...rotationalSpring(nodeAt(group, place), direction, radius + 0.03 * box.extent * Math.sqrt(rotational / most[1]), thickness));
        });
    });
    return { object: ghosted(around, solids, theme.spring), labels: [], note: { text: "Springs: a rod with a plate along an axis, a ring about it; size by the root of the stiffness", colour: theme.spring } };
}

function displacements(around: Surroundings): LayerContent {
    const { report, theme } = around;
    const values = report.nodeValues.displacements;
    const shifts = nodeArrows(around, ofNodes(around), triples(values, 0), 1);
    const turns = nodeArrows(around, ofNodes(around), triples(values, 3), 2);
    return {
        object: ghosted(around, [...shifts, ...turns], theme.displacement),
        labels: [],
        note: { text: `Displacements: longest arrow ${withUnit(shortNumber(largest(triples(values, 0))), report.units.length)}; two heads for rotations`, colour: theme.displacement },
    };
}

function loads(around: Surroundings, vector: number): LayerContent {
    const { report, group, theme } = around;
    const chosen = report.loadVectors[vector - 1];
    const list = (chosen?.loads ?? []).flatMap((load) => {
        const index = group.indexOf.get(load.pile);
        return index === undefined ? [] : [{ load, node: group.piles[index].first_node }];
    });
    const places = list.map(({ node }) => node);
    const forces = list.map(({ load }) => load.force);
    const moments = list.map(({ load }) => load.moment);
    const solids = [...nodeArrows(around, places, forces, 1), ...nodeArrows(around, places, moments, 2)];
    const parts = [
        largest(forces) > 0 ? `longest force ${withUnit(shortNumber(largest(forces)), report.units.force)}` : null,
        largest(moments) > 0 ? `longest moment (two heads) ${withUnit(shortNumber(largest(moments)), momentUnit(around))}` : null,
    ].filter((part) => part !== null);
    return {
        object: ghosted(around, solids, theme.load),
        labels: [],
        note: { text: `Load vector ${vector}: ${parts.length > 0 ? parts.join(", ") : "no load"}`, colour: theme.load },
    };
}

function clashes(around: Surroundings): LayerContent {
    const { report, box, theme } = around;
    const solids = report.clashes.flatMap((clash) => ball(clash.point, clashRadius(clash, box.extent)));
    return {
        object: ghosted(around, solids, theme.clash),
        labels: report.clashes.map((clash): Label =>
            ({ text: `${clash.piles[0]} × ${clash.piles[1]}`, point: clash.point, kind: "clash", rank: 4 })),
        note: { text: `Clashes: ${report.clashes.length}`, colour: theme.clash },
    };
}

/** The layer of a switch; vector is the chosen load vector. Tubes and the other group are made elsewhere. */
export function makeLayer(around: Surroundings, shown: Exclude<Shown, "other">, vector: number): LayerContent {
    const { report, theme } = around;
    switch (shown) {
        case "axes": return axes(around);
        case "numbers": return numbers(around);
        case "mudline": return mudline(around);
        case "nodes": return nodes(around);
        case "links": return links(around);
        case "springs": return springs(around);
        case "forces": return nodeVectors(around, report.nodeValues.forces, 0, 1, theme.force, "Forces", report.units.force);
        case "moments": return nodeVectors(around, report.nodeValues.forces, 3, 2, theme.moment, "Moments (two heads)", momentUnit(around));
        case "displacements": return displacements(around);
        case "loads": return loads(around, vector);
        case "clashes": return clashes(around);
    }
}

/** The switches that have something to show in this report. */
export function availableLayers(report: Report): Shown[] {
    const { nodeValues, group } = report;
    const some = (values: Float64Array, first: number): boolean => values.some((value, k) => value !== 0 && k % 6 >= first && k % 6 < first + 3);
    const available: Shown[] = ["axes", "numbers", "mudline", "nodes"];
    if (group?.piles.some((pile) => isCapPoint(pile) || pile.fixed_to > 0)) available.push("links");
    if (nodeValues.springs.some((value) => value !== 0)) available.push("springs");
    if (some(nodeValues.forces, 0)) available.push("forces");
    if (some(nodeValues.forces, 3)) available.push("moments");
    if (nodeValues.displacements.some((value) => value !== 0)) available.push("displacements");
    if (report.loadVectors.length > 0) available.push("loads");
    if (report.clashes.length > 0) available.push("clashes");
    if (report.other) available.push("other");
    return available;
}
