// One tab stop for many items: the arrows move between them.

interface Roving {
    readonly selector: string;
    /** Told when an item gets the focus. */
    readonly onFocus?: (item: HTMLElement) => void;
}

const STEPS: Readonly<Record<string, number>> = { ArrowUp: -1, ArrowDown: 1, PageUp: -15, PageDown: 15, Home: -Infinity, End: Infinity };

/** The item that a step from another leads to: the last one there when the way ends. Hidden items are passed over. */
function itemAt(items: readonly HTMLElement[], from: number, step: number): HTMLElement | undefined {
    const visible = items.filter((item, index) => !item.hidden || index === from);
    const place = visible.indexOf(items[from]) + step;
    return visible[Math.min(Math.max(place, 0), visible.length - 1)];
}

/** Makes the items of a container one tab stop. Returns a function that puts the stop back to the first visible item. */
export function makeRoving(container: HTMLElement, { selector, onFocus }: Roving): () => void {
    let current: HTMLElement | null = null;
    const stopAt = (item: HTMLElement | null): void => {
        if (current) current.tabIndex = -1;
        current = item;
        if (current) current.tabIndex = 0;
    };
    const reset = (): void => {
        if (current && !current.hidden && container.contains(current)) return;
        stopAt([...container.querySelectorAll<HTMLElement>(selector)].find((item) => !item.hidden) ?? null);
    };
    container.addEventListener("focusin", (event) => {
        if (!(event.target instanceof HTMLElement) || !event.target.matches(selector)) return;
        if (event.target !== current) stopAt(event.target);
        onFocus?.(event.target);
    });
    container.addEventListener("mousedown", (event) => {
        // A click takes the stop along, so that the arrows go on from there.
        const item = event.target instanceof Element ? event.target.closest<HTMLElement>(selector) : null;
        if (item) stopAt(item);
    });
    container.addEventListener("keydown", (event) => {
        const step = STEPS[event.key];
        if (step === undefined || event.ctrlKey || event.altKey || event.metaKey) return;
        if (!(event.target instanceof HTMLElement) || !event.target.matches(selector)) return;
        const items = [...container.querySelectorAll<HTMLElement>(selector)];
        const next = itemAt(items, items.indexOf(event.target), step);
        event.preventDefault();
        if (!next || next === event.target) return;
        stopAt(next);
        next.focus();
    });
    reset();
    return reset;
}
