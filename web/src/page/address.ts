// Keeps view and selection in the address of the page, and takes them from it.
import { formatFragment, isStateFragment, parseFragment } from "./fragment.ts";
import { numberIn, byId } from "./dom.ts";
import type { Store } from "./state.ts";

/** Browsers refuse an address that changes too often. */
const PAUSE = 300;

const fragmentNow = (): string => location.hash.slice(1);

/** Takes the state from the address at once, and from then on keeps both in step. */
export function keepAddress(store: Store): void {
    let written = fragmentNow();
    let waiting = false;

    const read = (): void => {
        const fragment = fragmentNow();
        if (isStateFragment(fragment)) store.set(parseFragment(fragment));
        else if (fragment.startsWith("pile-")) {
            const pile = numberIn(byId(fragment), "data-pile");
            if (pile !== null) store.set({ pile, element: null });
        }
    };
    const write = (): void => {
        waiting = false;
        const fragment = formatFragment(store.get());
        if (fragment === written || (fragment === "" && !isStateFragment(fragmentNow()))) return;
        try {
            history.replaceState(null, "", fragment === "" ? location.pathname + location.search : `#${fragment}`);
            written = fragment;
        } catch {
            // Refused: the page works without it.
        }
    };
    read();
    store.listen(() => {
        if (waiting) return;
        waiting = true;
        setTimeout(write, PAUSE);
    });
    addEventListener("hashchange", () => {
        written = fragmentNow();
        read();
    });
}
