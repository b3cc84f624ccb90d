// Finds the pile and the element under the pointer: first the piles whose hull the ray meets, then their tubes.
import { headOf, tipOf } from "../data/group.ts";
import type { Group } from "../data/report.ts";
import { deviationOf, type Run } from "./runs.ts";
import { add, dot, length, scale, sub, unit, type Vec } from "./vec.ts";

export interface Ray {
    readonly origin: Vec;
    /** Of length 1. */
    readonly direction: Vec;
}

export interface Hit {
    readonly pile: number;
    /** Index in the group's elements. */
    readonly element: number;
    readonly point: Vec;
    readonly distance: number;
}

/**
 * The distance along the ray to a cylinder with closed ends of which only the part at or below the depth cut is there;
 * Infinity when the ray misses it. +z is down.
 */
export function rayCylinder(ray: Ray, from: Vec, to: Vec, radius: number, cut = -Infinity): number {
    const span = sub(to, from);
    const size = length(span);
    if (!(size > 0) || !(radius > 0)) return Infinity;
    const axis = scale(span, 1 / size);
    const offset = sub(ray.origin, from);
    const offsetAlong = dot(offset, axis);
    const turn = dot(ray.direction, axis);
    let nearest = Infinity;
    const consider = (t: number): void => {
        if (t >= 0 && t < nearest && ray.origin[2] + t * ray.direction[2] >= cut - 1e-9 * size) nearest = t;
    };

    const a = 1 - turn * turn;
    if (a > 1e-14) {
        const b = dot(offset, ray.direction) - offsetAlong * turn;
        const c = dot(offset, offset) - offsetAlong * offsetAlong - radius * radius;
        const discriminant = b * b - a * c;
        if (discriminant < 0) return Infinity;
        for (const t of [(-b - Math.sqrt(discriminant)) / a, (-b + Math.sqrt(discriminant)) / a]) {
            const along = offsetAlong + t * turn;
            if (along >= 0 && along <= size) consider(t);
        }
    }
    const inside = (t: number, tolerance: number): boolean => {
        const at = add(offset, scale(ray.direction, t));
        const along = dot(at, axis);
        const across = Math.max(0, dot(at, at) - along * along);
        return along >= -tolerance && along <= size + tolerance && across <= radius * radius;
    };
    const tolerance = 1e-9 * size;
    if (Math.abs(turn) > 1e-12)
        for (const end of [0, size]) {
            const t = (end - offsetAlong) / turn;
            if (inside(t, tolerance)) consider(t);
        }
    if (Number.isFinite(cut) && Math.abs(ray.direction[2]) > 1e-12) {
        const t = (cut - ray.origin[2]) / ray.direction[2];
        if (inside(t, tolerance)) consider(t);
    }
    return nearest;
}

interface Hull {
    readonly from: Vec;
    readonly to: Vec;
    readonly radius: number;
    readonly runs: readonly Run[];
}

/** A function that finds the nearest element on a ray. thin: the radius of elements without diameter. */
export function makePicker(group: Group, runs: readonly Run[], thin: number): (ray: Ray, cut?: number) => Hit | null {
    const byPile = group.piles.map((): Run[] => []);
    for (const run of runs) byPile[run.pile].push(run);
    const radiusOf = (run: Run): number => (run.diameter > 0 ? run.diameter / 2 : thin);
    const hulls = group.piles.map((pile, index): Hull => {
        const widest = byPile[index].reduce((most, run) => Math.max(most, radiusOf(run)), 0);
        const radius = (widest + deviationOf(group, pile)) * 1.001;
        const [head, tip] = [headOf(group, pile), tipOf(group, pile)];
        const spare = scale(unit(sub(tip, head)), radius);
        return { from: sub(head, spare), to: add(tip, spare), radius, runs: byPile[index] };
    });

    return (ray, cut = -Infinity) => {
        let nearest = Infinity;
        let found: Run | null = null;
        for (const hull of hulls) {
            if (hull.runs.length === 0 || rayCylinder(ray, hull.from, hull.to, hull.radius) === Infinity) continue;
            for (const run of hull.runs) {
                const distance = rayCylinder(ray, run.from, run.to, radiusOf(run), cut);
                if (distance < nearest) [nearest, found] = [distance, run];
            }
        }
        if (!found) return null;
        const point = add(ray.origin, scale(ray.direction, nearest));
        return { pile: found.pile, element: elementAt(group, found, point), point, distance: nearest };
    };
}

/** The element of a run that has the point: the last one that begins above it. */
export function elementAt(group: Group, run: Run, point: Vec): number {
    const axis = unit(sub(run.to, run.from));
    const along = dot(sub(point, run.from), axis);
    const node = group.piles[run.pile].first_node + (run.first - group.piles[run.pile].first_element);
    const startOf = (k: number): number =>
        dot(sub([group.x[node + k], group.y[node + k], group.z[node + k]], run.from), axis);
    let [low, high] = [0, run.count - 1];
    while (low < high) {
        const middle = (low + high + 1) >> 1;
        if (startOf(middle) <= along) low = middle;
        else high = middle - 1;
    }
    return run.first + low;
}
