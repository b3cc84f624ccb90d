// Turns solids, lines, dots and planes into objects of three.js.
import { BufferAttribute, BufferGeometry, LineSegments, Mesh, Points, type Material } from "three";
import type { Rgb } from "../colour/palette.ts";
import { meshOf, type Solid } from "../geometry/solids.ts";
import type { Vec } from "../geometry/vec.ts";
import { lineMaterial, type Shared } from "./materials.ts";

export interface SolidMesh {
    readonly mesh: Mesh;
    readonly firstVertex: Uint32Array;
}

/** One mesh of many solids. Nothing is left out for being off the picture: the group is one object. */
export function solidMesh(solids: readonly Solid[], sides: number, origin: Vec, material: Material): SolidMesh {
    const { position, normal, index, firstVertex } = meshOf(solids, sides, origin);
    const geometry = new BufferGeometry();
    geometry.setAttribute("position", new BufferAttribute(position, 3));
    geometry.setAttribute("normal", new BufferAttribute(normal, 4, true));
    geometry.setIndex(new BufferAttribute(index, 1));
    const mesh = new Mesh(geometry, material);
    mesh.frustumCulled = false;
    return { mesh, firstVertex };
}

/** Gives every solid of a mesh its colour. */
export function tint({ mesh, firstVertex }: SolidMesh, colours: readonly Rgb[]): void {
    const vertices = firstVertex[firstVertex.length - 1];
    const values = new Uint8Array(4 * vertices);
    colours.forEach(([red, green, blue], solid) => {
        for (let vertex = firstVertex[solid]; vertex < firstVertex[solid + 1]; ++vertex) {
            values[4 * vertex] = red;
            values[4 * vertex + 1] = green;
            values[4 * vertex + 2] = blue;
            values[4 * vertex + 3] = 255;
        }
    });
    mesh.geometry.setAttribute("tint", new BufferAttribute(values, 4, true));
}

function pointsGeometry(points: readonly Vec[], origin: Vec): BufferGeometry {
    const position = new Float32Array(3 * points.length);
    points.forEach((point, k) => {
        for (let i = 0; i < 3; ++i) position[3 * k + i] = point[i] - origin[i];
    });
    const geometry = new BufferGeometry();
    geometry.setAttribute("position", new BufferAttribute(position, 3));
    return geometry;
}

/** Thin lines between pairs of points. */
export function lines(points: readonly Vec[], origin: Vec, colour: Rgb, shared: Shared): LineSegments {
    const object = new LineSegments(pointsGeometry(points, origin), lineMaterial(shared, colour));
    object.frustumCulled = false;
    return object;
}

/** Dots, each with the length by which it is drawn nearer to the eye. */
export function dots(points: readonly Vec[], lifts: Float32Array, origin: Vec, material: Material): Points {
    const geometry = pointsGeometry(points, origin);
    geometry.setAttribute("lift", new BufferAttribute(lifts, 1));
    const object = new Points(geometry, material);
    object.frustumCulled = false;
    return object;
}

/** Triangles that all face the same way. */
export function sheet(triangles: readonly Vec[], normal: Vec, origin: Vec, material: Material): Mesh {
    const geometry = pointsGeometry(triangles, origin);
    const normals = new Float32Array(3 * triangles.length);
    for (let k = 0; k < triangles.length; ++k) normals.set(normal, 3 * k);
    geometry.setAttribute("normal", new BufferAttribute(normals, 3));
    const mesh = new Mesh(geometry, material);
    mesh.frustumCulled = false;
    return mesh;
}
