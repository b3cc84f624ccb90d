// A small box of text beside the pointer or an element.
import { make } from "./dom.ts";

export interface Tooltip {
    readonly show: (lines: readonly string[], x: number, y: number) => void;
    readonly showBeside: (lines: readonly string[], element: Element) => void;
    readonly hide: () => void;
}

/** Makes a box that stays inside the window. It is hidden from readers of the screen: they hear the text otherwise. */
export function makeTooltip(): Tooltip {
    const box = make("div", { class: "tooltip", attributes: { "aria-hidden": "true" } });
    box.hidden = true;
    document.body.append(box);
    const show: Tooltip["show"] = (lines, x, y) => {
        box.replaceChildren(...lines.map((line) => make("div", { text: line })));
        box.hidden = false;
        const { width, height } = box.getBoundingClientRect();
        const left = Math.max(4, Math.min(x + 14, innerWidth - width - 4));
        const below = y + 18;
        box.style.left = `${left}px`;
        box.style.top = `${below + height > innerHeight - 4 ? Math.max(4, y - height - 10) : below}px`;
    };
    return {
        show,
        showBeside: (lines, element) => {
            const { left, bottom } = element.getBoundingClientRect();
            show(lines, left - 14, bottom - 12);
        },
        hide: () => {
            box.hidden = true;
        },
    };
}
