// The points of the diagrams of sections give their values, under the pointer and by the arrow keys.
import { all, announce } from "./dom.ts";
import { withUnit } from "./numbers.ts";
import type { Units } from "../data/report.ts";
import type { Tooltip } from "./tooltip.ts";

/** How near the pointer must be to a point, in pixels. */
const NEAR = 24;

function linesOf(point: Element, units: Units): string[] {
    const moment = units.force && units.length ? `${units.force}\u00b7${units.length}` : null;
    const curve = point.closest(".plastic") ? "Plastic" : "Elastic";
    return [
        `${curve} curve`,
        `N = ${withUnit(point.getAttribute("data-axial") ?? "", units.force)}`,
        `M = ${withUnit(point.getAttribute("data-moment") ?? "", moment)}`,
    ];
}

function middleOf(point: Element): [number, number] {
    const box = point.getBoundingClientRect();
    return [box.left + box.width / 2, box.top + box.height / 2];
}

function wireCurve(figure: HTMLElement, units: Units, tooltip: Tooltip): void {
    const points = [...figure.querySelectorAll("circle.point")];
    if (points.length === 0) return;
    // The browser's own box of text would appear beside ours.
    for (const point of points) point.querySelector("title")?.remove();
    let current: Element | null = null;
    const mark = (point: Element | null): void => {
        current?.classList.remove("current");
        current = point;
        if (!point) return tooltip.hide();
        point.classList.add("current");
        tooltip.show(linesOf(point, units), ...middleOf(point));
    };
    figure.addEventListener("pointermove", (event) => {
        let nearest: Element | null = null;
        let least = NEAR;
        for (const point of points) {
            const [x, y] = middleOf(point);
            const distance = Math.hypot(event.clientX - x, event.clientY - y);
            if (distance < least) [nearest, least] = [point, distance];
        }
        if (nearest !== current) mark(nearest);
    });
    figure.addEventListener("pointerleave", () => mark(null));
    figure.tabIndex = 0;
    figure.addEventListener("keydown", (event) => {
        const step = { ArrowRight: 1, ArrowDown: 1, ArrowLeft: -1, ArrowUp: -1 }[event.key];
        if (event.key === "Escape" && current) {
            event.preventDefault();
            mark(null);
        }
        if (step === undefined) return;
        event.preventDefault();
        const at = current ? points.indexOf(current) + step : step > 0 ? 0 : points.length - 1;
        const point = points[(at + points.length) % points.length];
        mark(point);
        announce(linesOf(point, units).join(", "));
    });
    figure.addEventListener("blur", () => mark(null));
}

/** Wires every diagram of the page. */
export function wireCurves(units: Units, tooltip: Tooltip): void {
    for (const figure of all("figure.curve")) wireCurve(figure, units, tooltip);
}
