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

/** The stops of viridis, without its lightest end, which is lost on a white page. */
const RAMP: readonly Rgb[] = [
    "#440154", "#482878", "#3e4989", "#31688e", "#26828e", "#1f9e89", "#35b779", "#6ece58", "#b5de2b",
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
