// The data of a report (the JSON block of the page), read into typed arrays. The format is described in docs/report-data.md.
import { doublesOf, wholes16Of, wholes32Of } from "./base64.ts";
import type { Vec } from "../geometry/vec.ts";

export type Origin = "given" | "copied" | "mirrored" | "interpolated";

export interface Segment {
    readonly type: number;
    readonly elements: number;
    readonly length: number | null;
}

export interface Pile {
    readonly number: number;
    /** The number of the pile to whose head this one is fixed; 0 for none. */
    readonly fixed_to: number;
    readonly tip_code: number;
    readonly origin: Origin;
    /** The pile from which this one was generated; 0 for none. */
    readonly source: number;
    readonly first_node: number;
    /** One node and no element: a cap point. */
    readonly nodes: number;
    readonly first_element: number;
    readonly elements: number;
    /** Null where it is not finite. */
    readonly length: number | null;
    /** From the vertical, in degrees; null at a cap point. */
    readonly batter: number | null;
    readonly weight: number | null;
    /** Lines of the deck, from 1. */
    readonly lines: readonly number[];
    readonly segments: readonly Segment[];
}

export interface Section {
    readonly number: number;
    readonly type: number;
    readonly diameter: number;
    readonly wall: number;
    readonly material: number | null;
    /** The numbers of the sections that are the tubes of a composite, outermost first. */
    readonly tubes: readonly number[];
}

export interface Material {
    readonly number: number;
    readonly name: string | null;
}

export interface Load {
    readonly pile: number;
    readonly force: Vec;
    readonly moment: Vec;
}

export interface LoadVector {
    readonly label: string;
    readonly loads: readonly Load[];
}

export interface Clash {
    readonly piles: readonly [number, number];
    readonly point: Vec;
    readonly overlap: number;
}

export interface RecordItem {
    readonly name: string;
    readonly meaning: string;
    readonly unit: string;
}

export interface RecordKind {
    readonly title: string;
    readonly items: readonly RecordItem[];
    /** How many of the last items repeat in a longer record; 1 where it is not said. */
    readonly repeat?: number;
}

export interface Changes {
    readonly changed: readonly number[];
    readonly only_here: readonly number[];
    readonly only_there: readonly number[];
}

export interface Units {
    readonly force: string | null;
    readonly length: string | null;
}

/** The piles of one deck with their nodes and elements. Index of a pile: its place in piles. */
export interface Group {
    readonly label: string;
    readonly piles: readonly Pile[];
    /** From the number of a pile to its index. */
    readonly indexOf: ReadonlyMap<number, number>;
    readonly x: Float64Array;
    readonly y: Float64Array;
    readonly z: Float64Array;
    readonly section: Uint16Array;
    readonly diameter: Float64Array;
    readonly length: Float64Array;
    readonly strain: Float64Array;
    readonly sections: ReadonlyMap<number, Section>;
}

/** Values at nodes, six a node: three along the axes, three about them. */
export interface NodeValues {
    readonly node: Uint32Array;
    readonly springs: Float64Array;
    readonly forces: Float64Array;
    readonly displacements: Float64Array;
}

export interface Report {
    readonly complete: boolean;
    readonly units: Units;
    readonly group: Group | null;
    readonly other: Group | null;
    readonly nodeValues: NodeValues;
    readonly materials: ReadonlyMap<number, Material>;
    readonly loadVectors: readonly LoadVector[];
    readonly clashes: readonly Clash[];
    readonly records: Readonly<Record<string, RecordKind>>;
    readonly changes: Changes | null;
}

export const FORMAT = "korvat report";
export const VERSION = 1;

interface RawGroup {
    readonly label?: string;
    readonly piles?: readonly Pile[];
    readonly nodes?: { readonly count: number; readonly x: string; readonly y: string; readonly z: string };
    readonly elements?: {
        readonly count: number;
        readonly section: string;
        readonly diameter: string;
        readonly length: string;
        readonly strain: string;
    };
    readonly sections?: readonly Section[];
}

interface RawReport extends RawGroup {
    readonly format?: unknown;
    readonly version?: unknown;
    readonly complete?: boolean;
    readonly units?: Units;
    readonly node_values?: {
        readonly count: number;
        readonly node: string;
        readonly springs: string;
        readonly forces: string;
        readonly displacements: string;
    };
    readonly materials?: readonly Material[];
    readonly load_vectors?: readonly LoadVector[];
    readonly clashes?: readonly Clash[];
    readonly records?: Readonly<Record<string, RecordKind>>;
    readonly other?: RawGroup | null;
    readonly changes?: Changes | null;
}

function checkRanges(piles: readonly Pile[], nodes: number, elements: number): void {
    for (const pile of piles) {
        const rangesFit = pile.first_node + pile.nodes <= nodes && pile.first_element + pile.elements <= elements;
        if (!rangesFit || pile.nodes < 1 || (pile.elements > 0 && pile.nodes !== pile.elements + 1))
            throw new Error(`pile ${pile.number}: its nodes and elements are not those of the arrays`);
    }
}

function groupOf(raw: RawGroup): Group | null {
    const { piles, nodes, elements } = raw;
    if (!piles || piles.length === 0 || !nodes || !elements) return null;
    checkRanges(piles, nodes.count, elements.count);
    return {
        label: raw.label ?? "",
        piles,
        indexOf: new Map(piles.map((pile, index) => [pile.number, index])),
        x: doublesOf(nodes.x, nodes.count),
        y: doublesOf(nodes.y, nodes.count),
        z: doublesOf(nodes.z, nodes.count),
        section: wholes16Of(elements.section, elements.count),
        diameter: doublesOf(elements.diameter, elements.count),
        length: doublesOf(elements.length, elements.count),
        strain: doublesOf(elements.strain, elements.count),
        sections: new Map((raw.sections ?? []).map((section) => [section.number, section])),
    };
}

function nodeValuesOf(raw: RawReport["node_values"]): NodeValues {
    const count = raw?.count ?? 0;
    return {
        node: wholes32Of(raw?.node ?? "", count),
        springs: doublesOf(raw?.springs ?? "", 6 * count),
        forces: doublesOf(raw?.forces ?? "", 6 * count),
        displacements: doublesOf(raw?.displacements ?? "", 6 * count),
    };
}

/** Numbers that are not finite are null in JSON: they count as nothing. */
const finite = ([x, y, z]: readonly (number | null)[]): Vec => [x ?? 0, y ?? 0, z ?? 0];

const loadsOf = (vector: LoadVector): LoadVector => ({
    ...vector,
    loads: vector.loads.map((load) => ({ ...load, force: finite(load.force), moment: finite(load.moment) })),
});

/** Reads the JSON of a report. Another format, a newer version or arrays that do not fit are errors. */
export function readReport(text: string): Report {
    const raw = JSON.parse(text) as RawReport;
    if (raw.format !== FORMAT) throw new Error("the data are not those of a report");
    if (raw.version !== VERSION) throw new Error(`the data are of version ${String(raw.version)}, this viewer reads ${VERSION}`);
    return {
        complete: raw.complete ?? true,
        units: raw.units ?? { force: null, length: null },
        group: groupOf(raw),
        other: raw.other ? groupOf(raw.other) : null,
        nodeValues: nodeValuesOf(raw.node_values),
        materials: new Map((raw.materials ?? []).map((material) => [material.number, material])),
        loadVectors: (raw.load_vectors ?? []).map(loadsOf),
        clashes: (raw.clashes ?? []).filter((clash) => clash.point.every(Number.isFinite)),
        records: raw.records ?? {},
        changes: raw.changes ?? null,
    };
}
