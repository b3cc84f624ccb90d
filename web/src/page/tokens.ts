// The numbers of a line of the deck, and which item of its record each of them is.
import type { RecordItem, RecordKind } from "../data/report.ts";

export interface Token {
    readonly start: number;
    readonly end: number;
    /** The item of the record, from 1. */
    readonly item: number;
}

const NUMBER = /^[-+]?(\d+\.?\d*|\.\d+)([eEdD][-+]?\d+)?$/;

/** The leading numbers of a line. What follows them is a remark, and is not explained. Blanks, commas and tabs part them. */
export function numbersOf(line: string, firstItem: number): Token[] {
    const tokens: Token[] = [];
    for (const match of line.matchAll(/[^\s,]+/g)) {
        if (!NUMBER.test(match[0])) break;
        tokens.push({ start: match.index, end: match.index + match[0].length, item: firstItem + tokens.length });
    }
    return tokens;
}

/** The description of an item; of those beyond the last, the one that repeats. Null for a number beyond the record. */
export function itemOf(record: RecordKind, item: number): RecordItem | null {
    const known = record.items.length;
    if (item <= known) return record.items[item - 1] ?? null;
    const repeat = Math.min(record.repeat ?? 1, known);
    return repeat > 0 ? record.items[known - repeat + ((item - known - 1) % repeat)] : null;
}

/** What a number of a record is, in words. */
export function explain(record: RecordKind, item: number): string | null {
    const description = itemOf(record, item);
    if (!description) return null;
    const unit = description.unit === "-" || description.unit === "" ? "" : `, ${description.unit}`;
    return `${record.title}, item ${item}: ${description.name}, ${description.meaning}${unit}`;
}
