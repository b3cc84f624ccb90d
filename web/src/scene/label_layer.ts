// The labels over the canvas: elements of the page, so that they grow with its text.
import { Vector3, type Camera } from "three";
import { make } from "../page/dom.ts";
import type { Vec } from "../geometry/vec.ts";
import { belowCut, withoutOverlap, type Placed } from "./labels.ts";
import type { Label } from "./layers.ts";

export interface PlacedLabel {
    readonly label: Label;
    readonly x: number;
    readonly y: number;
}

export interface Picture {
    readonly camera: Camera;
    readonly origin: Vec;
    readonly width: number;
    readonly height: number;
    /** The height of the text. */
    readonly em: number;
    readonly cut: number | null;
    /** The number of the selected pile, whose label goes before all others. */
    readonly selected: number | null;
}

/** Where labels lie in a picture; those of what is cut away and those that would overlap are left out. */
export function placeLabels(labels: readonly Label[], { camera, origin, width, height, em, cut, selected }: Picture): PlacedLabel[] {
    const projected = new Vector3();
    const placed = labels.flatMap((label): (Placed & PlacedLabel)[] => {
        const point = label.kind === "axis" ? label.point : belowCut(label.point, label.end, cut);
        if (!point) return [];
        projected.set(point[0] - origin[0], point[1] - origin[1], point[2] - origin[2]).project(camera);
        if (!(projected.z <= 1)) return [];
        const raised = label.kind === "pile" || label.kind === "cap" ? 1.1 * em : 0;
        return [{
            label,
            x: ((projected.x + 1) / 2) * width,
            y: ((1 - projected.y) / 2) * height - raised,
            width: label.text.length * 0.62 * em + 0.6 * em,
            height: 1.3 * em,
            rank: label.pile !== undefined && label.pile === selected ? Infinity : label.rank,
        }];
    });
    const shown = withoutOverlap(placed, width, height);
    return placed.filter((_, k) => shown[k]);
}

export interface LabelLayer {
    readonly element: HTMLElement;
    readonly show: (placed: readonly PlacedLabel[], selected: number | null) => void;
}

/** The layer's element holds one element a label; they are kept and moved. */
export function makeLabelLayer(): LabelLayer {
    const element = make("div", { class: "labels", attributes: { "aria-hidden": "true" } });
    const known = new Map<Label, HTMLElement>();
    return {
        element,
        show: (placed, selected) => {
            const now = new Set(placed.map(({ label }) => label));
            for (const [label, span] of known) if (!now.has(label)) {
                span.remove();
                known.delete(label);
            }
            for (const { label, x, y } of placed) {
                let span = known.get(label);
                if (!span) {
                    span = make("span", { text: label.text });
                    known.set(label, span);
                    element.append(span);
                }
                span.className = `label ${label.kind}${label.pile !== undefined && label.pile === selected ? " selected" : ""}`;
                span.style.transform = `translate(${x.toFixed(1)}px, ${y.toFixed(1)}px) translate(-50%, -50%)`;
            }
        },
    };
}
