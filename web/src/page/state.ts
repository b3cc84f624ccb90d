// What is selected and how it is seen: one object, and those who want to hear of its changes.
import type { ColourBy } from "../colour/scheme.ts";
import type { Vec } from "../geometry/vec.ts";

export const SHOWN = [
    "axes", "numbers", "mudline", "nodes", "links", "springs", "forces", "moments", "displacements", "loads", "clashes", "other",
] as const;
export type Shown = (typeof SHOWN)[number];

export const VIEWS = ["oblique", "top", "x", "y"] as const;
export type ViewName = (typeof VIEWS)[number];

/** Where the eye is: degrees about the vertical and above the level, distance from the point it looks at. */
export interface Orbit {
    readonly azimuth: number;
    readonly elevation: number;
    readonly distance: number;
    readonly target: Vec;
}

export interface State {
    /** The number of the selected pile. */
    readonly pile: number | null;
    /** The selected element of that pile, from 1. */
    readonly element: number | null;
    readonly colour: ColourBy;
    readonly view: ViewName | Orbit;
    /** True lengths (parallel rays) in place of perspective. */
    readonly trueProjection: boolean;
    readonly show: ReadonlySet<Shown>;
    /** The load vector that is shown, from 1. */
    readonly vector: number;
    /** The depth above which everything is cut away. */
    readonly cut: number | null;
}

export const DEFAULT_SHOWN: readonly Shown[] = ["axes", "numbers", "mudline", "links", "loads", "clashes", "other"];

export const DEFAULTS: State = {
    pile: null,
    element: null,
    colour: "section",
    view: "oblique",
    trueProjection: false,
    show: new Set(DEFAULT_SHOWN),
    vector: 1,
    cut: null,
};

export interface Store {
    readonly get: () => State;
    /** Takes the changes and tells the listeners, when something has changed. */
    readonly set: (changes: Partial<State>) => void;
    readonly listen: (listener: (now: State, before: State) => void) => void;
}

export function makeStore(first: State): Store {
    let state = first;
    const listeners: ((now: State, before: State) => void)[] = [];
    return {
        get: () => state,
        set: (changes) => {
            const before = state;
            const next = { ...before, ...changes };
            const same = (Object.keys(next) as (keyof State)[]).every((key) => next[key] === before[key]);
            if (same) return;
            state = next;
            for (const listener of listeners) listener(next, before);
        },
        listen: (listener) => listeners.push(listener),
    };
}
