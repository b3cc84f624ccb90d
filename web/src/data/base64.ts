// Reads the arrays of a report: base64 of little-endian typed arrays.

/** The bytes of a base64 text. A text that is not base64 is an error. */
export function bytesOf(text: string): Uint8Array {
    const binary = atob(text);
    const bytes = new Uint8Array(binary.length);
    for (let i = 0; i < binary.length; ++i) bytes[i] = binary.charCodeAt(i);
    return bytes;
}

function viewOf(text: string, size: number, count: number): DataView {
    const bytes = bytesOf(text);
    if (bytes.length !== size * count) throw new Error(`an array of ${bytes.length} bytes where ${size * count} are due`);
    return new DataView(bytes.buffer);
}

/** count numbers of eight bytes. Wrong length is an error. */
export function doublesOf(text: string, count: number): Float64Array {
    const view = viewOf(text, 8, count);
    const values = new Float64Array(count);
    for (let i = 0; i < count; ++i) values[i] = view.getFloat64(8 * i, true);
    return values;
}

/** count whole numbers of four bytes without sign. */
export function wholes32Of(text: string, count: number): Uint32Array {
    const view = viewOf(text, 4, count);
    const values = new Uint32Array(count);
    for (let i = 0; i < count; ++i) values[i] = view.getUint32(4 * i, true);
    return values;
}

/** count whole numbers of two bytes without sign. */
export function wholes16Of(text: string, count: number): Uint16Array {
    const view = viewOf(text, 2, count);
    const values = new Uint16Array(count);
    for (let i = 0; i < count; ++i) values[i] = view.getUint16(2 * i, true);
    return values;
}
