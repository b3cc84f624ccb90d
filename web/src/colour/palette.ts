// Colours that the colour-blind can tell: a set of nine for kinds, and a ramp of even steps for numbers.

/** Red, green and blue from 0 to 255. */
export type Rgb = readonly [number, number, number];

const parse = (text: string): Rgb => [
    parseInt(text.slice(1, 3), 16),
    parseInt(text.slice(3, 5), 16),
    parseInt(text.slice(5, 7), 16),
];

/** Chosen so that neighbours differ in lightness too, for those who see no hue. */
export const KINDS: readonly Rgb[] = [
    "#4477aa", "#ddaa33", "#117733", "#cc6677", "#88ccee", "#882255", "#44aa99", "#999933", "#aa4499",
].map(parse);

export const NONE: Rgb = parse("#9a9a9a");

/** From violet by blue and green to yellow, ever lighter in even steps; no end is lost on a white or on a dark page. */
const RAMP: readonly Rgb[] = [
    "#5b2a86", "#4d4a97", "#3c6496", "#2c7b8e", "#1f9389", "#2aaa7e", "#54c067", "#8dd14e", "#c2df3a",
].map(parse);

/** The colour at a share of the ramp, 0 to 1. */
export function rampAt(share: number): Rgb {
    const place = Math.min(1, Math.max(0, share)) * (RAMP.length - 1);
    const low = Math.min(RAMP.length - 2, Math.floor(place));
    const t = place - low;
    const between = (i: 0 | 1 | 2): number => Math.round(RAMP[low][i] * (1 - t) + RAMP[low + 1][i] * t);
    return [between(0), between(1), between(2)];
}

export const cssOf = (colour: Rgb): string => `rgb(${colour[0]} ${colour[1]} ${colour[2]})`;
