// The tubes of a group as solids: true diameters, closed where the inside would be seen, and as round as the group allows.
import type { Run } from "./runs.ts";
import type { Solid } from "./solids.ts";
import { dot, length, sub } from "./vec.ts";

/** Solid s is of run s. Elements without diameter are drawn with the radius thin. */
export function tubeSolids(runs: readonly Run[], thin: number): Solid[] {
    const radiusOf = (run: Run): number => (run.diameter > 0 ? run.diameter / 2 : thin);
    // A wider neighbour that goes on in the same line hides an end.
    const hidden = (run: Run, neighbour: Run | undefined): boolean =>
        neighbour?.pile === run.pile && radiusOf(neighbour) >= radiusOf(run) && inLine(run, neighbour);
    return runs.map((run, s) => ({
        from: run.from,
        to: run.to,
        fromRadius: radiusOf(run),
        toRadius: radiusOf(run),
        closedFrom: !hidden(run, runs[s - 1]),
        closedTo: !hidden(run, runs[s + 1]),
    }));
}

function inLine(a: Run, b: Run): boolean {
    const [along, before] = [sub(a.to, a.from), sub(b.to, b.from)];
    return dot(along, before) > 0.9999 * length(along) * length(before);
}

/** How many sides the tubes have: fewer for groups of very many tubes, so that they turn with ease. */
export function sidesFor(tubes: number): number {
    if (tubes <= 3000) return 24;
    if (tubes <= 12000) return 12;
    return tubes <= 40000 ? 8 : 6;
}
