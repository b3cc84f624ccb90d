// Groups for the unit tests, written out by hand.
import type { Group, Pile, Report, Section } from "../../src/data/report.ts";

export const pileOf = (number: number, first: Partial<Pile>): Pile => ({
    number, fixed_to: 0, tip_code: 0, origin: "given", source: 0, first_node: 0, nodes: 1, first_element: 0, elements: 0,
    length: 0, batter: 0, weight: null, lines: [], segments: [], ...first,
});

export const sectionOf = (number: number, diameter: number, wall: number, rest: Partial<Section> = {}): Section =>
    ({ number, type: 1, diameter, wall, material: 1, tubes: [], ...rest });

/**
 * Pile 5: a cap point at (0, 0, -1). Pile 7: from (0, 0, 0) down to (0, 0, 10) in elements of 2, 3, 5 m, the first two of
 * section 1 (1.0 m), the last of section 2 (0.6 m). Pile 9: level along x at z = 4 from x = 5 to x = 9, one element of section 2.
 */
export function sampleGroup(): Group {
    const piles = [
        pileOf(5, { nodes: 1 }),
        pileOf(7, { first_node: 1, nodes: 4, elements: 3, length: 10, fixed_to: 5 }),
        pileOf(9, { first_node: 5, nodes: 2, first_element: 3, elements: 1, length: 4, origin: "mirrored", source: 7 }),
    ];
    return {
        label: "sample", piles, indexOf: new Map([[5, 0], [7, 1], [9, 2]]),
        x: Float64Array.of(0, 0, 0, 0, 0, 5, 9), y: new Float64Array(7), z: Float64Array.of(-1, 0, 2, 5, 10, 4, 4),
        section: Uint16Array.of(1, 1, 2, 2), diameter: Float64Array.of(1, 1, 0.6, 0.6), length: Float64Array.of(2, 3, 5, 4),
        strain: new Float64Array(4), sections: new Map([[1, sectionOf(1, 1, 0.03)], [2, sectionOf(2, 0.6, 0.02, { material: 2 })]]),
    };
}

export const reportOf = (group: Group): Report => ({
    complete: true, units: { force: "kN", length: "m" }, group, other: null,
    nodeValues: { node: new Uint32Array(), springs: new Float64Array(), forces: new Float64Array(), displacements: new Float64Array() },
    materials: new Map([[1, { number: 1, name: "steel" }], [2, { number: 2, name: null }]]),
    loadVectors: [], clashes: [], records: {}, changes: null,
});

export function close(actual: readonly number[], expected: readonly number[], tolerance = 1e-12): void {
    if (actual.length !== expected.length || actual.some((value, i) => !(Math.abs(value - expected[i]) <= tolerance)))
        throw new Error(`[${actual.join(", ")}] is not [${expected.join(", ")}]`);
}
