// The deck explains its numbers: name, meaning and unit, under the pointer and by the arrow keys.
import type { RecordKind } from "../data/report.ts";
import { announce, byId, make, numberIn } from "./dom.ts";
import { makeRoving } from "./roving.ts";
import { explain, numbersOf } from "./tokens.ts";
import type { Tooltip } from "./tooltip.ts";

type Records = Readonly<Record<string, RecordKind>>;

/** Wraps the numbers of a line in spans, once. A number that a finding's mark divides gets a span on either side. */
function wrapNumbers(line: HTMLElement): void {
    if (line.dataset["wrapped"]) return;
    line.dataset["wrapped"] = "yes";
    const tokens = numbersOf(line.textContent ?? "", numberIn(line, "data-i") ?? 1);
    const walker = document.createTreeWalker(line, NodeFilter.SHOW_TEXT);
    const texts: Text[] = [];
    for (let node = walker.nextNode(); node; node = walker.nextNode()) texts.push(node as Text);
    let offset = 0;
    for (const text of texts) {
        const begin = offset;
        const content = text.data;
        offset += content.length;
        const pieces: Node[] = [];
        let done = 0;
        for (const token of tokens) {
            const [from, to] = [Math.max(token.start - begin, 0), Math.min(token.end - begin, content.length)];
            if (from >= to) continue;
            if (from > done) pieces.push(document.createTextNode(content.slice(done, from)));
            pieces.push(make("span", { class: "number", text: content.slice(from, to), attributes: { "data-item": `${token.item}` } }));
            done = to;
        }
        if (pieces.length === 0) continue;
        if (done < content.length) pieces.push(document.createTextNode(content.slice(done)));
        text.replaceWith(...pieces);
    }
}

/** Wires the deck of the page, when it has one. */
export function wireDeck(records: Records, tooltip: Tooltip): void {
    const list = byId("deck-lines");
    if (!list) return;
    const box = make("div", { class: "scroll-box deck-box" });
    list.before(box);
    box.append(list);
    const help = make("p", {
        class: "help", text: "Point at a number, or go there with the arrow keys: what it is appears beside it. A click or Enter selects the pile of the line.",
    });
    box.before(help);

    const textFor = (line: HTMLElement, span: Element): string | null => {
        const record = records[line.dataset["r"] ?? ""];
        const item = numberIn(span, "data-item");
        return record && item !== null ? explain(record, item) : null;
    };
    const lineOf = (target: EventTarget | null): HTMLElement | null =>
        target instanceof Element ? target.closest<HTMLElement>("li[data-r]") : null;

    list.addEventListener("mouseover", (event) => {
        const line = lineOf(event.target);
        if (!line) { tooltip.hide(); return; }
        wrapNumbers(line);
        const span = event.target instanceof Element ? event.target.closest(".number") : null;
        const text = span ? textFor(line, span) : null;
        if (span && text) tooltip.showBeside([text], span);
        else tooltip.hide();
    });
    // The first move over a line wraps it under the pointer; the next one finds the number.
    list.addEventListener("mouseleave", () => tooltip.hide());

    let current: Element | null = null;
    const leave = (): void => {
        current?.classList.remove("current");
        current = null;
        tooltip.hide();
    };
    const step = (line: HTMLElement, by: 1 | -1): void => {
        wrapNumbers(line);
        const spans = [...line.querySelectorAll(".number")];
        const items = [...new Set(spans.map((span) => span.getAttribute("data-item")))];
        if (items.length === 0) return;
        const at = current && line.contains(current) ? items.indexOf(current.getAttribute("data-item")) + by : by > 0 ? 0 : items.length - 1;
        const next = items[Math.min(Math.max(at, 0), items.length - 1)];
        const span = spans.find((candidate) => candidate.getAttribute("data-item") === next);
        if (!span) return;
        leave();
        current = span;
        span.classList.add("current");
        const text = textFor(line, span);
        if (!text) return;
        tooltip.showBeside([text], span);
        announce(`${span.textContent ?? ""}: ${text}`);
    };
    list.addEventListener("keydown", (event) => {
        const line = lineOf(event.target);
        if (event.key === "Escape" && current) {
            event.preventDefault();
            leave();
        } else if (line && (event.key === "ArrowRight" || event.key === "ArrowLeft")) {
            event.preventDefault();
            step(line, event.key === "ArrowRight" ? 1 : -1);
        }
    });
    list.addEventListener("focusout", leave);
    makeRoving(list, { selector: "li" });
}
