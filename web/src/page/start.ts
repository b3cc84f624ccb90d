// Starts everything that moves on the page. What a page does not have is passed over.
import { readReport, type Report } from "../data/report.ts";
import { keepAddress } from "./address.ts";
import { wireCurves } from "./curves.ts";
import { wireDeck } from "./deck.ts";
import { wireDetails } from "./details.ts";
import { all, byId } from "./dom.ts";
import { wireSelection } from "./selection.ts";
import { DEFAULTS, makeStore, type Store } from "./state.ts";
import { wireTables } from "./tables.ts";
import { makeTooltip, type Tooltip } from "./tooltip.ts";

/** Makes the 3D view in its place. Throws when it cannot. */
export type SceneMaker = (place: HTMLElement, report: Report, store: Store, tooltip: Tooltip) => void;

/** Shows one line in place of the 3D view: the page's own, about the browser, or another reason. */
export function withoutScene(reason?: string): void {
    const line = byId("no-3d");
    const scene = byId("scene");
    if (scene) scene.hidden = true;
    if (!line) return;
    if (reason) line.textContent = reason;
    line.hidden = false;
}

function reportOfPage(): Report | null {
    const text = byId("korvat-data")?.textContent;
    return text ? readReport(text) : null;
}

/** What scrolls sideways must be within reach of the keyboard. */
function reachScrolling(): void {
    for (const box of all("#log pre")) {
        box.tabIndex = 0;
        box.setAttribute("role", "region");
        box.setAttribute("aria-label", "Log of the run");
    }
}

/** Starts the page; makeScene is absent in the small viewer. */
export function startPage(makeScene: SceneMaker | null): void {
    document.documentElement.classList.add("script");
    let report: Report | null = null;
    let fault: string | undefined;
    try {
        report = reportOfPage();
    } catch (error) {
        fault = error instanceof Error ? error.message : String(error);
    }
    const store = makeStore(DEFAULTS);
    const tooltip = makeTooltip();
    keepAddress(store);
    const scene = byId("scene");
    if (scene && makeScene) {
        if (report?.group) makeScene(scene, report, store, tooltip);
        else withoutScene(fault ? `There is no 3D view: ${fault}.` : "There is no 3D view: the deck gave no geometry.");
    }
    if (report) wireDetails(report, store);
    wireTables();
    wireDeck(report?.records ?? {}, tooltip);
    wireCurves(report?.units ?? { force: null, length: null }, tooltip);
    reachScrolling();
    wireSelection(store);
}
