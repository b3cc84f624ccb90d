// Runs the unit tests, or with the argument "browser" or "reports" those that drive a browser, under Node's test runner.
import { build } from "esbuild";
import { spawnSync } from "node:child_process";
import { readdirSync, rmSync } from "node:fs";
import path from "node:path";
import { fileURLToPath } from "node:url";

const here = path.dirname(fileURLToPath(import.meta.url));

/** Bundles the TypeScript of the unit tests for Node and gives the files to run. */
async function unitTests() {
    const sources = readdirSync(path.join(here, "unit")).filter((name) => name.endsWith(".test.ts")).sort();
    const outdir = path.join(here, "..", "build", "unit");
    rmSync(outdir, { recursive: true, force: true });
    await build({
        entryPoints: sources.map((name) => path.join(here, "unit", name)),
        bundle: true, platform: "node", format: "esm", target: "node18", sourcemap: "inline",
        outdir, outExtension: { ".js": ".mjs" }, logLevel: "warning",
    });
    return sources.map((name) => path.join(outdir, name.replace(/\.ts$/, ".mjs")));
}

function testsIn(name) {
    const folder = path.join(here, name);
    return readdirSync(folder).filter((name) => name.endsWith(".test.mjs")).sort().map((name) => path.join(folder, name));
}

const files = process.argv[2] ? testsIn(process.argv[2]) : await unitTests();
if (files.length === 0) throw new Error("no tests found");
const only = process.argv.slice(3);
const run = spawnSync(process.execPath, ["--test", "--test-reporter=spec", ...only, ...files], { stdio: "inherit" });
process.exit(run.status ?? 1);
