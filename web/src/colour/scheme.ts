// What each tube is coloured by, and the legend that says so.
import { materialOf, wallOf } from "../data/group.ts";
import type { Group, Origin, Report } from "../data/report.ts";
import type { Run } from "../geometry/runs.ts";
import { shortNumber, withUnit } from "../page/numbers.ts";
import { KINDS, NONE, rampAt, type Rgb } from "./palette.ts";

export const COLOUR_BY = ["section", "wall", "diameter", "material", "pile", "origin"] as const;
export type ColourBy = (typeof COLOUR_BY)[number];

export interface LegendEntry {
    readonly label: string;
    readonly colour: Rgb;
}

export interface Colouring {
    readonly title: string;
    readonly entries: readonly LegendEntry[];
    /** The entries are marks on a continuous ramp, the least first. */
    readonly continuous: boolean;
    readonly colourOf: (run: Run) => Rgb;
}

const ORIGINS: readonly Origin[] = ["given", "copied", "mirrored", "interpolated"];
const TITLES: Readonly<Record<ColourBy, string>> = {
    section: "Section",
    wall: "Wall thickness",
    diameter: "Diameter",
    material: "Material",
    pile: "Pile",
    origin: "Origin of the pile",
};

const ascending = (values: Iterable<number>): number[] => [...new Set(values)].sort((a, b) => a - b);

/** Values up to this many have an entry each. */
const MOST_ENTRIES = 12;

function byAmount(title: string, runs: readonly Run[], unit: string | null, amountOf: (run: Run) => number): Colouring {
    const amounts = new Map(runs.map((run) => [run, amountOf(run)]));
    const known = ascending([...amounts.values()].filter((value) => value > 0));
    const [least, most] = [known[0] ?? 0, known[known.length - 1] ?? 0];
    const shareOf = (value: number): number => (most > least ? (value - least) / (most - least) : 0.5);
    const continuous = known.length > MOST_ENTRIES;
    const marks = continuous ? [0, 0.25, 0.5, 0.75, 1].map((share) => least + share * (most - least)) : known;
    const entries: LegendEntry[] = marks.map((value) => ({
        label: withUnit(shortNumber(value), unit),
        colour: rampAt(shareOf(value)),
    }));
    if ([...amounts.values()].some((value) => !(value > 0))) entries.push({ label: "not known", colour: NONE });
    return {
        title,
        entries,
        continuous,
        colourOf: (run) => {
            const value = amounts.get(run) ?? 0;
            return value > 0 ? rampAt(shareOf(value)) : NONE;
        },
    };
}

/** Kinds by number: a colour each, from the ramp when there are more than the palette has; 0 is none. */
function byKind(title: string, runs: readonly Run[], kindOf: (run: Run) => number, nameOf: (kind: number) => string,
    none = "none"): Colouring {
    const kinds = ascending(runs.map(kindOf));
    const real = kinds.filter((kind) => kind > 0);
    const colours = new Map<number, Rgb>(
        real.map((kind, i) => [kind, real.length <= KINDS.length ? KINDS[i] : rampAt(i / (real.length - 1))]),
    );
    return {
        title,
        entries: kinds.map((kind) => ({ label: kind > 0 ? nameOf(kind) : none, colour: colours.get(kind) ?? NONE })),
        continuous: false,
        colourOf: (run) => colours.get(kindOf(run)) ?? NONE,
    };
}

/** Piles take the palette in turn, so that neighbours differ; their numbers tell the rest. */
function byPile(group: Group, runs: readonly Run[]): Colouring {
    const order = ascending(runs.map((run) => run.pile));
    const colours = new Map(order.map((index, i) => [index, KINDS[i % KINDS.length]]));
    return {
        title: TITLES.pile,
        entries: order.map((index) => ({ label: `${group.piles[index].number}`, colour: colours.get(index) ?? NONE })),
        continuous: false,
        colourOf: (run) => colours.get(run.pile) ?? NONE,
    };
}

function sectionName(group: Group, report: Report, number: number): string {
    const section = group.sections.get(number);
    if (!section) return `${number}`;
    if (section.tubes.length > 0) return `${number}: ${section.tubes.length} tubes`;
    if (!(section.diameter > 0)) return `${number}`;
    return `${number}: ${withUnit(`${shortNumber(section.diameter)} × ${shortNumber(section.wall)}`, report.units.length)}`;
}

/** The colours of a group's tubes by one of its properties. */
export function colouringOf(report: Report, group: Group, runs: readonly Run[], by: ColourBy): Colouring {
    switch (by) {
        case "section":
            return byKind(TITLES.section, runs, (run) => run.section, (kind) => sectionName(group, report, kind));
        case "wall":
            return byAmount(TITLES.wall, runs, report.units.length, (run) => wallOf(group, run.section));
        case "diameter":
            return byAmount(TITLES.diameter, runs, report.units.length, (run) => run.diameter);
        case "material":
            return byKind(TITLES.material, runs, (run) => materialOf(group, run.section) ?? 0, (kind) => {
                const name = report.materials.get(kind)?.name;
                return name ? `${kind}: ${name}` : `${kind}`;
            }, "several, or not known");
        case "pile":
            return byPile(group, runs);
        case "origin":
            return byKind(TITLES.origin, runs, (run) => 1 + ORIGINS.indexOf(group.piles[run.pile].origin), (kind) => ORIGINS[kind - 1]);
    }
}
