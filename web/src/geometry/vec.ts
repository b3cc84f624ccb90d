// Vectors of three numbers: the few operations that the viewer needs.

export type Vec = readonly [number, number, number];

export const add = (a: Vec, b: Vec): Vec => [a[0] + b[0], a[1] + b[1], a[2] + b[2]];
export const sub = (a: Vec, b: Vec): Vec => [a[0] - b[0], a[1] - b[1], a[2] - b[2]];
export const scale = (a: Vec, factor: number): Vec => [a[0] * factor, a[1] * factor, a[2] * factor];
export const dot = (a: Vec, b: Vec): number => a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
export const cross = (a: Vec, b: Vec): Vec => [
    a[1] * b[2] - a[2] * b[1],
    a[2] * b[0] - a[0] * b[2],
    a[0] * b[1] - a[1] * b[0],
];
export const length = (a: Vec): number => Math.hypot(a[0], a[1], a[2]);
export const mix = (a: Vec, b: Vec, t: number): Vec => add(scale(a, 1 - t), scale(b, t));

/** The direction of a; of a vector without length, +z. */
export function unit(a: Vec): Vec {
    const size = length(a);
    return size > 0 ? scale(a, 1 / size) : [0, 0, 1];
}
