// Places labels over the picture so that none lies over another.
import { mix, type Vec } from "../geometry/vec.ts";

export interface Placed {
    /** The middle of the label, in pixels from the top left corner. */
    readonly x: number;
    readonly y: number;
    readonly width: number;
    readonly height: number;
    readonly rank: number;
}

/** Which of the labels are shown: those of higher rank first, then in their order, each where it touches none before. */
export function withoutOverlap(labels: readonly Placed[], width: number, height: number): boolean[] {
    const shown = labels.map(() => false);
    const order = labels.map((_, index) => index).sort((i, j) => labels[j].rank - labels[i].rank || i - j);
    const cell = 64;
    const cells = new Map<string, Placed[]>();
    for (const index of order) {
        const label = labels[index];
        const [left, right] = [label.x - label.width / 2, label.x + label.width / 2];
        const [top, bottom] = [label.y - label.height / 2, label.y + label.height / 2];
        if (!(right > 0 && left < width && bottom > 0 && top < height)) continue;
        const keys: string[] = [];
        for (let i = Math.floor(left / cell); i <= Math.floor(right / cell); ++i)
            for (let j = Math.floor(top / cell); j <= Math.floor(bottom / cell); ++j) keys.push(`${i},${j}`);
        const touches = (other: Placed): boolean =>
            Math.abs(other.x - label.x) < (other.width + label.width) / 2 &&
            Math.abs(other.y - label.y) < (other.height + label.height) / 2;
        if (keys.some((key) => cells.get(key)?.some(touches))) continue;
        for (const key of keys) {
            const known = cells.get(key);
            if (known) known.push(label);
            else cells.set(key, [label]);
        }
        shown[index] = true;
    }
    return shown;
}

/**
 * Where the label of a line from point to end is when everything above the depth cut is away: where the line begins to be
 * there. Null when nothing of it is left. Without an end it is a label of the point alone.
 */
export function belowCut(point: Vec, end: Vec | undefined, cut: number | null): Vec | null {
    if (cut === null || point[2] >= cut) return point;
    if (!end || end[2] < cut) return null;
    return mix(point, end, (cut - point[2]) / (end[2] - point[2]));
}
