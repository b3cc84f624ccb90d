// Groups for the tests of the viewer: the data of a report, made by rules that a reader can follow.

const b64 = (array) => Buffer.from(array.buffer, array.byteOffset, array.byteLength).toString("base64");

/** Piles as straight lines; each has head, tip and elements [{section, diameter, length}], or none for a cap point. */
export function groupOf(label, piles, sections) {
    const [x, y, z, section, diameter, length, strain] = [[], [], [], [], [], [], []];
    const about = piles.map((pile) => {
        const total = pile.elements.reduce((sum, element) => sum + element.length, 0);
        const first = { first_node: x.length, first_element: section.length };
        let along = 0;
        const put = () => [x, y, z].forEach((axis, i) =>
            axis.push(pile.head[i] + (total > 0 ? ((pile.tip[i] - pile.head[i]) * along) / total : 0)));
        put();
        for (const element of pile.elements) {
            along += element.length;
            put();
            section.push(element.section);
            diameter.push(element.diameter);
            length.push(element.length);
            strain.push(0);
        }
        const drop = total > 0 ? (pile.tip[2] - pile.head[2]) / Math.hypot(...pile.tip.map((value, i) => value - pile.head[i])) : 1;
        return {
            number: pile.number, fixed_to: pile.fixed_to ?? 0, tip_code: 0, origin: pile.origin ?? "given", source: pile.source ?? 0,
            ...first, nodes: pile.elements.length + 1, elements: pile.elements.length, length: total,
            batter: total > 0 ? (Math.acos(Math.min(1, drop)) * 180) / Math.PI : null, weight: total > 0 ? total * 7.5 : null,
            lines: pile.lines ?? [], segments: pile.segments ?? [],
        };
    });
    return {
        label, piles: about, sections,
        nodes: { count: x.length, x: b64(Float64Array.from(x)), y: b64(Float64Array.from(y)), z: b64(Float64Array.from(z)) },
        elements: {
            count: section.length, section: b64(Uint16Array.from(section)), diameter: b64(Float64Array.from(diameter)),
            length: b64(Float64Array.from(length)), strain: b64(Float64Array.from(strain)),
        },
    };
}

/** Values at nodes: a list of {node, springs?, forces?, displacements?}, six numbers each. */
export function nodeValuesOf(values) {
    const six = (name) => b64(Float64Array.from(values.flatMap((value) => value[name] ?? [0, 0, 0, 0, 0, 0])));
    return {
        count: values.length, node: b64(Uint32Array.from(values.map((value) => value.node))),
        springs: six("springs"), forces: six("forces"), displacements: six("displacements"),
    };
}

const same = (count, element) => Array.from({ length: count }, () => element);

export const RECORDS = {
    control: { title: "Piles", items: [{ name: "NUMPIL", meaning: "number of piles", unit: "-" }], repeat: 0 },
    material: {
        title: "Material", items: [
            { name: "N", meaning: "material number", unit: "-" }, { name: "EMOD", meaning: "elastic modulus", unit: "F/L2" },
            { name: "GMOD", meaning: "shear modulus", unit: "F/L2" }, { name: "SIGYLD", meaning: "yield stress", unit: "F/L2" },
        ],
    },
    pile: {
        title: "Pile geometry", items: ["NP", "NGEN", "NSYM", "XHEAD(1)", "XHEAD(2)", "XHEAD(3)", "XTIP(1)", "XTIP(2)", "XTIP(3)"]
            .map((name, i) => ({ name, meaning: `${name} of the pile`, unit: i < 3 ? "-" : "L" })),
    },
    segments: {
        title: "Pile segments", items: [
            { name: "NP", meaning: "pile number", unit: "-" }, { name: "NSEG", meaning: "number of segments", unit: "-" },
            { name: "SEG(I)", meaning: "segment type", unit: "-" },
        ],
    },
};

const SECTIONS = [
    { number: 1, type: 2, diameter: 0, wall: 0, material: null, tubes: [4, 5] },
    { number: 2, type: 1, diameter: 1, wall: 0.03, material: 1, tubes: [] },
    { number: 3, type: 1, diameter: 0.8, wall: 0.02, material: 2, tubes: [] },
    { number: 4, type: 1, diameter: 1.2, wall: 0.04, material: 1, tubes: [] },
    { number: 5, type: 1, diameter: 1.1, wall: 0.02, material: 1, tubes: [] },
];

/** Eight raked piles about a cap point: composites at the head, springs, forces, moments, two load vectors, a clash. */
export function smallReport({ compared = false } = {}) {
    const elements = [
        ...same(4, { section: 1, diameter: 1.2, length: 2.5 }),
        ...same(6, { section: 2, diameter: 1, length: 3 }),
        ...same(4, { section: 3, diameter: 0.8, length: 3 }),
    ];
    const segments = [{ type: 1, elements: 4, length: 10 }, { type: 2, elements: 6, length: 18 }, { type: 3, elements: 4, length: 12 }];
    const origins = ["given", "given", "mirrored", "mirrored", "copied", "copied", "interpolated", "interpolated"];
    const piles = [{ number: 1, head: [0, 0, -4], tip: [0, 0, -4], elements: [], lines: [16] }];
    for (let k = 0; k < 8; ++k) {
        const angle = (2 * Math.PI * (k + 0.5)) / 8;
        const [cos, sin] = [Math.cos(angle), Math.sin(angle)];
        piles.push({
            number: k + 2, fixed_to: 1, origin: origins[k], source: k < 2 ? 0 : k, head: [5 * cos, 5 * sin, 0], tip: [11 * cos, 11 * sin, 39],
            elements, segments, lines: [17 + k],
        });
    }
    const group = groupOf("Eight raked piles under a cap point, kN and m", piles, SECTIONS);
    const moved = piles.filter((pile) => pile.number !== 9).map((pile) =>
        pile.number === 3 ? { ...pile, tip: [pile.tip[0] * 1.35, pile.tip[1] * 1.35, 37] } : pile);
    moved.push({ number: 10, head: [14, 0, 0], tip: [14, 0, 39], elements });
    return {
        format: "korvat report", version: 1, program: "7.6.0.81", file: "KORVAT.INP", revision: 5, complete: true,
        units: { force: "kN", length: "m" },
        ...group,
        node_values: nodeValuesOf([
            { node: 1, springs: [500, 500, 0, 0, 0, 0] }, { node: 3, springs: [200, 200, 0, 0, 0, 40] },
            { node: 16, forces: [30, 0, 0, 0, 0, 0] }, { node: 18, forces: [20, 10, 0, 0, 15, 0] },
            { node: 31, displacements: [0.02, 0, 0, 0, 0, 0.01] },
        ]),
        materials: [{ number: 1, name: "steel" }, { number: 2, name: null }],
        load_vectors: [
            { label: "Mooring force on the cap point", loads: [{ pile: 1, force: [400, 0, 50], moment: [0, -600, 0] }] },
            { label: "Wave on the outer piles", loads: [{ pile: 3, force: [0, 120, 0], moment: [0, 0, 0] }, { pile: 7, force: [0, 90, 0], moment: [0, 0, 0] }] },
        ],
        clashes: [{ piles: [4, 5], point: [-1.5, 7.4, 12], overlap: 0.35 }],
        records: RECORDS,
        other: compared ? groupOf("The group as it was before", moved, SECTIONS) : null,
        changes: compared ? { changed: [3], only_here: [9], only_there: [10] } : null,
    };
}

/** The largest group: 200 piles of 450 elements. everyElement: each has a section of its own beside the next one's. */
export function largestReport({ everyElement = false } = {}) {
    const sections = Array.from({ length: 200 }, (_, i) => ({
        number: i + 1, type: 1, diameter: 0.5 + 0.008 * i, wall: 0.012 + 0.0002 * i, material: (i % 20) + 1, tubes: [],
    }));
    const piles = Array.from({ length: 200 }, (_, p) => {
        const head = [(p % 20) * 6, Math.floor(p / 20) * 6, 0];
        const elements = Array.from({ length: 450 }, (_, k) => {
            const s = everyElement ? (p + 2 * (k % 2) + k) % 200 : (p + 3 * Math.floor(k / 90)) % 200;
            return { section: s + 1, diameter: sections[s].diameter, length: 0.2 };
        });
        return {
            number: p + 1, head, tip: [head[0] + ((p % 3) - 1) * 8, head[1] + ((p % 5) - 2) * 4, 88], elements, lines: [30 + p],
            segments: [{ type: 1, elements: 450, length: 90 }],
        };
    });
    return {
        format: "korvat report", version: 1, program: "7.6.0.81", file: "KORVAT.INP", revision: 4, complete: true,
        units: { force: null, length: null }, ...groupOf("A pile group at the limits of the program", piles, sections),
        node_values: nodeValuesOf([]), materials: sections.slice(0, 20).map(({ number }) => ({ number, name: null })),
        load_vectors: [], clashes: [], records: RECORDS, other: null, changes: null,
    };
}
