// The address fragment: view and selection as text, so that a link leads to the same picture.
import { COLOUR_BY, type ColourBy } from "../colour/scheme.ts";
import { DEFAULT_SHOWN, DEFAULTS, SHOWN, VIEWS, type Orbit, type Shown, type State, type ViewName } from "./state.ts";

const isOneOf = <T extends string>(values: readonly T[], text: string): text is T => (values as readonly string[]).includes(text);

/** A plain decimal number; null for any other text. */
function numberOf(text: string): number | null {
    if (!/^[-+]?(\d+\.?\d*|\.\d+)(e[-+]?\d+)?$/i.test(text)) return null;
    const value = Number(text);
    return Number.isFinite(value) ? value : null;
}

function countOf(text: string): number | null {
    return /^[1-9]\d{0,8}$/.test(text) ? Number(text) : null;
}

function orbitOf(text: string): Orbit | null {
    const numbers = text.split(",").map(numberOf);
    if (numbers.length !== 6) return null;
    const [azimuth, elevation, distance, x, y, z] = numbers;
    if (azimuth === null || elevation === null || distance === null || x === null || y === null || z === null) return null;
    return distance > 0 && Math.abs(elevation) <= 90 ? { azimuth, elevation, distance, target: [x, y, z] } : null;
}

/** Whether a fragment (without #) is of view and selection, and no anchor of the page. */
export const isStateFragment = (fragment: string): boolean => fragment.includes("=");

/** The state that a fragment describes. What it leaves out or gets wrong is as at first. */
export function parseFragment(fragment: string): State {
    let state = DEFAULTS;
    for (const [key, text] of new URLSearchParams(fragment)) {
        const change: Partial<State> = {};
        const put = <K extends keyof State>(name: K, value: State[K] | null): void => {
            if (value !== null) Object.assign(change, { [name]: value });
        };
        switch (key) {
            case "pile": put("pile", countOf(text)); break;
            case "element": put("element", countOf(text)); break;
            case "colour": put("colour", isOneOf<ColourBy>(COLOUR_BY, text) ? text : null); break;
            case "view": put("view", isOneOf<ViewName>(VIEWS, text) ? text : orbitOf(text)); break;
            case "projection": put("trueProjection", text === "true"); break;
            case "show": put("show", new Set(text.split(",").filter((word): word is Shown => isOneOf(SHOWN, word)))); break;
            case "vector": put("vector", countOf(text)); break;
            case "cut": put("cut", numberOf(text)); break;
        }
        state = { ...state, ...change };
    }
    return state.pile === null ? { ...state, element: null } : state;
}

const round = (value: number): string => String(Number(value.toPrecision(6)));

/** The fragment (without #) of a state; empty when everything is as at first. */
export function formatFragment(state: State): string {
    const parts: string[] = [];
    if (state.pile !== null) parts.push(`pile=${state.pile}`);
    if (state.pile !== null && state.element !== null) parts.push(`element=${state.element}`);
    if (state.colour !== DEFAULTS.colour) parts.push(`colour=${state.colour}`);
    if (typeof state.view !== "string") {
        const { azimuth, elevation, distance, target } = state.view;
        parts.push(`view=${[azimuth, elevation, distance, ...target].map(round).join(",")}`);
    } else if (state.view !== DEFAULTS.view) parts.push(`view=${state.view}`);
    if (state.trueProjection) parts.push("projection=true");
    const shown = SHOWN.filter((name) => state.show.has(name));
    if (shown.join() !== SHOWN.filter((name) => DEFAULT_SHOWN.includes(name)).join()) parts.push(`show=${shown.join(",")}`);
    if (state.vector !== DEFAULTS.vector) parts.push(`vector=${state.vector}`);
    if (state.cut !== null) parts.push(`cut=${round(state.cut)}`);
    return parts.join("&");
}
