// The frame of a tube: two directions across its axis, from which its rings are made.
import { cross, unit, type Vec } from "./vec.ts";

export interface Frame {
    readonly axis: Vec;
    readonly u: Vec;
    readonly v: Vec;
}

/** A right-handed frame (u x v = axis) about a direction; u is level unless the axis is vertical, when it is +x. */
export function frameAbout(direction: Vec): Frame {
    const axis = unit(direction);
    const level = Math.hypot(axis[0], axis[1]);
    // A tube that is vertical but for rounding must not take its frame from the noise.
    const u: Vec = level > 1e-9 ? [-axis[1] / level, axis[0] / level, 0] : [1, 0, 0];
    return { axis, u, v: cross(axis, u) };
}
