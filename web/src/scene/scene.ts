// The 3D view: puts model, layers, labels, controls and store together, and draws when something has changed.
import { Scene, WebGLRenderer } from "three";
import { headOf, tipOf } from "../data/group.ts";
import type { Group, Report } from "../data/report.ts";
import { makePicker, type Hit } from "../geometry/pick.ts";
import type { Vec } from "../geometry/vec.ts";
import { announce, byId, make, tell } from "../page/dom.ts";
import { withoutScene } from "../page/start.ts";
import type { Orbit, Shown, State, Store } from "../page/state.ts";
import type { Tooltip } from "../page/tooltip.ts";
import { boxOf, mudlineOf } from "./box.ts";
import { wireControls } from "./controls.ts";
import { makeEye } from "./eye.ts";
import { makeLabelLayer, placeLabels } from "./label_layer.ts";
import { arrowTails, availableLayers, makeLayer, type LayerContent } from "./layers.ts";
import { showLegend } from "./legend.ts";
import { makeShared, NO_CUT } from "./materials.ts";
import { discard, makeModel } from "./model.ts";
import { hitLines } from "./naming.ts";
import { DIRECTIONS, fit } from "./orbit.ts";
import { drawForPrint } from "./print.ts";
import { DARK, LIGHT } from "./theme.ts";
import { makeToolbar } from "./toolbar.ts";

const HELP = "Mouse: drag turns, right button or Shift and drag moves, wheel zooms once the view has the focus. "
    + "Keys: arrows turn, with Shift move, + and - zoom, Home fits, Page Up and Page Down select the pile before and after, "
    + "with Shift the element, Escape selects nothing.";

/** WebGL 2 on the canvas, asked for before three.js does: it would complain on the console. */
function contextOf(canvas: HTMLCanvasElement): WebGL2RenderingContext | null {
    try {
        return canvas.getContext("webgl2", { alpha: true, antialias: true, depth: true, premultipliedAlpha: true });
    } catch {
        return null;
    }
}

/** The points that must be in the picture: heads, tips, loads' room is the margin; the corners of the mudline's rectangle. */
function pointsToSee(groups: readonly Group[], corners: readonly Vec[]): Vec[] {
    const points = groups.flatMap((group) => group.piles.flatMap((pile) => [headOf(group, pile), tipOf(group, pile)]));
    return [...points, ...corners].filter((point) => point.every(Number.isFinite));
}

/** Makes the view in its place, or says that the browser has no WebGL. */
export function makeScene(place: HTMLElement, report: Report, store: Store, tooltip: Tooltip): void {
    const group = report.group;
    if (!group) return;
    const canvas = make("canvas", { attributes: { tabindex: "0", role: "application", "aria-label": "3D view of the pile group", "aria-describedby": "view-help" } });
    const context = contextOf(canvas);
    if (!context) return withoutScene();
    let renderer: WebGLRenderer;
    try {
        renderer = new WebGLRenderer({ canvas, context, alpha: true, antialias: true });
    } catch {
        return withoutScene();
    }
    renderer.setClearColor(0, 0);
    // Asking for errors waits for each shader; a test of the page's console finds them.
    renderer.debug.checkShaderErrors = false;

    const groups = report.other ? [group, report.other] : [group];
    const box = boxOf(groups);
    const origin = box.middle;
    const shared = makeShared();
    const scene = new Scene();
    const dark = matchMedia("(prefers-color-scheme: dark)");
    const theme = () => (dark.matches ? DARK : LIGHT);
    const model = makeModel(scene, report, group, origin, box.extent, shared, theme());
    const thin = box.extent / 700;
    const pick = makePicker(group, model.runs, thin);
    const pickOther = report.other ? makePicker(report.other, model.otherRuns, thin) : null;
    const eye = makeEye(origin, shared);
    const available = availableLayers(report);
    const { low, high } = mudlineOf(box);
    const points = pointsToSee(groups, [[low[0], low[1], 0], [low[0], high[1], 0], [high[0], low[1], 0], [high[0], high[1], 0],
        ...arrowTails(report, group, box)]);
    const widest = Math.max(0, ...model.runs.slice(0, 5000).map((run) => run.diameter)) / 2;

    // The elements of the view.
    const labelLayer = makeLabelLayer();
    const lost = make("p", { class: "lost", text: "The browser has taken the graphics away; the view comes back when it returns them." });
    lost.hidden = true;
    const stage = make("div", { class: "stage" }, canvas, labelLayer.element, lost);
    const legend = make("div", { class: "legend", attributes: { role: "region", "aria-label": "Legend" } });
    const help = make("p", { class: "help", text: HELP, attributes: { id: "view-help" } });
    const aspect = (): number => Math.max(1, canvas.clientWidth) / Math.max(1, canvas.clientHeight);
    const fitted = (direction: Pick<Orbit, "azimuth" | "elevation">): Orbit =>
        fit(points, widest, direction, aspect(), store.get().trueProjection);
    const orbitOf = (state: State): Orbit => (typeof state.view === "string" ? fitted(DIRECTIONS[state.view]) : state.view);
    const refit = (): void => {
        if (typeof store.get().view !== "string") store.set({ view: fitted(orbitOf(store.get())) });
    };
    const depths: [number, number] = [box.low[2], box.high[2] > box.low[2] ? box.high[2] : box.low[2] + 1];
    place.replaceChildren(makeToolbar(report, store, { fit: refit, depths, available }), stage, legend, help);

    // Drawing, on demand.
    const layers = new Map<Shown, LayerContent>();
    let waiting = false;
    const draw = (): void => {
        waiting = false;
        const [width, height] = [canvas.clientWidth, canvas.clientHeight];
        if (width === 0 || height === 0 || renderer.getContext().isContextLost()) return;
        const state = store.get();
        const camera = eye.look(orbitOf(state), state.trueProjection, width, height, origin, box.extent * 1.5);
        renderer.render(scene, camera);
        const em = parseFloat(getComputedStyle(labelLayer.element).fontSize);
        const labels = [...layers.values()].flatMap((layer) => layer.labels);
        labelLayer.show(placeLabels(labels, { camera, origin, width, height, em, cut: state.cut, selected: state.pile }), state.pile);
        if (place.dataset["state"] !== "shown") {
            place.dataset["state"] = "shown";
            performance.mark("first-picture");
        }
    };
    const redraw = (): void => {
        if (waiting) return;
        waiting = true;
        requestAnimationFrame(draw);
    };
    const resize = (): void => {
        const [width, height] = [stage.clientWidth, stage.clientHeight];
        if (width === 0 || height === 0) return;
        renderer.setPixelRatio(Math.min(devicePixelRatio, 2));
        renderer.setSize(width, height, false);
        draw();
    };

    // What the state says, put into the scene.
    let colouring = model.colourBy(store.get().colour);
    const updateLegend = (): void =>
        showLegend(legend, colouring, [
            ...[...layers.values()].flatMap((layer) => (layer.note ? [layer.note] : [])),
            ...(report.other && store.get().show.has("other") ? [
                { text: `Other group: ${report.other.label}`, colour: theme().other },
                { text: "Outlined, number with *: changed or only here", colour: theme().changed },
            ] : []),
        ]);
    const drop = (shown: Shown): void => {
        const layer = layers.get(shown);
        if (!layer) return;
        scene.remove(layer.object);
        discard(layer.object);
        layers.delete(shown);
    };
    const updateLayers = (state: State, vectorChanged: boolean): void => {
        if (vectorChanged) drop("loads");
        for (const shown of available) {
            if (shown === "other") model.showOther(state.show.has("other"));
            else if (!state.show.has(shown)) drop(shown);
            else if (!layers.has(shown)) {
                const content = makeLayer({ report, group, box, origin, shared, theme: theme() }, shown, state.vector);
                layers.set(shown, content);
                scene.add(content.object);
            }
        }
        updateLegend();
    };
    const apply = (now: State, before: State | null): void => {
        if (now.colour !== before?.colour) {
            colouring = model.colourBy(now.colour);
            updateLegend();
        }
        if (now.cut !== before?.cut) {
            shared.cut.value = now.cut === null ? NO_CUT : now.cut - origin[2];
            model.cutAt(now.cut);
        }
        if (now.show !== before?.show || now.vector !== before.vector) updateLayers(now, now.vector !== before?.vector);
        if (now.pile !== before?.pile || now.element !== before.element) model.select(now.pile, now.element);
        redraw();
    };
    apply(store.get(), null);
    store.listen(apply);
    dark.addEventListener("change", () => {
        model.setTheme(theme());
        for (const shown of [...layers.keys()]) drop(shown);
        updateLayers(store.get(), false);
        redraw();
    });

    // Pointing and choosing.
    const hitAt = (x: number, y: number): { hit: Hit; of: Group } | null => {
        const state = store.get();
        const ray = eye.rayAt(x, y);
        const cut = state.cut ?? undefined;
        const own = pick(ray, cut);
        const others = pickOther && state.show.has("other") ? pickOther(ray, cut) : null;
        // Where both groups have a tube in the same place, this group's is meant.
        if (others && report.other && others.distance < (own?.distance ?? Infinity) - 1e-6 * box.extent) return { hit: others, of: report.other };
        return own ? { hit: own, of: group } : null;
    };
    let pointed: number | null = null;
    const hover = (element: number | null): void => {
        if (element === pointed) return;
        pointed = element;
        model.hover(element);
        redraw();
    };
    let pointer: { x: number; y: number } | null = null;
    const point = (): void => {
        if (!pointer) return;
        const { x, y } = pointer;
        pointer = null;
        const found = hitAt(x, y);
        canvas.classList.toggle("on-pile", found !== null);
        hover(found?.of === group ? found.hit.element : null);
        if (!found) return tooltip.hide();
        const frame = canvas.getBoundingClientRect();
        tooltip.show(hitLines(report, found.of, found.hit, found.of !== group), frame.left + x, frame.top + y);
    };
    const say = (state: State): void => {
        if (state.pile === null) announce("No pile is selected");
        else announce(state.element === null ? `Pile ${state.pile}` : `Pile ${state.pile}, element ${state.element}`);
    };
    const stepPile = (by: 1 | -1): void => {
        const now = store.get().pile;
        const at = now === null ? -1 : (group.indexOf.get(now) ?? -1);
        const next = at < 0 ? (by > 0 ? 0 : group.piles.length - 1) : (at + by + group.piles.length) % group.piles.length;
        store.set({ pile: group.piles[next].number, element: null });
        say(store.get());
    };
    const stepElement = (by: 1 | -1): void => {
        const { pile, element } = store.get();
        const index = pile === null ? undefined : group.indexOf.get(pile);
        const elements = index === undefined ? 0 : group.piles[index].elements;
        if (elements === 0) return;
        store.set({ element: element === null ? (by > 0 ? 1 : elements) : Math.min(Math.max(element + by, 1), elements) });
        say(store.get());
    };
    wireControls(canvas, {
        orbit: () => orbitOf(store.get()),
        setOrbit: (view) => store.set({ view }),
        extent: box.extent,
        point: (x, y) => {
            if (!pointer) requestAnimationFrame(point);
            pointer = { x, y };
        },
        leave: () => {
            pointer = null;
            tooltip.hide();
            hover(null);
        },
        click: (x, y) => {
            const found = hitAt(x, y);
            if (!found) return store.set({ pile: null, element: null });
            const pile = found.of.piles[found.hit.pile];
            if (!group.indexOf.has(pile.number)) return tell(`Pile ${pile.number} is only in the other group`);
            store.set({ pile: pile.number, element: found.of === group ? found.hit.element - pile.first_element + 1 : null });
        },
        fit: refit,
        stepPile,
        stepElement,
        deselect: () => store.set({ pile: null, element: null }),
    });

    canvas.addEventListener("webglcontextlost", (event) => {
        event.preventDefault();
        lost.hidden = false;
    });
    canvas.addEventListener("webglcontextrestored", () => {
        lost.hidden = true;
        redraw();
    });
    new ResizeObserver(resize).observe(stage);
    drawForPrint(stage, canvas, () => {
        const state = store.get();
        const [width, height] = [canvas.clientWidth, canvas.clientHeight];
        const camera = eye.look(orbitOf(state), state.trueProjection, width, height, origin, box.extent * 1.5);
        renderer.render(scene, camera);
        const labels = [...layers.values()].flatMap((layer) => layer.labels);
        return placeLabels(labels, { camera, origin, width, height, em: 13, cut: state.cut, selected: state.pile });
    });
    byId("view")?.classList.add("with-scene");
    resize();
}
