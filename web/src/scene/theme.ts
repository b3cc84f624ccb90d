// The colours of the 3D view that are no tubes', for light and dark pages.
import type { Rgb } from "../colour/palette.ts";

export interface Theme {
    readonly text: Rgb;
    readonly halo: Rgb;
    readonly axes: Rgb;
    readonly mudline: Rgb;
    readonly node: Rgb;
    readonly link: Rgb;
    readonly spring: Rgb;
    readonly force: Rgb;
    readonly moment: Rgb;
    readonly displacement: Rgb;
    readonly load: Rgb;
    readonly clash: Rgb;
    readonly other: Rgb;
    readonly changed: Rgb;
    readonly selected: Rgb;
    readonly hover: Rgb;
}

export const LIGHT: Theme = {
    text: [24, 28, 33],
    halo: [255, 255, 255],
    axes: [70, 78, 88],
    mudline: [150, 112, 60],
    node: [20, 20, 20],
    link: [70, 70, 80],
    spring: [0, 110, 90],
    force: [180, 50, 20],
    moment: [120, 60, 160],
    displacement: [150, 90, 0],
    load: [200, 30, 60],
    clash: [215, 0, 0],
    other: [105, 110, 122],
    changed: [200, 80, 0],
    selected: [0, 85, 215],
    hover: [255, 140, 0],
};

export const DARK: Theme = {
    text: [235, 238, 242],
    halo: [20, 23, 28],
    axes: [170, 178, 188],
    mudline: [190, 155, 100],
    node: [250, 250, 250],
    link: [190, 190, 200],
    spring: [70, 210, 175],
    force: [255, 140, 100],
    moment: [205, 155, 245],
    displacement: [240, 190, 80],
    load: [255, 120, 140],
    clash: [255, 80, 80],
    other: [190, 195, 205],
    changed: [255, 160, 60],
    selected: [110, 180, 255],
    hover: [255, 190, 60],
};
