// Merges cylinders and cones into one indexed mesh, so that a whole group takes one draw call.
import { frameAbout } from "./frame.ts";
import { sub, type Vec } from "./vec.ts";

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
    const circle = Array.from({ length: sides }, (_, k) => (2 * Math.PI * k) / sides);
    const cosines = circle.map(Math.cos);
    const sines = circle.map(Math.sin);
    let vertex = 0;
    let place = 0;

    solids.forEach((solid, s) => {
        mesh.firstVertex[s] = vertex;
        const span = sub(solid.to, solid.from);
        const { axis, u, v } = frameAbout(span);
        const size = Math.hypot(...span);
        const slope = size > 0 ? (solid.fromRadius - solid.toRadius) / size : 0;
        const steep = Math.hypot(1, slope);

        const put = (end: Vec, radius: number, k: number, normal: (across: Vec) => Vec): void => {
            const across: Vec = [
                cosines[k] * u[0] + sines[k] * v[0],
                cosines[k] * u[1] + sines[k] * v[1],
                cosines[k] * u[2] + sines[k] * v[2],
            ];
            const n = normal(across);
            for (let i = 0; i < 3; ++i) {
                mesh.position[3 * vertex + i] = end[i] - origin[i] + radius * across[i];
                mesh.normal[4 * vertex + i] = Math.round(127 * n[i]);
            }
            ++vertex;
        };
        const outward = (across: Vec): Vec => [
            (across[0] + slope * axis[0]) / steep,
            (across[1] + slope * axis[1]) / steep,
            (across[2] + slope * axis[2]) / steep,
        ];
        const wall = vertex;
        for (let k = 0; k < sides; ++k) put(solid.from, solid.fromRadius, k, outward);
        for (let k = 0; k < sides; ++k) put(solid.to, solid.toRadius, k, outward);
        for (let k = 0; k < sides; ++k) {
            const next = (k + 1) % sides;
            const [a, b, c, d] = [wall + k, wall + next, wall + sides + k, wall + sides + next];
            mesh.index.set([a, b, c, b, d, c], place);
            place += 6;
        }
        const disc = (end: Vec, radius: number, normal: Vec, flipped: boolean): void => {
            const first = vertex;
            for (let k = 0; k < sides; ++k) put(end, radius, k, () => normal);
            for (let k = 1; k + 1 < sides; ++k) {
                mesh.index.set(flipped ? [first, first + k + 1, first + k] : [first, first + k, first + k + 1], place);
                place += 3;
            }
        };
        if (solid.closedFrom) disc(solid.from, solid.fromRadius, [-axis[0], -axis[1], -axis[2]], true);
        if (solid.closedTo) disc(solid.to, solid.toRadius, axis, false);
    });
    mesh.firstVertex[solids.length] = vertex;
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
