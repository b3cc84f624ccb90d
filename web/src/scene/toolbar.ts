// The controls of the view: colour, view, projection, switches, load vector, section by depth.
import { COLOUR_BY, type ColourBy } from "../colour/scheme.ts";
import type { Report } from "../data/report.ts";
import { make } from "../page/dom.ts";
import { shortNumber } from "../page/numbers.ts";
import { VIEWS, type Shown, type State, type Store, type ViewName } from "../page/state.ts";

const COLOUR_NAMES: Readonly<Record<ColourBy, string>> = {
    section: "section", wall: "wall thickness", diameter: "diameter", material: "material", pile: "pile", origin: "origin (given, copied …)",
};
const VIEW_NAMES: Readonly<Record<ViewName, string>> = { oblique: "Oblique", top: "Top", x: "X–Z", y: "Y–Z" };
const SHOWN_NAMES: Readonly<Record<Shown, string>> = {
    axes: "axes", numbers: "pile numbers", mudline: "mudline", nodes: "nodes", links: "cap points and links", springs: "springs", forces: "forces",
    moments: "moments", displacements: "displacements", loads: "loads", clashes: "clashes", other: "other group",
};

function labelled(text: string, control: HTMLElement): HTMLLabelElement {
    return make("label", {}, document.createTextNode(`${text} `), control);
}

function checkbox(text: string, name: string, onChange: (on: boolean) => void): { readonly label: HTMLLabelElement; readonly set: (on: boolean) => void } {
    const input = make("input", { attributes: { type: "checkbox", name } });
    input.addEventListener("change", () => onChange(input.checked));
    return {
        label: make("label", { class: "check" }, input, document.createTextNode(` ${text}`)),
        set: (on) => {
            input.checked = on;
        },
    };
}

interface Actions {
    readonly fit: () => void;
    readonly depths: readonly [number, number];
    readonly available: readonly Shown[];
}

/** The controls, in step with the store both ways. */
export function makeToolbar(report: Report, store: Store, { fit, depths, available }: Actions): HTMLElement {
    const updates: ((state: State) => void)[] = [];

    const colour = make("select", { attributes: { name: "colour" } }, ...COLOUR_BY.map((by) => make("option", { text: COLOUR_NAMES[by], attributes: { value: by } })));
    colour.addEventListener("change", () => store.set({ colour: colour.value as ColourBy }));
    updates.push((state) => {
        colour.value = state.colour;
    });

    const views = VIEWS.map((view) => {
        const button = make("button", { text: VIEW_NAMES[view], attributes: { type: "button", "data-view": view } });
        button.addEventListener("click", () => store.set({ view }));
        updates.push((state) => button.setAttribute("aria-pressed", String(state.view === view)));
        return button;
    });
    const fitButton = make("button", { text: "Fit", attributes: { type: "button", "data-view": "fit" } });
    fitButton.addEventListener("click", fit);
    const projection = checkbox("true projection", "projection", (trueProjection) => store.set({ trueProjection }));
    updates.push((state) => projection.set(state.trueProjection));

    const switches = available.map((shown) => {
        const box = checkbox(SHOWN_NAMES[shown], shown, (on) => {
            const show = new Set(store.get().show);
            if (on) show.add(shown);
            else show.delete(shown);
            store.set({ show });
        });
        updates.push((state) => box.set(state.show.has(shown)));
        return box.label;
    });

    const rows: HTMLElement[] = [
        make("div", { class: "row" }, labelled("Colour by", colour),
            make("div", { class: "buttons", attributes: { role: "group", "aria-label": "View" } }, ...views, fitButton), projection.label),
        make("fieldset", { class: "row" }, make("legend", { text: "Show" }), ...switches),
    ];

    const last = make("div", { class: "row" });
    if (report.loadVectors.length > 0) {
        const vector = make("select", { attributes: { name: "vector" } }, ...report.loadVectors.map((load, i) =>
            make("option", { text: `${i + 1}: ${load.label}`, attributes: { value: `${i + 1}` } })));
        vector.addEventListener("change", () => store.set({ vector: Number(vector.value), show: new Set([...store.get().show, "loads" as const]) }));
        updates.push((state) => {
            vector.value = `${state.vector}`;
        });
        last.append(labelled("Load vector", vector));
    }
    const [top, bottom] = depths;
    const step = 10 ** Math.floor(Math.log10(Math.max(bottom - top, 1e-6) / 500));
    const slider = make("input", { attributes: { type: "range", name: "cut-slider", min: `${top}`, max: `${bottom}`, step: "any", "aria-label": "Depth of the section" } });
    const depth = make("input", { attributes: { type: "number", name: "cut-depth", step: "any", "aria-label": "Depth of the section as a number" } });
    const cut = checkbox("section: show only below z =", "cut", (on) => store.set({ cut: on ? Number(slider.value) : null }));
    const setCut = (text: string): void => {
        const value = Number(text);
        if (text.trim() !== "" && Number.isFinite(value)) store.set({ cut: value });
    };
    slider.value = `${Math.min(Math.max(0, top), bottom)}`;
    slider.addEventListener("input", () => setCut(String(Math.round(Number(slider.value) / step) * step)));
    // Arrow keys move a slider of any step by little or nothing: here by a fiftieth of the depth.
    slider.addEventListener("keydown", (event) => {
        const way = { ArrowRight: 1, ArrowUp: 1, ArrowLeft: -1, ArrowDown: -1 }[event.key];
        if (way === undefined) return;
        event.preventDefault();
        const next = Number(slider.value) + (way * (bottom - top)) / 50;
        setCut(shortNumber(Math.min(Math.max(next, top), bottom)));
    });
    depth.addEventListener("change", () => setCut(depth.value));
    updates.push((state) => {
        cut.set(state.cut !== null);
        depth.disabled = state.cut === null;
        if (state.cut === null) return;
        slider.value = `${state.cut}`;
        depth.value = shortNumber(state.cut);
    });
    last.append(make("div", { class: "cut" }, cut.label, slider, depth));
    rows.push(last);

    const update = (state: State): void => {
        for (const one of updates) one(state);
    };
    update(store.get());
    store.listen(update);
    return make("div", { class: "toolbar", attributes: { role: "group", "aria-label": "What the view shows" } }, ...rows);
}
