// What the linter holds: the strict rules with types for TypeScript, the recommended ones for the scripts of Node.
import js from "@eslint/js";
import path from "node:path";
import { fileURLToPath } from "node:url";
import tseslint from "typescript-eslint";

export default tseslint.config(
    { ignores: ["dist", "build", "node_modules"] },
    js.configs.recommended,
    {
        files: ["**/*.ts"],
        extends: [tseslint.configs.strictTypeChecked, tseslint.configs.stylisticTypeChecked],
        languageOptions: { parserOptions: { projectService: true, tsconfigRootDir: path.dirname(fileURLToPath(import.meta.url)) } },
        rules: {
            "@typescript-eslint/consistent-type-definitions": ["error", "interface"],
            "@typescript-eslint/no-confusing-void-expression": ["error", { ignoreArrowShorthand: true, ignoreVoidReturningFunctions: true }],
            // An array's element may be absent, which the type does not say: a check of it is not idle.
            "@typescript-eslint/no-unnecessary-condition": "off",
            "@typescript-eslint/no-non-null-assertion": "error",
            "@typescript-eslint/restrict-template-expressions": ["error", { allowNumber: true }],
            "no-restricted-properties": [
                "error",
                { property: "innerHTML", message: "A text of a deck is data: textContent." },
                { property: "outerHTML", message: "A text of a deck is data: textContent." },
                { property: "insertAdjacentHTML", message: "A text of a deck is data: textContent." },
            ],
            "no-restricted-globals": ["error", "fetch", "XMLHttpRequest", "WebSocket", "localStorage", "sessionStorage"],
            eqeqeq: "error",
        },
    },
    {
        files: ["tests/unit/**/*.ts"],
        // node:test's functions return promises that the runner keeps.
        rules: { "@typescript-eslint/no-floating-promises": "off" },
    },
    {
        files: ["**/*.mjs"],
        languageOptions: {
            globals: Object.fromEntries(
                ["process", "console", "Buffer", "URL", "performance", "document", "window", "location", "getComputedStyle",
                    "HTMLElement", "MouseEvent", "PointerEvent", "Event", "setTimeout", "requestAnimationFrame", "navigator"]
                    .map((name) => [name, "readonly"]),
            ),
        },
    },
);
