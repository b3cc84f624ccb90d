// Joins neighbouring elements of a pile that have the same section, diameter and line into one tube.
import { headOf, nodeAt, tipOf } from "../data/group.ts";
import type { Group, Pile } from "../data/report.ts";
import { dot, length, scale, sub, unit, type Vec } from "./vec.ts";

/** Elements first to first + count - 1 of the group, which make one straight tube. */
export interface Run {
    readonly pile: number;
    readonly first: number;
    readonly count: number;
    readonly from: Vec;
    readonly to: Vec;
    readonly diameter: number;
    readonly section: number;
}

/** How far the nodes of a pile are from the line from its head to its tip. */
export function deviationOf(group: Group, pile: Pile): number {
    const head = headOf(group, pile);
    const axis = unit(sub(tipOf(group, pile), head));
    let largest = 0;
    for (let k = 1; k + 1 < pile.nodes; ++k) {
        const from = sub(nodeAt(group, pile.first_node + k), head);
        largest = Math.max(largest, length(sub(from, scale(axis, dot(from, axis)))));
    }
    return largest;
}

/** A pile is straight for the eye when its nodes leave its line by less than this share of its length. */
const STRAIGHT = 1e-5;

/** The tubes of a group, pile by pile from head to tip. */
export function runsOf(group: Group): Run[] {
    const runs: Run[] = [];
    group.piles.forEach((pile, index) => {
        const straight = deviationOf(group, pile) <= STRAIGHT * length(sub(tipOf(group, pile), headOf(group, pile)));
        let k = 0;
        while (k < pile.elements) {
            const first = pile.first_element + k;
            const begin = k;
            do ++k;
            while (
                straight && k < pile.elements &&
                group.section[pile.first_element + k] === group.section[first] &&
                group.diameter[pile.first_element + k] === group.diameter[first]
            );
            runs.push({
                pile: index,
                first,
                count: k - begin,
                from: nodeAt(group, pile.first_node + begin),
                to: nodeAt(group, pile.first_node + k),
                diameter: group.diameter[first],
                section: group.section[first],
            });
        }
    });
    return runs;
}
