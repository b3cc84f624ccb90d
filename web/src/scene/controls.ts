// Turns what mouse, touch and keys do on the canvas into changes of the eye's place and of the selection.
import type { Orbit } from "../page/state.ts";
import { move, turn, zoom } from "./orbit.ts";

export interface Handlers {
    readonly orbit: () => Orbit;
    readonly setOrbit: (orbit: Orbit) => void;
    readonly extent: number;
    readonly point: (x: number, y: number) => void;
    readonly leave: () => void;
    readonly click: (x: number, y: number) => void;
    readonly fit: () => void;
    readonly stepPile: (by: 1 | -1) => void;
    readonly stepElement: (by: 1 | -1) => void;
    readonly deselect: () => void;
}

/** Pixels that a finger or a mouse may move between press and release for a click. */
const CLICK = 5;
const DEGREES_PER_PIXEL = 0.35;
const KEY_TURN = 10;
const KEY_MOVE = 40;

export function wireControls(canvas: HTMLCanvasElement, handlers: Handlers): void {
    const pressed = new Map<number, { x: number; y: number }>();
    let moved = 0;
    let button = 0;
    const inside = (event: MouseEvent): { x: number; y: number } => {
        const box = canvas.getBoundingClientRect();
        return { x: event.clientX - box.left, y: event.clientY - box.top };
    };
    const fromMiddle = ({ x, y }: { x: number; y: number }): [number, number] => [x - canvas.clientWidth / 2, y - canvas.clientHeight / 2];
    const zoomAt = (factor: number, place: { x: number; y: number }): void =>
        handlers.setOrbit(zoom(handlers.orbit(), factor, ...fromMiddle(place), canvas.clientHeight, handlers.extent));

    canvas.addEventListener("pointerdown", (event) => {
        if (pressed.size === 0) [moved, button] = [0, event.button];
        else moved = Infinity;
        pressed.set(event.pointerId, inside(event));
        canvas.setPointerCapture(event.pointerId);
        handlers.leave();
    });
    canvas.addEventListener("pointermove", (event) => {
        const now = inside(event);
        const before = pressed.get(event.pointerId);
        if (!before) { handlers.point(now.x, now.y); return; }
        const [right, down] = [now.x - before.x, now.y - before.y];
        moved += Math.abs(right) + Math.abs(down);
        if (pressed.size === 1 && moved <= CLICK) return;
        const other = [...pressed].find(([id]) => id !== event.pointerId)?.[1];
        pressed.set(event.pointerId, now);
        if (other) {
            // Two fingers: they zoom by their distance and move by half of what one of them moves.
            const ratio = Math.hypot(before.x - other.x, before.y - other.y) / Math.max(1, Math.hypot(now.x - other.x, now.y - other.y));
            const middle = { x: (now.x + other.x) / 2, y: (now.y + other.y) / 2 };
            handlers.setOrbit(move(handlers.orbit(), right / 2, down / 2, canvas.clientHeight));
            zoomAt(ratio, middle);
        } else if (button !== 0 || event.shiftKey) handlers.setOrbit(move(handlers.orbit(), right, down, canvas.clientHeight));
        else handlers.setOrbit(turn(handlers.orbit(), right * DEGREES_PER_PIXEL, down * DEGREES_PER_PIXEL));
    });
    const release = (event: PointerEvent): void => {
        const was = pressed.delete(event.pointerId);
        if (was && event.type === "pointerup" && moved <= CLICK && button === 0) {
            const { x, y } = inside(event);
            handlers.click(x, y);
        }
    };
    canvas.addEventListener("pointerup", release);
    canvas.addEventListener("pointercancel", release);
    canvas.addEventListener("pointerleave", () => handlers.leave());
    canvas.addEventListener("contextmenu", (event) => event.preventDefault());
    canvas.addEventListener("wheel", (event) => {
        // The wheel scrolls the page until the view has the focus.
        if (document.activeElement !== canvas && !event.ctrlKey) return;
        event.preventDefault();
        const notch = event.deltaMode === WheelEvent.DOM_DELTA_PIXEL ? 500 : 16;
        zoomAt(Math.exp(Math.max(-0.5, Math.min(0.5, event.deltaY / notch))), inside(event));
    }, { passive: false });

    canvas.addEventListener("keydown", (event) => {
        if (event.ctrlKey || event.altKey || event.metaKey) return;
        const height = canvas.clientHeight;
        const by = (right: number, down: number): void =>
            handlers.setOrbit(event.shiftKey
                ? move(handlers.orbit(), right * KEY_MOVE, down * KEY_MOVE, height)
                : turn(handlers.orbit(), right * KEY_TURN, down * KEY_TURN));
        const nearer = (factor: number): void => handlers.setOrbit(zoom(handlers.orbit(), factor, 0, 0, height, handlers.extent));
        const actions: Readonly<Record<string, () => void>> = {
            ArrowLeft: () => by(-1, 0),
            ArrowRight: () => by(1, 0),
            ArrowUp: () => by(0, -1),
            ArrowDown: () => by(0, 1),
            "+": () => nearer(0.85),
            "=": () => nearer(0.85),
            "-": () => nearer(1 / 0.85),
            Home: () => handlers.fit(),
            PageDown: () => (event.shiftKey ? handlers.stepElement(1) : handlers.stepPile(1)),
            PageUp: () => (event.shiftKey ? handlers.stepElement(-1) : handlers.stepPile(-1)),
            Escape: () => handlers.deselect(),
        };
        const action = actions[event.key];
        if (!action) return;
        event.preventDefault();
        action();
    });
}
