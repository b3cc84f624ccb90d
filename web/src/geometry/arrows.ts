// Arrows of forces and moments, and the marks of springs, as solids.
import { frameAbout } from "./frame.ts";
import { cone, stick, type Solid } from "./solids.ts";
import { add, length, scale, sub, type Vec } from "./vec.ts";

/** How long the arrows of one kind are: the largest value gets the longest arrow, the others their share. */
export function arrowScale(values: readonly Vec[], longest: number): number {
    const largest = values.reduce((most, value) => Math.max(most, length(value)), 0);
    return largest > 0 ? longest / largest : 0;
}

/** The share of an arrow's thickness in the longest arrow's length. */
const SLENDER = 0.022;

/** Where the point of an arrow touches: off the axis of the tube, on its surface, on the side that the arrow comes from. */
export function touchPoint(node: Vec, direction: Vec, axis: Vec, radius: number): Vec {
    const size = length(direction);
    if (size === 0) return node;
    const along = (direction[0] * axis[0] + direction[1] * axis[1] + direction[2] * axis[2]) / size;
    const across = Math.sqrt(Math.max(0, 1 - along * along));
    return sub(node, scale(direction, (radius * across) / size));
}

/** An arrow whose point is at tip and which comes along value; heads of 1 for a force, 2 for a moment. Thickness follows longest. */
export function arrow(tip: Vec, value: Vec, perUnit: number, longest: number, heads: 1 | 2): Solid[] {
    const size = length(value) * perUnit;
    if (!(size > 0) || !Number.isFinite(size)) return [];
    const direction = scale(value, perUnit / size);
    const thickness = SLENDER * longest;
    const headLength = Math.min(size / (heads + 1), 6 * thickness);
    const tail = sub(tip, scale(direction, size));
    const solids: Solid[] = [];
    let end = tip;
    for (let head = 0; head < heads; ++head) {
        const base = sub(end, scale(direction, headLength));
        solids.push(cone(base, end, Math.min(2.4 * thickness, headLength / 2)));
        end = base;
    }
    solids.push(stick(tail, end, Math.min(thickness, headLength / 4)));
    return solids;
}

/** Where the arrows of one kind begin, for a view that shows them whole; zeros have none. */
export function tailsOf(tips: readonly Vec[], values: readonly Vec[], longest: number): Vec[] {
    const perUnit = arrowScale(values, longest);
    return values.flatMap((value, k) => (length(value) * perUnit > 0 ? [sub(tips[k], scale(value, perUnit))] : []));
}

/** A spring along an axis: a rod from the node to a plate, as a support is drawn. */
export function linearSpring(node: Vec, direction: Vec, size: number, thickness: number): Solid[] {
    const end = add(node, scale(direction, size));
    const plate = add(node, scale(direction, size + thickness));
    return [stick(node, end, 0.5 * thickness), stick(end, plate, 2.5 * thickness)];
}

/** A spring about an axis: three quarters of a ring about it. */
export function rotationalSpring(node: Vec, direction: Vec, radius: number, thickness: number): Solid[] {
    const { u, v } = frameAbout(direction);
    const at = (k: number): Vec => {
        const angle = (1.5 * Math.PI * k) / 12;
        return add(node, add(scale(u, radius * Math.cos(angle)), scale(v, radius * Math.sin(angle))));
    };
    const pieces = Array.from({ length: 12 }, (_, k) => stick(at(k), at(k + 1), 0.5 * thickness));
    const last = at(12);
    const before = at(11);
    return [...pieces, cone(last, add(last, sub(last, before)), 1.5 * thickness)];
}
