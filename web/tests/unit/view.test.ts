// The eye's place, labels, boxes and colours.
import assert from "node:assert/strict";
import { test } from "node:test";
import { KINDS, NONE, rampAt } from "../../src/colour/palette.ts";
import { colouringOf } from "../../src/colour/scheme.ts";
import { runsOf } from "../../src/geometry/runs.ts";
import { add, dot, length, scale, sub, type Vec } from "../../src/geometry/vec.ts";
import { axesAt, boxOf, mudlineOf } from "../../src/scene/box.ts";
import { belowCut, withoutOverlap } from "../../src/scene/labels.ts";
import { axesOf, DIRECTIONS, eyeOf, fit, FIELD_OF_VIEW, move, pixelAt, turn, zoom } from "../../src/scene/orbit.ts";
import { close, reportOf, sampleGroup, sectionOf } from "./samples.ts";

const tangent = Math.tan((FIELD_OF_VIEW / 2) * (Math.PI / 180));

test("the views with a name show the axes as the drawings do", () => {
    // [right, up] of each view; +z is down, so up is -z except from the top.
    const expected = { x: [[1, 0, 0], [0, 0, -1]], y: [[0, 1, 0], [0, 0, -1]], top: [[1, 0, 0], [0, -1, 0]] };
    for (const name of ["x", "y", "top"] as const) {
        const { right, up } = axesOf(DIRECTIONS[name]);
        close(right, expected[name][0]);
        close(up, expected[name][1]);
    }
    // From the top the eye is above: at a smaller z.
    close(eyeOf({ ...DIRECTIONS.top, distance: 7, target: [1, 2, 3] }), [1, 2, -4]);
});

test("the oblique view looks down a little", () => {
    const { back, up } = axesOf(DIRECTIONS.oblique);
    assert.ok(back[2] < 0 && up[2] < -0.9);
    close([dot(back, up), length(back)], [0, 1]);
});

test("fit sees all points: parallel rays by height and width", () => {
    const points: Vec[] = [[-10, 0, 0], [10, 0, 40]];
    // Along y: 20 wide, 40 high. With the aspect 2 the height decides: (20 + 1) * 1.08 / tangent.
    const orbit = fit(points, 1, DIRECTIONS.x, 2, true);
    close(orbit.target, [0, 0, 20], 1e-9);
    close([orbit.distance], [(1.08 * 21) / tangent], 1e-9);
    // With the aspect 0.25 the width does: (10 + 1) / 0.25.
    close([fit(points, 1, DIRECTIONS.x, 0.25, true).distance], [(1.08 * 44) / tangent], 1e-9);
});

test("fit sees all points in perspective, those near the eye too", () => {
    const points: Vec[] = [[0, 15, 0], [5, -15, 30], [-20, 3, 8]];
    for (const direction of Object.values(DIRECTIONS)) {
        const orbit = fit(points, 0.5, direction, 1.5, false);
        const { right, up, back } = axesOf(orbit);
        for (const point of points) {
            const from = sub(point, eyeOf(orbit));
            const away = -dot(from, back);
            assert.ok(away > 0 && Math.abs(dot(from, up)) < tangent * away && Math.abs(dot(from, right)) < 1.5 * tangent * away);
        }
    }
});

test("turning wraps the azimuth and stops at the top", () => {
    const orbit = { azimuth: 350, elevation: 80, distance: 1, target: [0, 0, 0] as Vec };
    assert.deepEqual([turn(orbit, 20, 20).azimuth, turn(orbit, 20, 20).elevation], [10, 90]);
    assert.equal(turn(orbit, -355, 0).azimuth, 355);
});

test("moving follows the pointer, zooming keeps the point under it", () => {
    const orbit = { ...DIRECTIONS.x, distance: 100, target: [0, 0, 0] as Vec };
    const pixel = (2 * tangent * 100) / 500;
    assert.equal(pixelAt(orbit, 500), pixel);
    // The picture goes right and down by pixels: what is looked at goes left and up, and up is -z.
    close(move(orbit, 10, 4, 500).target, [-10 * pixel, 0, -4 * pixel]);
    const nearer = zoom(orbit, 0.25, 30, -20, 500, 100);
    assert.equal(nearer.distance, 25);
    const { right, up } = axesOf(orbit);
    const under = (o: typeof orbit): Vec => add(o.target, add(scale(right, 30 * pixelAt(o, 500)), scale(up, 20 * pixelAt(o, 500))));
    close(under({ ...orbit, ...nearer }), under(orbit), 1e-9);
    assert.equal(zoom(orbit, 1e9, 0, 0, 500, 100).distance, 5000);
});

test("labels: the higher rank stays, others where they touch none", () => {
    const label = (x: number, y: number, rank: number) => ({ x, y, width: 20, height: 10, rank });
    assert.deepEqual(withoutOverlap([label(50, 50, 1), label(65, 55, 2), label(71, 50, 1), label(90, 55, 1), label(-20, 50, 9)], 200, 100),
        [false, true, false, true, false]);
});

test("a number goes down with the section, and away with its pile", () => {
    assert.deepEqual(belowCut([0, 0, 0], [8, 0, 40], null), [0, 0, 0]);
    assert.deepEqual(belowCut([0, 0, 0], [8, 0, 40], 10), [2, 0, 10]);
    assert.deepEqual(belowCut([0, 0, 12], [8, 0, 40], 10), [0, 0, 12]);
    assert.equal(belowCut([0, 0, 0], [8, 0, 40], 41), null);
    assert.equal(belowCut([0, 0, 0], undefined, 1), null);
});

test("the box of a group, its mudline and its axes", () => {
    const box = boxOf([sampleGroup()]);
    assert.deepEqual([box.low, box.high], [[0, 0, -1], [9, 0, 10]]);
    close([box.extent], [Math.hypot(9, 11)]);
    close(mudlineOf(box).low, [-1.08, -1.08]);
    assert.deepEqual(axesAt(box), [0, 0, 0]);
    const far = sampleGroup();
    for (let node = 0; node < 7; ++node) far.x[node] += 4e6;
    assert.equal(axesAt(boxOf([far]))[0], 4e6 - 1.08);
    const broken = sampleGroup();
    broken.x[4] = NaN;
    assert.ok(Number.isFinite(boxOf([broken]).extent));
});

test("the ramp has its ends, and grows lighter all the way", () => {
    assert.deepEqual([rampAt(-1), rampAt(0)], [[0x5b, 0x2a, 0x86], [0x5b, 0x2a, 0x86]]);
    assert.deepEqual(rampAt(2), [0xc2, 0xdf, 0x3a]);
    const luminance = (share: number): number => {
        const [r, g, b] = rampAt(share).map((value) => (value / 255) ** 2.2);
        return 0.2126 * r + 0.7152 * g + 0.0722 * b;
    };
    for (let k = 0; k < 40; ++k) assert.ok(luminance((k + 1) / 40) > luminance(k / 40), `step ${k}`);
});

test("colours by each property, with their legends", () => {
    const group = sampleGroup();
    const report = reportOf(group);
    const runs = runsOf(group);
    const labels = (by: Parameters<typeof colouringOf>[3]) => colouringOf(report, group, runs, by).entries.map((entry) => entry.label);
    assert.deepEqual(labels("section"), ["1: 1 × 0.03\u00a0m", "2: 0.6 × 0.02\u00a0m"]);
    assert.deepEqual(labels("wall"), ["0.02\u00a0m", "0.03\u00a0m"]);
    assert.deepEqual(labels("diameter"), ["0.6\u00a0m", "1\u00a0m"]);
    assert.deepEqual(labels("material"), ["1: steel", "2"]);
    assert.deepEqual(labels("pile"), ["7", "9"]);
    assert.deepEqual(labels("origin"), ["given", "mirrored"]);
    const diameter = colouringOf(report, group, runs, "diameter");
    assert.deepEqual(runs.map(diameter.colourOf), [rampAt(1), rampAt(0), rampAt(0)]);
    assert.deepEqual(runs.map(colouringOf(report, group, runs, "section").colourOf), [KINDS[0], KINDS[1], KINDS[1]]);
});

test("the wall of a composite is that of all its tubes; without wall it is not known", () => {
    const group = sampleGroup();
    const sections = new Map([[1, sectionOf(1, 0, 0, { tubes: [8, 9] })], [8, sectionOf(8, 1, 0.05)], [9, sectionOf(9, 0.8, 0.02)], [2, sectionOf(2, 0.6, 0)]]);
    const changed = { ...group, sections };
    const colouring = colouringOf(reportOf(changed), changed, runsOf(changed), "wall");
    assert.deepEqual(colouring.entries.map((entry) => entry.label), ["0.07\u00a0m", "not known"]);
    assert.equal(colouring.colourOf(runsOf(changed)[1]), NONE);
});
