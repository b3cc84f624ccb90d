// How numbers are written: short for reading, exact for tables and CSV.

/** Six significant digits at most, without idle zeros. */
export function shortNumber(value: number | null): string {
    if (value === null) return "not finite";
    if (!Number.isFinite(value)) return String(value);
    const rounded = Number(value.toPrecision(6));
    return String(rounded === 0 ? 0 : rounded);
}

/** The shortest text that reads back as the same number. */
export const exactNumber = (value: number): string => (Object.is(value, -0) ? "-0" : String(value));

/** A text with its unit behind it, when there is one. */
export const withUnit = (text: string, unit: string | null): string => (unit ? `${text}\u00a0${unit}` : text);
