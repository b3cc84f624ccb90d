// Bundles the viewer into dist: viewer.js (with 3D), viewer-small.js (without three.js), viewer.css, licences.txt.
import { build } from "esbuild";
import { mkdir, readFile, writeFile } from "node:fs/promises";
import path from "node:path";
import { fileURLToPath } from "node:url";

const here = path.dirname(fileURLToPath(import.meta.url));
const dist = path.join(here, "dist");

/** The names of the packages that a bundle contains, from the paths of its inputs. */
function packagesIn(metafile) {
    const names = Object.keys(metafile.inputs)
        .map((input) => /node_modules\/((?:@[^/]+\/)?[^/]+)\//.exec(input)?.[1])
        .filter((name) => name !== undefined);
    return [...new Set(names)].sort();
}

/** Name, version and licence text of a package; an error when it has no licence text. */
async function licenceOf(name) {
    const folder = path.join(here, "node_modules", name);
    const about = JSON.parse(await readFile(path.join(folder, "package.json"), "utf8"));
    const text = await readFile(path.join(folder, "LICENSE"), "utf8");
    return `${name} ${about.version} (${about.license})\n\n${text.trim()}\n`;
}

const common = {
    absWorkingDir: here,
    bundle: true,
    minify: true,
    charset: "ascii",
    legalComments: "none",
    target: ["chrome100", "firefox100", "safari15.4"],
    metafile: true,
    write: false,
    logLevel: "warning",
};

/** A bundle as text, headed by the licences of what is inside. Fails when the text could end a script element. */
async function script(entry) {
    const result = await build({ ...common, entryPoints: [entry], format: "iife" });
    const licences = await Promise.all(packagesIn(result.metafile).map(licenceOf));
    const head = licences.map((text) => `/*!\n${text}*/\n`).join("");
    const text = head + result.outputFiles[0].text;
    if (/<\/script|<!--/i.test(text)) throw new Error(`${entry}: the bundle could end its script element`);
    return { text, licences };
}

const withScene = await script("src/main.ts");
const small = await script("src/small.ts");
const style = await build({ ...common, entryPoints: ["src/viewer.css"] });
if (small.licences.length > 0) throw new Error("viewer-small.js contains a package");
if (/<\/style|@import|url\(/i.test(style.outputFiles[0].text)) throw new Error("viewer.css fetches something, or could end its element");

await mkdir(dist, { recursive: true });
await writeFile(path.join(dist, "viewer.js"), withScene.text);
await writeFile(path.join(dist, "viewer-small.js"), small.text);
await writeFile(path.join(dist, "viewer.css"), style.outputFiles[0].text);
await writeFile(path.join(dist, "licences.txt"), withScene.licences.join("\n"));
