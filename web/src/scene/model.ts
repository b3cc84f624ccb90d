// The tubes of the view: the group, the group that it is compared with, the marks of what is selected, and the section by depth.
import { Group as Layer, Mesh, type BufferGeometry, type Scene } from "three";
import { colouringOf, type ColourBy, type Colouring } from "../colour/scheme.ts";
import type { Rgb } from "../colour/palette.ts";
import type { Group, Report } from "../data/report.ts";
import { nodeAt } from "../data/group.ts";
import { cutRings } from "../geometry/cut.ts";
import { runsOf, type Run } from "../geometry/runs.ts";
import { stick } from "../geometry/solids.ts";
import { sidesFor, tubeSolids } from "../geometry/tubes.ts";
import { add, scale, type Vec } from "../geometry/vec.ts";
import { sheet, solidMesh, tint } from "./build.ts";
import { outlineMaterial, solidMaterial, type Shared } from "./materials.ts";
import type { Theme } from "./theme.ts";

export interface Model {
    readonly runs: readonly Run[];
    readonly otherRuns: readonly Run[];
    readonly colourBy: (by: ColourBy) => Colouring;
    readonly select: (pile: number | null, element: number | null) => void;
    readonly hover: (element: number | null) => void;
    readonly cutAt: (depth: number | null) => void;
    readonly showOther: (on: boolean) => void;
    readonly setTheme: (theme: Theme) => void;
}

/** Frees what an object holds on the graphics card. */
export function discard(object: { traverse: (visit: (part: unknown) => void) => void }): void {
    object.traverse((part) => {
        if (part instanceof Mesh) (part.geometry as BufferGeometry).dispose();
    });
}

export function makeModel(scene: Scene, report: Report, group: Group, origin: Vec, extent: number, shared: Shared, first: Theme): Model {
    const thin = extent / 700;
    const runs = runsOf(group);
    const otherRuns = report.other ? runsOf(report.other) : [];
    let theme = first;

    const tubes = solidMesh(tubeSolids(runs, thin), sidesFor(runs.length), origin, solidMaterial(shared, theme.text, { tinted: true, bothSides: true }));
    scene.add(tubes.mesh);
    let colouring = colouringOf(report, group, runs, "section");

    const marks = { selected: new Layer(), element: new Layer(), hover: new Layer(), cut: new Layer(), changed: new Layer(), other: new Layer() };
    scene.add(...Object.values(marks));
    const fill = (layer: Layer, ...meshes: Mesh[]): void => {
        discard(layer);
        layer.clear();
        if (meshes.length > 0) layer.add(...meshes);
    };

    const outline = (of: readonly Run[], colour: Rgb, pixels: number): Mesh =>
        solidMesh(tubeSolids(of, thin), 24, origin, outlineMaterial(shared, colour, pixels)).mesh;
    const elementMesh = (element: number, colour: Rgb): Mesh => {
        const pile = group.piles.findIndex((candidate) => element >= candidate.first_element && element < candidate.first_element + candidate.elements);
        const node = group.piles[pile].first_node + element - group.piles[pile].first_element;
        const radius = group.diameter[element] > 0 ? group.diameter[element] / 2 : thin;
        const solid = stick(nodeAt(group, node), nodeAt(group, node + 1), radius * 1.02 + extent * 1e-4);
        return solidMesh([solid], 24, origin, solidMaterial(shared, colour, { opacity: 0.75 })).mesh;
    };

    let chosen: readonly [number | null, number | null] = [null, null];
    let depth: number | null = null;
    let withOther = false;

    const showSelection = (): void => {
        const [number, element] = chosen;
        const index = number === null ? undefined : group.indexOf.get(number);
        const own = index === undefined ? [] : runs.filter((run) => run.pile === index);
        fill(marks.selected, ...(own.length > 0 ? [outline(own, theme.selected, 3)] : []));
        const pile = index === undefined ? undefined : group.piles[index];
        const inPile = pile && element !== null && element >= 1 && element <= pile.elements;
        fill(marks.element, ...(inPile ? [elementMesh(pile.first_element + element - 1, theme.selected)] : []));
    };
    const showCut = (): void => {
        if (depth === null) return fill(marks.cut);
        const level = depth;
        const steps = 32;
        const meshes = new Map<string, { colour: Rgb; triangles: Vec[] }>();
        for (const ring of cutRings(group, runs, level)) {
            const at = (k: number, radius: number): Vec => {
                const angle = (2 * Math.PI * k) / steps;
                return add(ring.centre, add(scale(ring.along, radius * Math.cos(angle)), scale(ring.across, radius * Math.sin(angle))));
            };
            const colour = colouring.colourOf(runs[ring.run]);
            const key = colour.join();
            const entry = meshes.get(key) ?? { colour, triangles: [] };
            meshes.set(key, entry);
            for (let k = 0; k < steps; ++k) {
                const [a, b, c, d] = [at(k, ring.outer), at(k + 1, ring.outer), at(k, ring.inner), at(k + 1, ring.inner)];
                entry.triangles.push(a, b, c, c, b, d);
            }
        }
        fill(marks.cut, ...[...meshes.values()].map(({ colour, triangles }) =>
            sheet(triangles, [0, 0, -1], origin, solidMaterial(shared, colour, { bothSides: true, flatness: 1, isCut: false }))));
    };
    const showOther = (): void => {
        const { changed = [], only_here: onlyHere = [] } = report.changes ?? {};
        const marked = new Set([...changed, ...onlyHere]);
        const markedRuns = runs.filter((run) => marked.has(group.piles[run.pile].number));
        fill(marks.changed, ...(withOther && markedRuns.length > 0 ? [outline(markedRuns, theme.changed, 2)] : []));
        if (!withOther || otherRuns.length === 0) return fill(marks.other);
        const material = solidMaterial(shared, theme.other, { opacity: 0.4, depthWrite: true, behind: true });
        const ghost = solidMesh(tubeSolids(otherRuns, thin), sidesFor(otherRuns.length), origin, material).mesh;
        ghost.renderOrder = 2;
        fill(marks.other, ghost);
    };
    return {
        runs,
        otherRuns,
        colourBy: (by) => {
            colouring = colouringOf(report, group, runs, by);
            tint(tubes, runs.map(colouring.colourOf));
            showCut();
            return colouring;
        },
        select: (pile, element) => {
            chosen = [pile, element];
            showSelection();
        },
        hover: (element) => fill(marks.hover, ...(element === null ? [] : [elementMesh(element, theme.hover)])),
        cutAt: (to) => {
            depth = to;
            showCut();
        },
        showOther: (on) => {
            withOther = on;
            showOther();
        },
        setTheme: (next) => {
            theme = next;
            showSelection();
            showOther();
        },
    };
}
