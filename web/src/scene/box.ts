// The room that a group takes: its box, its middle, its size, and where its axes and its mudline are drawn.
import { headOf, tipOf } from "../data/group.ts";
import type { Group } from "../data/report.ts";
import { add, length, scale, sub, type Vec } from "../geometry/vec.ts";

export interface Box {
    readonly low: Vec;
    readonly high: Vec;
    readonly middle: Vec;
    /** The diagonal; 1 for a group that is a point. */
    readonly extent: number;
}

/** The box of all heads and tips. Coordinates that are no numbers are passed over. */
export function boxOf(groups: readonly Group[]): Box {
    const low: [number, number, number] = [Infinity, Infinity, Infinity];
    const high: [number, number, number] = [-Infinity, -Infinity, -Infinity];
    for (const group of groups)
        for (const pile of group.piles)
            for (const point of [headOf(group, pile), tipOf(group, pile)])
                for (let i = 0; i < 3; ++i) {
                    if (!Number.isFinite(point[i])) continue;
                    low[i] = Math.min(low[i], point[i]);
                    high[i] = Math.max(high[i], point[i]);
                }
    for (let i = 0; i < 3; ++i) if (low[i] > high[i]) low[i] = high[i] = 0;
    const diagonal = length(sub(high, low));
    return { low, high, middle: scale(add(low, high), 0.5), extent: diagonal > 0 ? diagonal : 1 };
}

export const cornersOf = ({ low, high }: Box): Vec[] =>
    [low[0], high[0]].flatMap((x) => [low[1], high[1]].flatMap((y) => [low[2], high[2]].map((z): Vec => [x, y, z])));

export interface Rectangle {
    readonly low: readonly [number, number];
    readonly high: readonly [number, number];
}

/** The part of the mudline plane that is drawn: the group from above, with room around it. */
export function mudlineOf(box: Box): Rectangle {
    const room = Math.max(0.06 * box.extent, 0.12 * Math.max(box.high[0] - box.low[0], box.high[1] - box.low[1]));
    return { low: [box.low[0] - room, box.low[1] - room], high: [box.high[0] + room, box.high[1] + room] };
}

/** The origin of the deck when it is in or near the group, else the corner of the mudline's rectangle: the axes start there. */
export function axesAt(box: Box): Vec {
    const ground = mudlineOf(box);
    const near = ground.low[0] <= 0 && 0 <= ground.high[0] && ground.low[1] <= 0 && 0 <= ground.high[1];
    const level = Math.min(Math.max(0, box.low[2] - 0.25 * box.extent), box.high[2] + 0.25 * box.extent);
    return near ? [0, 0, level] : [ground.low[0], ground.low[1], level];
}
