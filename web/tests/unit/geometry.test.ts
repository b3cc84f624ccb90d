// Frames, meshes, runs, picking, arrows, sections by depth, links and clashes, against values worked out by hand.
import assert from "node:assert/strict";
import { test } from "node:test";
import { arrow, arrowScale, linearSpring, rotationalSpring, tailsOf, touchPoint } from "../../src/geometry/arrows.ts";
import { cutRings } from "../../src/geometry/cut.ts";
import { frameAbout } from "../../src/geometry/frame.ts";
import { clashRadius, linksOf } from "../../src/geometry/links.ts";
import { makePicker, rayCylinder } from "../../src/geometry/pick.ts";
import { deviationOf, runsOf } from "../../src/geometry/runs.ts";
import { ball, cone, meshOf, stick } from "../../src/geometry/solids.ts";
import { sidesFor, tubeSolids } from "../../src/geometry/tubes.ts";
import { cross, dot, length, unit, type Vec } from "../../src/geometry/vec.ts";
import { close, sampleGroup, sectionOf } from "./samples.ts";

test("arrows begin as far from their points as their values say, in the direction they come from", () => {
    // The largest value, 5, has the longest arrow, 10; half of it half of that. A zero has none.
    const tips: Vec[] = [[0, 0, 0], [1, 1, 1], [7, 7, 7]];
    assert.deepEqual(tailsOf(tips, [[3, 0, 4], [0, 2.5, 0], [0, 0, 0]], 10), [[-6, 0, -8], [1, -4, 1]]);
    assert.deepEqual(tailsOf(tips.slice(0, 1), [[0, 0, 0]], 10), []);
});

test("the frame about x has y and z", () => {
    // u is level and across: (-0, 1, 0); v = axis x u = x x y = z.
    const { axis, u, v } = frameAbout([3, 0, 0]);
    close(axis, [1, 0, 0]);
    close(u, [0, 1, 0]);
    close(v, [0, 0, 1]);
});

test("the frame about the vertical takes x, also when rounding tilts it", () => {
    for (const direction of [[0, 0, 5], [1e-12, -1e-12, 5], [0, 0, -2]] as Vec[]) {
        const { axis, u, v } = frameAbout(direction);
        close(u, [1, 0, 0]);
        close(cross(u, v), axis, 1e-9);
    }
});

test("every frame is of unit length, square and right-handed", () => {
    for (const direction of [[1, 2, 2], [-3, 0, 4], [0.1, -0.2, 7], [5, -5, 0]] as Vec[]) {
        const { axis, u, v } = frameAbout(direction);
        close([length(axis), length(u), length(v), dot(axis, u), dot(u, v), dot(v, axis)], [1, 1, 1, 0, 0, 0]);
        close(cross(u, v), axis);
        assert.equal(u[2], 0);
    }
});

test("a square closed tube: vertices, normals and triangles", () => {
    const mesh = meshOf([stick([10, 0, 0], [12, 0, 0], 0.5)], 4, [10, 0, 0]);
    // Two rings of four, and four for each disc; 8 triangles of the wall, 2 for each disc.
    assert.equal(mesh.position.length, 3 * 16);
    assert.equal(mesh.index.length, 3 * 12);
    assert.deepEqual([...mesh.firstVertex], [0, 16]);
    // Ring at x = 10, from the origin (10, 0, 0): +y, +z, -y, -z by 0.5.
    close([...mesh.position.slice(0, 12)], [0, 0.5, 0, 0, 0, 0.5, 0, -0.5, 0, 0, 0, -0.5], 1e-7);
    close([...mesh.position.slice(12, 15)], [2, 0.5, 0], 1e-7);
    assert.deepEqual([...mesh.normal.slice(0, 4)], [0, 127, 0, 0]);
    // The disc at the beginning faces back, the one at the end on.
    assert.deepEqual([...mesh.normal.slice(4 * 8, 4 * 8 + 3)], [-127, 0, 0]);
    assert.deepEqual([...mesh.normal.slice(4 * 12, 4 * 12 + 3)], [127, 0, 0]);
});

/** Six times the volume that the triangles of a closed mesh hold: positive when all face outwards. */
function sixVolumes(position: Float32Array, index: Uint32Array): number {
    const at = (k: number): Vec => [position[3 * k], position[3 * k + 1], position[3 * k + 2]];
    let sum = 0;
    for (let t = 0; t < index.length; t += 3) sum += dot(at(index[t]), cross(at(index[t + 1]), at(index[t + 2])));
    return sum;
}

test("closed solids face outwards: their triangles hold the volume of the prism and the pyramid", () => {
    // A square of half-diagonal 0.5 has the area 0.5; the prism of height 3 holds 1.5, the pyramid 0.5.
    const prism = meshOf([stick([0, 1, 2], [0, 1, 5], 0.5)], 4, [0, 0, 0]);
    close([sixVolumes(prism.position, prism.index)], [6 * 1.5], 1e-5);
    const pyramid = meshOf([cone([4, 0, 0], [1, 0, 0], 0.5)], 4, [0, 0, 0]);
    close([sixVolumes(pyramid.position, pyramid.index)], [6 * 0.5], 1e-5);
    const round = meshOf(ball([1, 1, 1], 2), 24, [0, 0, 0]);
    assert.ok(sixVolumes(round.position, round.index) > 0);
});

test("the wall of a cone leans: its normal is square to its edge", () => {
    // Radius 3 to 0 over a length of 4: the edge is (4, -3), its normal (3, 4) / 5.
    const mesh = meshOf([cone([0, 0, 0], [4, 0, 0], 3)], 4, [0, 0, 0]);
    assert.deepEqual([...mesh.normal.slice(0, 3)], [Math.round(127 * 0.6), Math.round(127 * 0.8), 0]);
});

test("far coordinates keep their millimetres", () => {
    const mesh = meshOf([stick([4e6, 5e6, 0], [4e6, 5e6, 0.001], 0.5)], 4, [4e6, 5e6, 0]);
    close([mesh.position[0], mesh.position[14]], [0.5, 0.001], 1e-9);
});

test("elements of one section and line are one run", () => {
    const runs = runsOf(sampleGroup());
    assert.deepEqual(runs.map(({ pile, first, count, section }) => [pile, first, count, section]), [[1, 0, 2, 1], [1, 2, 1, 2], [2, 3, 1, 2]]);
    assert.deepEqual([runs[0].from, runs[0].to], [[0, 0, 0], [0, 0, 5]]);
});

test("a bent pile keeps its elements apart", () => {
    const group = sampleGroup();
    group.x[2] = 0.5;
    assert.equal(deviationOf(group, group.piles[1]), 0.5);
    assert.equal(runsOf(group).length, 4);
});

test("ends are closed unless a neighbour at least as wide goes on", () => {
    const solids = tubeSolids(runsOf(sampleGroup()), 0.1);
    // 1.0 m over 0.6 m: the lower end of the wide one is seen, the upper end of the narrow one is not.
    assert.deepEqual(solids.map((solid) => [solid.closedFrom, solid.closedTo]), [[true, true], [false, true], [true, true]]);
    assert.deepEqual(solids.map((solid) => solid.fromRadius), [0.5, 0.3, 0.3]);
    assert.ok(sidesFor(90000) < sidesFor(100));
});

test("a ray meets the wall, the discs, and misses", () => {
    const [from, to]: [Vec, Vec] = [[0, 0, 0], [0, 0, 10]];
    assert.equal(rayCylinder({ origin: [-5, 0, 3], direction: [1, 0, 0] }, from, to, 0.5), 4.5);
    // From above onto the head: an open tube would let it through.
    assert.equal(rayCylinder({ origin: [0.2, 0.1, -7], direction: [0, 0, 1] }, from, to, 0.5), 7);
    assert.equal(rayCylinder({ origin: [0.2, 0.1, 17], direction: [0, 0, -1] }, from, to, 0.5), 7);
    assert.equal(rayCylinder({ origin: [-5, 0.6, 3], direction: [1, 0, 0] }, from, to, 0.5), Infinity);
    assert.equal(rayCylinder({ origin: [-5, 0, 11], direction: [1, 0, 0] }, from, to, 0.5), Infinity);
    assert.equal(rayCylinder({ origin: [5, 0, 3], direction: [1, 0, 0] }, from, to, 0.5), Infinity);
    // Aslant from (-3, 0, -4) along (3, 0, 4) / 5: it reaches the head in its middle.
    close([rayCylinder({ origin: [-3, 0, -4], direction: [0.6, 0, 0.8] }, from, to, 0.5)], [5]);
    assert.equal(rayCylinder({ origin: [-5, 0, 3], direction: [1, 0, 0] }, from, from, 0.5), Infinity);
});

test("a section by depth is met where it is, not what was above it", () => {
    const [from, to]: [Vec, Vec] = [[0, 0, 0], [0, 0, 10]];
    assert.equal(rayCylinder({ origin: [-5, 0, 3], direction: [1, 0, 0] }, from, to, 0.5, 4), Infinity);
    assert.equal(rayCylinder({ origin: [0, 0, -5], direction: [0, 0, 1] }, from, to, 0.5, 4), 9);
    assert.equal(rayCylinder({ origin: [-5, 0, 5], direction: [1, 0, 0] }, from, to, 0.5, 4), 4.5);
});

test("the picker names pile and element, the nearest of those on the ray", () => {
    const group = sampleGroup();
    const pick = makePicker(group, runsOf(group), 0.1);
    // At z = 1 the first element, at z = 2.5 the second of the same run, at z = 7 the third, which is narrower.
    assert.deepEqual([1, 2.5, 7].map((z) => pick({ origin: [-5, 0, z], direction: [1, 0, 0] })?.element), [0, 1, 2]);
    close([pick({ origin: [-5, 0, 7], direction: [1, 0, 0] })?.distance ?? NaN], [4.7]);
    // Along x at z = 4 the ray goes through pile 7 into pile 9; from the other side it meets pile 9 first.
    assert.equal(pick({ origin: [-5, 0, 4], direction: [1, 0, 0] })?.pile, 1);
    const back = pick({ origin: [20, 0, 4], direction: [-1, 0, 0] });
    assert.equal(back?.pile, 2);
    close(back?.point ?? [], [9, 0, 4]);
    assert.equal(pick({ origin: [-5, 3, 4], direction: [1, 0, 0] }), null);
});

test("arrows: the largest is the longest, the others have their share", () => {
    assert.equal(arrowScale([[3, 4, 0], [0, 0, 2]], 10), 2);
    assert.equal(arrowScale([[0, 0, 0]], 10), 0);
    // 2 kN at 2 m for each: the tail is 4 m before the tip, against the direction of the force.
    const solids = arrow([1, 1, 1], [0, 0, 2], 2, 10, 1);
    assert.equal(solids.length, 2);
    close(solids[0].to, [1, 1, 1]);
    close(solids[1].from, [1, 1, -3]);
    assert.equal(solids[0].toRadius, 0);
    assert.equal(arrow([0, 0, 0], [0, 0, 2], 2, 10, 2).length, 3);
    assert.deepEqual(arrow([0, 0, 0], [0, 0, 0], 2, 10, 1), []);
    assert.deepEqual(arrow([0, 0, 0], [Infinity, 0, 0], 2, 10, 1), []);
});

test("an arrow touches the tube's surface on the side it comes from; along the axis it touches the node", () => {
    close(touchPoint([0, 0, 5], [2, 0, 0], [0, 0, 1], 0.5), [-0.5, 0, 5]);
    close(touchPoint([0, 0, 5], [0, 0, -3], [0, 0, 1], 0.5), [0, 0, 5]);
    // At 3-4-5 to the axis the share across is 0.6: 0.3 back along (0.6, 0, 0.8).
    close(touchPoint([0, 0, 0], [3, 0, 4], [0, 0, 1], 0.5), [-0.18, 0, -0.24]);
});

test("springs: a rod with a plate, three quarters of a ring", () => {
    const [rod, plate] = linearSpring([1, 0, 0], [0, 1, 0], 2, 0.1);
    close(rod.to, [1, 2, 0]);
    close(plate.to, [1, 2.1, 0]);
    const ring = rotationalSpring([0, 0, 0], [0, 0, 1], 2, 0.1);
    assert.equal(ring.length, 13);
    close(ring[0].from, [2, 0, 0]);
    // After three quarters of a turn from x by y: -y.
    close(ring[11].to, [0, -2, 0]);
});

test("the section of a raked tube is an ellipse towards the batter", () => {
    const group = sampleGroup();
    const sections = new Map([[1, sectionOf(1, 1, 0.1)]]);
    // From (0, 0, 0) to (3, 0, 4): the cosine to the vertical is 0.8, so the ellipse is 1 / 0.8 = 1.25 long.
    const run = { pile: 1, first: 0, count: 2, from: [0, 0, 0] as Vec, to: [3, 0, 4] as Vec, diameter: 1, section: 1 };
    const walled = { ...group, sections };
    const [ring, ...more] = cutRings(walled, [run], 2);
    assert.equal(more.length, 0);
    close(ring.centre, [1.5, 0, 2]);
    close(ring.along, [1.25, 0, 0]);
    close(ring.across, [0, 1, 0]);
    close([ring.outer, ring.inner], [0.5, 0.4]);
    assert.deepEqual(cutRings(walled, [run], -1), []);
    assert.deepEqual(cutRings(walled, [run], 4), []);
});

test("a composite is cut through each of its tubes", () => {
    const group = sampleGroup();
    const sections = new Map([[1, sectionOf(1, 0, 0, { tubes: [8, 9] })], [8, sectionOf(8, 1, 0.05)], [9, sectionOf(9, 0.8, 0.02)]]);
    const rings = cutRings({ ...group, sections }, runsOf(group).slice(0, 1), 1);
    close(rings.flatMap(({ outer, inner }) => [outer, inner]), [0.5, 0.45, 0.4, 0.38]);
});

test("links go from the cap point to the heads fixed to it", () => {
    assert.deepEqual(linksOf(sampleGroup()), [{ from: [0, 0, -1], to: [0, 0, 0] }]);
});

test("the mark of a clash shows its overlap within what can be seen", () => {
    const clash = { piles: [7, 9] as const, point: [0, 0, 0] as Vec };
    assert.equal(clashRadius({ ...clash, overlap: 2 }, 100), 2);
    assert.equal(clashRadius({ ...clash, overlap: 0.01 }, 100), 0.8);
    assert.equal(clashRadius({ ...clash, overlap: 50 }, 100), 10);
    assert.equal(clashRadius({ ...clash, overlap: NaN }, 100), 0.8);
});

test("a vector without length points down", () => assert.deepEqual(unit([0, 0, 0]), [0, 0, 1]));
