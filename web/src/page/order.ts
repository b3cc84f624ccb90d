// The order of rows when a table is sorted, and whether a row passes the filter.

/** What a cell is sorted by: its number where it has one, else its text. */
export interface Cell {
    readonly text: string;
    readonly value: number | null;
}

export type Direction = "ascending" | "descending";

const words = new Intl.Collator("en", { numeric: true, sensitivity: "base" });

function compare(a: Cell, b: Cell): number {
    if (a.value !== null && b.value !== null) return a.value - b.value;
    if (a.value !== null) return -1;
    if (b.value !== null) return 1;
    return words.compare(a.text, b.text);
}

const isEmpty = (cell: Cell): boolean => cell.value === null && cell.text.trim() === "";

/** The indices of the cells in their new order. Equal cells keep theirs, and empty cells come last in both directions. */
export function sortedOrder(cells: readonly Cell[], direction: Direction): number[] {
    const sign = direction === "ascending" ? 1 : -1;
    return cells
        .map((_, index) => index)
        .sort((i, j) => {
            const [a, b] = [cells[i], cells[j]];
            if (isEmpty(a) !== isEmpty(b)) return isEmpty(a) ? 1 : -1;
            return sign * compare(a, b) || i - j;
        });
}

/** Whether a row has every word of the filter in one of its cells; a word that begins with = is a whole cell. */
export function passes(cells: readonly Cell[], filter: string): boolean {
    const asked = filter.toLowerCase().split(/\s+/).filter((word) => word !== "");
    return asked.every((word) => {
        const whole = word.startsWith("=") ? word.slice(1) : null;
        if (whole === null || whole === "") return cells.some((cell) => cell.text.toLowerCase().includes(word));
        const number = Number(whole);
        return cells.some((cell) => cell.text.trim().toLowerCase() === whole || (cell.value !== null && cell.value === number));
    });
}
