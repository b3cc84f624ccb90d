// Merges cylinders and cones into one indexed mesh, so that a whole group takes one draw call.
import { frameAbout, type Frame } from "./frame.ts";
import { length, sub, type Vec } from "./vec.ts";

/** A straight round solid. Radii may differ (a cone); a closed end has a disc. Lengths in the deck's unit. */
export interface Solid {
    readonly from: Vec;
    readonly to: Vec;
    readonly fromRadius: number;
    readonly toRadius: number;
    readonly closedFrom: boolean;
    readonly closedTo: boolean;
}

export interface Mesh {
    readonly position: Float32Array;
    /** Unit normals, -127 to 127, four bytes a vertex; the fourth is idle. */
    readonly normal: Int8Array;
    readonly index: Uint32Array;
    /** Solid s has the vertices from firstVertex[s] to firstVertex[s + 1]. */
    readonly firstVertex: Uint32Array;
}

const caps = (solid: Solid): number => Number(solid.closedFrom) + Number(solid.closedTo);

/** One mesh of all solids, each with that many sides; positions are from the origin, so that single precision will do. */
export function meshOf(solids: readonly Solid[], sides: number, origin: Vec): Mesh {
    const allCaps = solids.reduce((sum, solid) => sum + caps(solid), 0);
    const vertices = solids.length * 2 * sides + allCaps * sides;
    const indices = solids.length * 6 * sides + allCaps * 3 * (sides - 2);
    const mesh = {
        position: new Float32Array(3 * vertices),
        normal: new Int8Array(4 * vertices),
        index: new Uint32Array(indices),
        firstVertex: new Uint32Array(solids.length + 1),
    };
    const cosines = new Float64Array(sides).map((_, k) => Math.cos((2 * Math.PI * k) / sides));
    const sines = new Float64Array(sides).map((_, k) => Math.sin((2 * Math.PI * k) / sides));
    const { position, normal, index, firstVertex } = mesh;
    let vertex = 0;
    let place = 0;

    /**
     * A ring of vertices about an end. Their normals are outward times across plus axis times along: plain numbers and
     * loops here, for a group may have a hundred thousand tubes.
     */
    const ring = ({ axis, u, v }: Frame, end: Vec, radius: number, across: number, along: number): void => {
        for (let k = 0; k < sides; ++k) {
            for (let i = 0; i < 3; ++i) {
                const outward = cosines[k] * u[i] + sines[k] * v[i];
                position[3 * vertex + i] = end[i] - origin[i] + radius * outward;
                normal[4 * vertex + i] = Math.round(127 * (across * outward + along * axis[i]));
            }
            ++vertex;
        }
    };
    const triangle = (a: number, b: number, c: number): void => {
        index[place++] = a;
        index[place++] = b;
        index[place++] = c;
    };
    const disc = (frame: Frame, end: Vec, radius: number, facing: 1 | -1): void => {
        const first = vertex;
        ring(frame, end, radius, 0, facing);
        for (let k = 1; k + 1 < sides; ++k)
            if (facing > 0) triangle(first, first + k, first + k + 1);
            else triangle(first, first + k + 1, first + k);
    };

    solids.forEach((solid, s) => {
        firstVertex[s] = vertex;
        const span = sub(solid.to, solid.from);
        const frame = frameAbout(span);
        const size = length(span);
        const slope = size > 0 ? (solid.fromRadius - solid.toRadius) / size : 0;
        const steep = Math.hypot(1, slope);
        const wall = vertex;
        ring(frame, solid.from, solid.fromRadius, 1 / steep, slope / steep);
        ring(frame, solid.to, solid.toRadius, 1 / steep, slope / steep);
        for (let k = 0; k < sides; ++k) {
            const next = k + 1 < sides ? k + 1 : 0;
            triangle(wall + k, wall + next, wall + sides + k);
            triangle(wall + next, wall + sides + next, wall + sides + k);
        }
        if (solid.closedFrom) disc(frame, solid.from, solid.fromRadius, -1);
        if (solid.closedTo) disc(frame, solid.to, solid.toRadius, 1);
    });
    firstVertex[solids.length] = vertex;
    return mesh;
}

/** A cylinder closed at both ends. */
export const stick = (from: Vec, to: Vec, radius: number): Solid =>
    ({ from, to, fromRadius: radius, toRadius: radius, closedFrom: true, closedTo: true });

/** A cone with its point at to. */
export const cone = (from: Vec, to: Vec, radius: number): Solid =>
    ({ from, to, fromRadius: radius, toRadius: 0, closedFrom: true, closedTo: false });

/** A ball, as three rings of cones and cylinders: enough for a mark of some pixels. */
export function ball(centre: Vec, radius: number): Solid[] {
    const levels = [-1, -0.8, -0.3, 0.3, 0.8, 1];
    const slices: Solid[] = [];
    for (let i = 0; i + 1 < levels.length; ++i) {
        const [low, high] = [levels[i], levels[i + 1]];
        slices.push({
            from: [centre[0], centre[1], centre[2] + low * radius],
            to: [centre[0], centre[1], centre[2] + high * radius],
            fromRadius: radius * Math.sqrt(1 - low * low),
            toRadius: radius * Math.sqrt(1 - high * high),
            closedFrom: false,
            closedTo: false,
        });
    }
    return slices;
}
