// Makes and finds elements. Texts go in as text nodes only: whatever a deck holds is data.

interface Options {
    readonly class?: string;
    readonly text?: string;
    readonly attributes?: Readonly<Record<string, string>>;
}

/** A new element with its class, attributes, text and children. */
export function make<K extends keyof HTMLElementTagNameMap>(
    tag: K,
    options: Options = {},
    ...children: readonly Node[]
): HTMLElementTagNameMap[K] {
    const element = document.createElement(tag);
    if (options.class) element.className = options.class;
    if (options.text !== undefined) element.textContent = options.text;
    for (const [name, value] of Object.entries(options.attributes ?? {})) element.setAttribute(name, value);
    element.append(...children);
    return element;
}

export const byId = (id: string): HTMLElement | null => document.getElementById(id);

/** All elements of a selector below a root. */
export const all = <E extends Element = HTMLElement>(selector: string, root: ParentNode = document): E[] => [
    ...root.querySelectorAll<E>(selector),
];

/** The nearest element around an event's target that a selector names. */
export function around(event: Event, selector: string): Element | null {
    return event.target instanceof Element ? event.target.closest(selector) : null;
}

/** The whole number of a data attribute; null when there is none. */
export function numberIn(element: Element | null, attribute: string): number | null {
    const text = element?.getAttribute(attribute);
    return text && /^\d+$/.test(text) ? Number(text) : null;
}

let live: HTMLElement | null = null;
let fading: ReturnType<typeof setTimeout> | undefined;

/** How long a message stays for those who see it, in milliseconds. */
const MESSAGE_STAYS = 4000;

function say(text: string, seen: boolean): void {
    if (!live) {
        live = make("div", { class: "live", attributes: { role: "status" } });
        document.body.append(live);
    }
    live.textContent = text;
    live.classList.toggle("visible", seen);
    clearTimeout(fading);
    if (seen) fading = setTimeout(() => live?.classList.remove("visible"), MESSAGE_STAYS);
}

/** Says something to those who do not see the page: the others see it already. */
export const announce = (text: string): void => say(text, false);

/** Says something to everyone; it stays in the corner for a moment. */
export const tell = (text: string): void => say(text, true);

/** Scrolls an element into the middle of a scrolling box when it is outside of it. The page itself stays where it is. */
export function scrollWithin(box: HTMLElement, element: Element): void {
    const outer = box.getBoundingClientRect();
    const inner = element.getBoundingClientRect();
    const head = box.querySelector("thead")?.getBoundingClientRect().height ?? 0;
    if (inner.top >= outer.top + head && inner.bottom <= outer.bottom) return;
    box.scrollTop += inner.top - outer.top - (box.clientHeight - inner.height) / 2;
}
