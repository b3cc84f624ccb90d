// The picture of the view on paper: the canvas and its labels, drawn flat before the page is printed.
import { cssOf } from "../colour/palette.ts";
import { make } from "../page/dom.ts";
import type { PlacedLabel } from "./label_layer.ts";
import { LIGHT } from "./theme.ts";

/** Keeps a flat copy beside the stage, made each time the page is printed. render draws the canvas and gives its labels. */
export function drawForPrint(stage: HTMLElement, canvas: HTMLCanvasElement, render: () => readonly PlacedLabel[]): void {
    const picture = make("canvas", { class: "print-picture", attributes: { "aria-hidden": "true" } });
    stage.after(picture);
    addEventListener("beforeprint", () => {
        const pen = picture.getContext("2d");
        if (!pen || canvas.clientWidth === 0) return;
        const labels = render();
        [picture.width, picture.height] = [canvas.width, canvas.height];
        const ratio = canvas.width / canvas.clientWidth;
        pen.fillStyle = "white";
        pen.fillRect(0, 0, picture.width, picture.height);
        pen.drawImage(canvas, 0, 0);
        pen.scale(ratio, ratio);
        pen.font = "13px system-ui, sans-serif";
        pen.textAlign = "center";
        pen.textBaseline = "middle";
        pen.lineWidth = 3;
        pen.strokeStyle = cssOf(LIGHT.halo);
        pen.fillStyle = cssOf(LIGHT.text);
        for (const { label, x, y } of labels) {
            pen.strokeText(label.text, x, y);
            pen.fillText(label.text, x, y);
        }
    });
}
