// Selects a pile by click or key wherever the page shows it, and marks it there.
import { all, around, byId, numberIn, scrollWithin } from "./dom.ts";
import type { Store } from "./state.ts";

const OWNERS = "tr[data-pile], g.pile[data-pile], #deck-lines > li[data-pile]";

/** Everything of the page that shows a pile, by its number. */
function indexPiles(): Map<number, Element[]> {
    const index = new Map<number, Element[]>();
    for (const element of all<Element>(OWNERS)) {
        const pile = numberIn(element, "data-pile");
        if (pile === null) continue;
        const known = index.get(pile);
        if (known) known.push(element);
        else index.set(pile, [element]);
    }
    for (const strip of all<Element>("figure.strip[data-piles]"))
        for (const word of (strip.getAttribute("data-piles") ?? "").split(/\s+/))
            if (/^\d+$/.test(word)) index.set(Number(word), [...(index.get(Number(word)) ?? []), strip]);
    return index;
}

/** A click that ends a selection of text, or is meant for a link or a control, selects no pile. */
function isForSomethingElse(event: Event): boolean {
    if (around(event, "a, button, input, select, textarea, summary, label")) return true;
    const selected = getSelection();
    return selected !== null && !selected.isCollapsed;
}

/** Wires the selection of the whole page to the store. */
export function wireSelection(store: Store): void {
    let index: Map<number, Element[]> | null = null;
    const elementsOf = (pile: number | null): Element[] => {
        index ??= indexPiles();
        return pile === null ? [] : (index.get(pile) ?? []);
    };
    const mark = (element: Element, on: boolean): void => {
        element.classList.toggle("selected", on);
        if (element instanceof HTMLTableRowElement) {
            if (on) element.setAttribute("aria-selected", "true");
            else element.removeAttribute("aria-selected");
        } else if (element instanceof HTMLLIElement) {
            if (on) element.setAttribute("aria-current", "true");
            else element.removeAttribute("aria-current");
        }
    };
    const showFirsts = (elements: readonly Element[]): void => {
        const seen = new Set<Element>();
        for (const element of elements) {
            const box = element.closest<HTMLElement>(".scroll-box");
            if (!box || seen.has(box)) continue;
            seen.add(box);
            // A box in which the reader has just chosen, or reads with the keyboard, stays as it is.
            if (!box.contains(document.activeElement)) scrollWithin(box, element);
        }
    };
    const apply = (now: number | null, before: number | null): void => {
        for (const element of elementsOf(before)) mark(element, false);
        const elements = elementsOf(now);
        for (const element of elements) mark(element, true);
        showFirsts(elements);
    };

    document.addEventListener("click", (event) => {
        const owner = around(event, OWNERS);
        const pile = numberIn(owner, "data-pile");
        if (pile === null || isForSomethingElse(event)) return;
        store.set({ pile, element: null });
    });
    document.addEventListener("keydown", (event) => {
        if (event.key !== "Enter" && event.key !== " ") return;
        if (!(event.target instanceof Element) || !event.target.matches(OWNERS)) return;
        const pile = numberIn(event.target, "data-pile");
        if (pile === null) return;
        event.preventDefault();
        store.set({ pile, element: null });
    });
    document.addEventListener("keydown", (event) => {
        if (event.key === "Escape" && !event.defaultPrevented) store.set({ pile: null, element: null });
    });
    store.listen((now, before) => {
        if (now.pile !== before.pile) apply(now.pile, before.pile);
    });
    if (store.get().pile !== null) apply(store.get().pile, null);
    byId("main")?.classList.add("with-selection");
}
