// The section at a depth: where a tube meets the plane, an ellipse for each edge of each wall.
import { tubesOf } from "../data/group.ts";
import type { Group } from "../data/report.ts";
import type { Run } from "./runs.ts";
import { mix, sub, unit, type Vec } from "./vec.ts";

/** A ring in the plane: centre + s * (cos * along + sin * across), s from inner to outer. */
export interface CutRing {
    readonly run: number;
    readonly centre: Vec;
    /** The longer half-axis of an ellipse of a circle of radius 1, towards the batter. */
    readonly along: Vec;
    readonly across: Vec;
    readonly outer: number;
    /** 0 for a full disc, where no wall is known. */
    readonly inner: number;
}

/** Below this share of the vertical in its axis a tube lies, and its ellipse would be no section of it. */
const LYING = 0.1;

/** The rings of all tubes that go through the level z = depth. */
export function cutRings(group: Group, runs: readonly Run[], depth: number): CutRing[] {
    const rings: CutRing[] = [];
    runs.forEach((run, index) => {
        const [top, bottom] = [Math.min(run.from[2], run.to[2]), Math.max(run.from[2], run.to[2])];
        if (!(run.diameter > 0) || depth < top || depth >= bottom) return;
        const axis = unit(sub(run.to, run.from));
        const steep = Math.abs(axis[2]);
        if (steep < LYING) return;
        const centre = mix(run.from, run.to, (depth - run.from[2]) / (run.to[2] - run.from[2]));
        const level = Math.hypot(axis[0], axis[1]);
        const along: Vec = level > 0 ? [axis[0] / level / steep, axis[1] / level / steep, 0] : [1, 0, 0];
        const across: Vec = level > 0 ? [-axis[1] / level, axis[0] / level, 0] : [0, 1, 0];
        const section = group.sections.get(run.section);
        const tubes = section ? tubesOf(group, section).filter((tube) => tube.diameter > 0) : [];
        const drawn = tubes.length > 0 ? tubes : [{ diameter: run.diameter, wall: 0 }];
        for (const tube of drawn) {
            const outer = tube.diameter / 2;
            const inner = tube.wall > 0 ? Math.max(0, outer - tube.wall) : 0;
            rings.push({ run: index, centre, along, across, outer, inner });
        }
    });
    return rings;
}
