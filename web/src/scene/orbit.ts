// The eye's place: where it is, what is up, how it turns, moves and comes nearer, and from where it sees the whole group.
import { add, cross, dot, scale, type Vec } from "../geometry/vec.ts";
import type { Orbit, ViewName } from "../page/state.ts";

/** The height of the picture's angle of view. */
export const FIELD_OF_VIEW = 30;
const HALF_HEIGHT = Math.tan((FIELD_OF_VIEW / 2) * (Math.PI / 180));

const radians = (degrees: number): number => (degrees * Math.PI) / 180;

export interface Axes {
    /** Towards the eye. */
    readonly back: Vec;
    readonly right: Vec;
    readonly up: Vec;
}

type Direction = Pick<Orbit, "azimuth" | "elevation">;

/** The directions of the picture in the deck's axes, in which +z is down. */
export function axesOf({ azimuth, elevation }: Direction): Axes {
    const [a, e] = [radians(azimuth), radians(elevation)];
    const back: Vec = [Math.cos(e) * Math.cos(a), Math.cos(e) * Math.sin(a), -Math.sin(e)];
    const up: Vec = [-Math.sin(e) * Math.cos(a), -Math.sin(e) * Math.sin(a), -Math.cos(e)];
    return { back, up, right: cross(up, back) };
}

export const eyeOf = (orbit: Orbit): Vec => add(orbit.target, scale(axesOf(orbit).back, orbit.distance));

/**
 * The views with a name. x shows X to the right and Z down, y shows Y to the right and Z down, as the drawings do;
 * top shows X to the right and Y down.
 */
export const DIRECTIONS: Readonly<Record<ViewName, Direction>> = {
    oblique: { azimuth: 62, elevation: 18 },
    top: { azimuth: 90, elevation: 90 },
    x: { azimuth: 90, elevation: 0 },
    y: { azimuth: 180, elevation: 0 },
};

/** Room around the group. */
const MARGIN = 1.08;

/** The orbit from that direction that sees all points, whose balls have the radius. Aspect is width by height. */
export function fit(points: readonly Vec[], radius: number, direction: Direction, aspect: number, trueProjection: boolean): Orbit {
    const { back, right, up } = axesOf(direction);
    const middle = (axis: Vec): number => {
        let [low, high] = [Infinity, -Infinity];
        for (const point of points) {
            const along = dot(point, axis);
            low = Math.min(low, along);
            high = Math.max(high, along);
        }
        return points.length > 0 ? (low + high) / 2 : 0;
    };
    const target = add(add(scale(right, middle(right)), scale(up, middle(up))), scale(back, middle(back)));
    let distance = Math.max(radius, 1e-3);
    for (const point of points) {
        const from = add(point, scale(target, -1));
        const nearer = trueProjection ? 0 : dot(from, back) + radius;
        const high = (Math.abs(dot(from, up)) + radius) / HALF_HEIGHT;
        const wide = (Math.abs(dot(from, right)) + radius) / (HALF_HEIGHT * aspect);
        distance = Math.max(distance, MARGIN * Math.max(high, wide) + nearer);
    }
    return { ...direction, distance, target };
}

const wrap = (degrees: number): number => ((degrees % 360) + 360) % 360;

export function turn(orbit: Orbit, azimuth: number, elevation: number): Orbit {
    return {
        ...orbit,
        azimuth: wrap(orbit.azimuth + azimuth),
        elevation: Math.min(90, Math.max(-90, orbit.elevation + elevation)),
    };
}

/** How long one pixel is at the target, in a picture of that height. */
export const pixelAt = (orbit: Orbit, height: number): number => (2 * HALF_HEIGHT * orbit.distance) / Math.max(1, height);

/** Moves the picture by pixels, to the right and down. */
export function move(orbit: Orbit, right: number, down: number, height: number): Orbit {
    const pixel = pixelAt(orbit, height);
    const axes = axesOf(orbit);
    return { ...orbit, target: add(orbit.target, add(scale(axes.right, -right * pixel), scale(axes.up, down * pixel))) };
}

/** Changes the distance by a factor; the point that many pixels right of and below the middle stays where it is. */
export function zoom(orbit: Orbit, factor: number, right: number, down: number, height: number, extent: number): Orbit {
    const distance = Math.min(Math.max(orbit.distance * factor, 1e-3 * extent), 50 * extent);
    const pixel = pixelAt(orbit, height) * (1 - distance / orbit.distance);
    const axes = axesOf(orbit);
    return { ...orbit, distance, target: add(orbit.target, add(scale(axes.right, right * pixel), scale(axes.up, -down * pixel))) };
}
