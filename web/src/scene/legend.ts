// The legend below the view: colours with their values, and what the arrows mean.
import { cssOf, type Rgb } from "../colour/palette.ts";
import type { Colouring } from "../colour/scheme.ts";
import { make } from "../page/dom.ts";

function swatch(colour: Rgb): HTMLElement {
    const box = make("span", { class: "swatch" });
    box.style.backgroundColor = cssOf(colour);
    return box;
}

const entryOf = (label: string, colour: Rgb): HTMLElement => make("li", {}, swatch(colour), make("span", { text: label }));

/** Fills the legend's element. */
export function showLegend(place: HTMLElement, colouring: Colouring, notes: readonly { readonly text: string; readonly colour: Rgb }[]): void {
    const list = make("ul", { class: colouring.continuous ? "entries continuous" : "entries" },
        ...colouring.entries.map((entry) => entryOf(entry.label, entry.colour)));
    const parts: HTMLElement[] = [make("h3", { text: colouring.title }), list];
    if (notes.length > 0) parts.push(make("ul", { class: "entries notes" }, ...notes.map((note) => entryOf(note.text, note.colour))));
    place.replaceChildren(...parts);
    // A legend of many entries scrolls; what scrolls must be within reach of the keyboard.
    place.tabIndex = place.scrollHeight > place.clientHeight + 1 ? 0 : -1;
}
