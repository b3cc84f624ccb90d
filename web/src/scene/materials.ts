// The few materials of the view: shaded solids, outlines of constant width, dots at nodes. Colours come out as they went in.
import { BackSide, Color, DoubleSide, FrontSide, ShaderMaterial, type IUniform } from "three";
import type { Rgb } from "../colour/palette.ts";

/** What all materials share: the depth above which nothing is drawn, and the size of a pixel. */
export interface Shared {
    readonly cut: IUniform<number>;
    /** The length of a pixel at distance 1, or everywhere when the rays are parallel. */
    readonly pixel: IUniform<number>;
    readonly parallel: IUniform<number>;
}

export const NO_CUT = -1e30;

export const makeShared = (): Shared => ({ cut: { value: NO_CUT }, pixel: { value: 1 }, parallel: { value: 0 } });

// The numbers are sRGB and are written as such: the legend and the picture then agree.
export const colourOf = (rgb: Rgb): Color => {
    const colour = new Color();
    [colour.r, colour.g, colour.b] = [rgb[0] / 255, rgb[1] / 255, rgb[2] / 255];
    return colour;
};

const SOLID_VERTEX = `
attribute vec4 tint;
uniform vec3 colour;
uniform float ownTint;
varying vec3 vColour;
varying vec3 vNormal;
varying float vDepth;
void main() {
    vColour = mix(colour, tint.rgb, ownTint);
    vNormal = normalMatrix * normal;
    vDepth = position.z;
    gl_Position = projectionMatrix * modelViewMatrix * vec4(position, 1.0);
}`;

const SOLID_FRAGMENT = `
uniform float cut;
uniform float opacity;
uniform float flatness;
varying vec3 vColour;
varying vec3 vNormal;
varying float vDepth;
void main() {
    if (vDepth < cut) discard;
    vec3 n = normalize(vNormal);
    float inner = gl_FrontFacing ? 1.0 : 0.45;
    float light = max(dot(gl_FrontFacing ? n : -n, normalize(vec3(-0.35, 0.5, 0.9))), 0.0);
    gl_FragColor = vec4(vColour * mix((0.5 + 0.55 * light) * inner, 1.0, flatness), opacity);
}`;

interface SolidOptions {
    /** Takes the colours of the vertices instead of one colour. */
    readonly tinted?: boolean;
    readonly opacity?: number;
    /** 1 for a colour without shade. */
    readonly flatness?: number;
    readonly depthTest?: boolean;
    readonly depthWrite?: boolean;
    readonly bothSides?: boolean;
    /** Cut away above the depth of the section. */
    readonly isCut?: boolean;
    /** Drawn as if a little farther, so that it does not flicker with what is in the same place. */
    readonly behind?: boolean;
}

export function solidMaterial(shared: Shared, colour: Rgb, options: SolidOptions = {}): ShaderMaterial {
    const opacity = options.opacity ?? 1;
    return new ShaderMaterial({
        vertexShader: SOLID_VERTEX,
        fragmentShader: SOLID_FRAGMENT,
        uniforms: {
            colour: { value: colourOf(colour) },
            ownTint: { value: options.tinted ? 1 : 0 },
            opacity: { value: opacity },
            flatness: { value: options.flatness ?? 0 },
            cut: options.isCut === false ? { value: NO_CUT } : shared.cut,
        },
        side: options.bothSides ? DoubleSide : FrontSide,
        transparent: opacity < 1,
        depthTest: options.depthTest ?? true,
        depthWrite: options.depthWrite ?? opacity === 1,
        polygonOffset: options.behind ?? false,
        polygonOffsetFactor: 2,
        polygonOffsetUnits: 2,
    });
}

const PLAIN_FRAGMENT = `
uniform float cut;
uniform vec3 colour;
varying float vDepth;
void main() {
    if (vDepth < cut) discard;
    gl_FragColor = vec4(colour, 1.0);
}`;

/** Thin lines. */
export function lineMaterial(shared: Shared, colour: Rgb): ShaderMaterial {
    return new ShaderMaterial({
        vertexShader: `
varying float vDepth;
void main() {
    vDepth = position.z;
    gl_Position = projectionMatrix * modelViewMatrix * vec4(position, 1.0);
}`,
        fragmentShader: PLAIN_FRAGMENT,
        uniforms: { colour: { value: colourOf(colour) }, cut: shared.cut },
    });
}

const WIDEN = `
uniform float pixel;
uniform float parallel;
float pixelHere(vec4 place) { return pixel * mix(-place.z, 1.0, parallel); }`;

/** The back of a hull that is some pixels wider than the tube: what remains of it beside the tube is an outline. */
export function outlineMaterial(shared: Shared, colour: Rgb, pixels: number): ShaderMaterial {
    return new ShaderMaterial({
        vertexShader: `${WIDEN}
varying float vDepth;
void main() {
    vDepth = position.z;
    vec4 place = modelViewMatrix * vec4(position, 1.0);
    place.xyz += normalize(normalMatrix * normal) * pixelHere(place) * ${pixels.toFixed(1)};
    gl_Position = projectionMatrix * place;
}`,
        fragmentShader: PLAIN_FRAGMENT,
        uniforms: { colour: { value: colourOf(colour) }, cut: shared.cut, pixel: shared.pixel, parallel: shared.parallel },
        side: BackSide,
    });
}

/** Dots at nodes. They lie on the axis of the tube: each is drawn as far towards the eye as the tube is thick. */
export function dotMaterial(shared: Shared, colour: Rgb, pixels: number): ShaderMaterial {
    return new ShaderMaterial({
        vertexShader: `
attribute float lift;
uniform float parallel;
varying float vDepth;
void main() {
    vDepth = position.z;
    vec4 place = modelViewMatrix * vec4(position, 1.0);
    vec3 towards = mix(normalize(-place.xyz), vec3(0.0, 0.0, 1.0), parallel);
    place.xyz += towards * lift;
    gl_Position = projectionMatrix * place;
    gl_PointSize = ${pixels.toFixed(1)};
}`,
        fragmentShader: `
uniform float cut;
uniform vec3 colour;
varying float vDepth;
void main() {
    if (vDepth < cut || length(gl_PointCoord - 0.5) > 0.5) discard;
    gl_FragColor = vec4(colour, 1.0);
}`,
        uniforms: { colour: { value: colourOf(colour) }, cut: shared.cut, parallel: shared.parallel },
    });
}
