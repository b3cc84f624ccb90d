// Tables that sort, filter, and copy as CSV.
import { copyText } from "./clipboard.ts";
import { columnNames, csvOf, safeText } from "./csv.ts";
import { all, announce, make, tell } from "./dom.ts";
import { passes, sortedOrder, type Cell, type Direction } from "./order.ts";
import { makeRoving } from "./roving.ts";

/** A table of fewer rows is seen whole: it needs no filter. */
const FEWEST_TO_FILTER = 6;

const cellOf = (cell: HTMLTableCellElement | undefined): Cell => {
    const text = cell?.textContent ?? "";
    const value = cell?.dataset["value"];
    return { text, value: value !== undefined && value !== "" && !Number.isNaN(Number(value)) ? Number(value) : null };
};

const rowsOf = (table: HTMLTableElement): HTMLTableRowElement[] => [...table.tBodies].flatMap((body) => [...body.rows]);

function namesOf(table: HTMLTableElement): string[] {
    const heading = [...(table.tHead?.rows ?? [])].map((row) => [...row.cells].map((cell) => ({
        text: (cell.textContent ?? "").trim().replace(/\s+/g, " "), columns: cell.colSpan, rows: cell.rowSpan,
    })));
    return columnNames(heading);
}

/** The visible rows of a table as CSV: numbers to their last bit, texts as they are seen. */
export function tableAsCsv(table: HTMLTableElement): string {
    const rows = rowsOf(table).filter((row) => !row.hidden).map((row) =>
        [...row.cells].flatMap((cell) => {
            const text = cell.dataset["value"] ?? safeText((cell.textContent ?? "").trim());
            return [text, ...Array<string>(Math.max(0, cell.colSpan - 1)).fill("")];
        }));
    return csvOf([namesOf(table).map(safeText), ...rows]);
}

/** What a table is called where nothing around it is seen: its caption, or the heading above it. */
function titleOf(table: HTMLTableElement): string {
    const caption = table.caption?.textContent?.trim();
    if (caption) return caption;
    for (let at: Element | null = table; at && at.tagName !== "MAIN"; at = at.parentElement)
        for (let before = at.previousElementSibling; before; before = before.previousElementSibling)
            if (/^H[1-6]$/.test(before.tagName)) return (before.textContent ?? "").trim();
    return "Table";
}

function wireSorting(table: HTMLTableElement, original: readonly HTMLTableRowElement[]): void {
    const row = table.tHead?.rows[table.tHead.rows.length - 1];
    const body = table.tBodies[0];
    if (!row || !body || table.tBodies.length > 1) return;
    const columns = namesOf(table).length;
    const lastRow = [...row.cells];
    // With cells that reach down from a row above, the last row does not name each column: leave the order alone.
    if (lastRow.reduce((sum, cell) => sum + cell.colSpan, 0) !== columns) return;

    const sort = (heading: HTMLTableCellElement, column: number): void => {
        const before = heading.getAttribute("aria-sort");
        const next: Direction | null = before === "ascending" ? "descending" : before === "descending" ? null : "ascending";
        for (const other of lastRow) other.removeAttribute("aria-sort");
        if (next) heading.setAttribute("aria-sort", next);
        const order = next
            ? sortedOrder(original.map((line) => cellOf(line.cells[column])), next).map((index) => original[index])
            : original;
        body.append(...order);
        announce(next ? `Sorted by ${(heading.textContent ?? "").trim()}, ${next}` : "In the order of the deck");
    };
    let column = 0;
    for (const heading of lastRow) {
        const mine = column;
        column += heading.colSpan;
        if (heading.colSpan > 1 || (heading.textContent ?? "").trim() === "") continue;
        const button = make("button", { class: "sort", attributes: { type: "button" } });
        button.append(...heading.childNodes);
        heading.append(button);
        button.addEventListener("click", () => sort(heading, mine));
    }
}

/** The box in which a table scrolls: the page's own, or a new one. */
function boxOf(table: HTMLTableElement, title: string): HTMLElement {
    const own = table.closest<HTMLElement>(".table-wrap");
    if (own) {
        own.classList.add("scroll-box");
        return own;
    }
    const box = make("div", { class: "scroll-box", attributes: { role: "region", "aria-label": title, tabindex: "0" } });
    table.before(box);
    box.append(table);
    return box;
}

function wireTable(table: HTMLTableElement): void {
    const original = rowsOf(table);
    if (original.length === 0) return;
    const title = titleOf(table);
    const count = make("span", { class: "count", text: `${original.length} rows` });
    const bar = make("div", { class: "table-tools" });
    boxOf(table, title).before(bar);
    wireSorting(table, original);
    const resetStop = table.querySelector("tr[data-pile]") && table.tBodies[0]
        ? makeRoving(table.tBodies[0], { selector: "tr[data-pile]" })
        : (): void => undefined;

    if (original.length >= FEWEST_TO_FILTER) {
        const input = make("input", {
            attributes: { type: "search", placeholder: "Filter", title: "Words that a row must have; =12 finds a whole cell", "aria-label": `Filter: ${title}` },
        });
        input.addEventListener("input", () => {
            let left = 0;
            for (const row of original) {
                row.hidden = !passes([...row.cells].map(cellOf), input.value);
                if (!row.hidden) ++left;
            }
            count.textContent = left === original.length ? `${left} rows` : `${left} of ${original.length} rows`;
            announce(count.textContent);
            resetStop();
        });
        bar.append(input);
    }
    const copy = make("button", { text: "Copy as CSV", attributes: { type: "button", "aria-label": `Copy as CSV: ${title}` } });
    copy.addEventListener("click", () => {
        const rows = original.filter((row) => !row.hidden).length;
        void copyText(tableAsCsv(table)).then((done) =>
            tell(done ? `Copied ${rows} rows as CSV` : "The browser refused to copy; select the table and copy it by hand"));
    });
    bar.append(copy, count);
}

/** Wires every table of the page. */
export function wireTables(): void {
    for (const table of all<HTMLTableElement>("table.data")) wireTable(table);
}
