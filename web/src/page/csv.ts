// Tables as CSV.

/** A text that a spreadsheet would take for a formula gets a quote before it; numbers stay as they are. */
export function safeText(text: string): string {
    return /^[=+\-@\t\r]/.test(text) ? `'${text}` : text;
}

export function csvCell(text: string): string {
    return /[",\r\n]/.test(text) ? `"${text.replaceAll('"', '""')}"` : text;
}

/** Rows of cells as CSV, with the line ends of RFC 4180. */
export const csvOf = (rows: readonly (readonly string[])[]): string =>
    rows.map((row) => `${row.map(csvCell).join(",")}\r\n`).join("");

export interface HeadCell {
    readonly text: string;
    readonly columns: number;
    readonly rows: number;
}

/** The name of each column of a table whose heading has several rows: the texts above the column, from top to bottom. */
export function columnNames(heading: readonly (readonly HeadCell[])[]): string[] {
    const grid: string[][] = heading.map(() => []);
    heading.forEach((cells, row) => {
        let column = 0;
        for (const cell of cells) {
            while (grid[row][column] !== undefined) ++column;
            for (let down = 0; down < cell.rows && row + down < grid.length; ++down)
                for (let right = 0; right < cell.columns; ++right) grid[row + down][column + right] = down === 0 ? cell.text : "";
            column += cell.columns;
        }
    });
    const width = grid.reduce((most, row) => Math.max(most, row.length), 0);
    return Array.from({ length: width }, (_, column) =>
        grid.map((row) => row[column] ?? "").filter((text) => text !== "").join(" "));
}
