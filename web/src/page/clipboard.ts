// Copies a text. A page on disk may have no clipboard of its own: then the text is selected and copied as by hand.
import { make } from "./dom.ts";

function copyBySelection(text: string): boolean {
    const area = make("textarea", { class: "copy-area", attributes: { "aria-hidden": "true", tabindex: "-1" } });
    const before = document.activeElement;
    area.value = text;
    document.body.append(area);
    area.select();
    try {
        // Deprecated, and the only way on a page without the clipboard interface.
        // eslint-disable-next-line @typescript-eslint/no-deprecated
        return document.execCommand("copy");
    } catch {
        return false;
    } finally {
        area.remove();
        if (before instanceof HTMLElement) before.focus({ preventScroll: true });
    }
}

/** Whether the text is in the clipboard now. */
export async function copyText(text: string): Promise<boolean> {
    try {
        await navigator.clipboard.writeText(text);
        return true;
    } catch {
        return copyBySelection(text);
    }
}
