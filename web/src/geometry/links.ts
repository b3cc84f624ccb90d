// The rigid links of cap points, and the marks of clashes.
import { headOf } from "../data/group.ts";
import type { Clash, Group } from "../data/report.ts";
import { length, sub, type Vec } from "./vec.ts";

export interface Link {
    readonly from: Vec;
    readonly to: Vec;
}

/** A link from the head of each fixed pile to the head of the pile that it is fixed to. */
export function linksOf(group: Group): Link[] {
    const links: Link[] = [];
    for (const pile of group.piles) {
        const index = group.indexOf.get(pile.fixed_to);
        if (pile.fixed_to === 0 || index === undefined) continue;
        const [from, to] = [headOf(group, group.piles[index]), headOf(group, pile)];
        if (length(sub(to, from)) > 0) links.push({ from, to });
    }
    return links;
}

/** The radius of a clash's mark: the overlap, but not too small to be seen, nor larger than a tenth of the group. */
export function clashRadius(clash: Clash, extent: number): number {
    const overlap = Number.isFinite(clash.overlap) ? Math.abs(clash.overlap) : 0;
    return Math.min(Math.max(overlap, 0.008 * extent), 0.1 * extent);
}
