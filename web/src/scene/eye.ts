// The camera of three.js for an eye's place and a projection.
import { OrthographicCamera, PerspectiveCamera, Raycaster, Vector2, type Camera } from "three";
import type { Ray } from "../geometry/pick.ts";
import { add, length, sub, type Vec } from "../geometry/vec.ts";
import type { Orbit } from "../page/state.ts";
import type { Shared } from "./materials.ts";
import { axesOf, eyeOf, FIELD_OF_VIEW, pixelAt } from "./orbit.ts";

export interface Eye {
    /** The camera for a picture of that size; radius is that of the ball about middle that holds everything. */
    readonly look: (orbit: Orbit, trueProjection: boolean, width: number, height: number, middle: Vec, radius: number) => Camera;
    /** The ray through a point of the picture that was looked at last, in the deck's coordinates. */
    readonly rayAt: (x: number, y: number) => Ray;
}

export function makeEye(origin: Vec, shared: Shared): Eye {
    const perspective = new PerspectiveCamera(FIELD_OF_VIEW);
    const parallel = new OrthographicCamera();
    const caster = new Raycaster();
    let camera: PerspectiveCamera | OrthographicCamera = perspective;
    let size = [1, 1];
    return {
        look: (orbit, trueProjection, width, height, middle, radius) => {
            camera = trueProjection ? parallel : perspective;
            size = [width, height];
            const eye = sub(eyeOf(orbit), origin);
            const reach = length(sub(eyeOf(orbit), middle)) + radius;
            if (trueProjection) {
                // The eye of parallel rays stands wherever it does: what is behind it is seen too.
                const half = (pixelAt(orbit, height) * height) / 2;
                parallel.top = half;
                parallel.bottom = -half;
                parallel.right = (half * width) / height;
                parallel.left = -parallel.right;
                parallel.near = -reach;
                parallel.far = reach;
            } else {
                perspective.aspect = width / height;
                perspective.near = Math.max(reach - 2 * radius, reach / 2000);
                perspective.far = reach;
            }
            const up = axesOf(orbit).up;
            camera.position.set(...eye);
            camera.up.set(...up);
            const target = sub(orbit.target, origin);
            camera.lookAt(target[0], target[1], target[2]);
            camera.updateProjectionMatrix();
            camera.updateMatrixWorld();
            shared.parallel.value = trueProjection ? 1 : 0;
            shared.pixel.value = pixelAt(orbit, height) / (trueProjection ? 1 : orbit.distance);
            return camera;
        },
        rayAt: (x, y) => {
            caster.setFromCamera(new Vector2((x / size[0]) * 2 - 1, 1 - (y / size[1]) * 2), camera);
            const { origin: from, direction } = caster.ray;
            return { origin: add([from.x, from.y, from.z], origin), direction: [direction.x, direction.y, direction.z] };
        },
    };
}
