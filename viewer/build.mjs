// Bundles the page and writes it as a C++ source: build.mjs FOLDER, which has the packages and takes the result.

import { createHash } from "node:crypto";
import { readFileSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { dirname, join, resolve } from "node:path";
import { fileURLToPath, pathToFileURL } from "node:url";

const source = join(dirname(fileURLToPath(import.meta.url)), "src");
const folder = resolve(process.argv[2]);
const require = createRequire(join(folder, "package.json"));
const esbuild = await import(pathToFileURL(require.resolve("esbuild")).href);

const bundle = (file, more) =>
  esbuild.buildSync({
    entryPoints: [join(source, file)],
    bundle: true,
    minify: true,
    write: false,
    charset: "utf8",
    target: "es2022",
    legalComments: "none",
    nodePaths: [join(folder, "node_modules")],
    ...more,
  }).outputFiles[0].text;

// What the licenses of the packages ask for: their text goes along.
const licenses = ["three", "three-mesh-bvh"]
  .map((name) => `${name}\n\n${readFileSync(join(folder, "node_modules", name, "LICENSE"), "utf8").trim()}`)
  .join("\n\n")
  .replaceAll("--", "- -");

const script = bundle("main.ts", { format: "iife" });
const style = bundle("page.css", {});
const hash = (text) => `'sha256-${createHash("sha256").update(text).digest("base64")}'`;
const policy =
  `default-src 'none'; script-src ${hash(script)}; style-src ${hash(style)}; img-src data: blob:; ` +
  "base-uri 'none'; form-action 'none'";
const [head, tail] = readFileSync(join(source, "page.html"), "utf8")
  .replace("LICENSES", () => licenses)
  .replace("POLICY", () => policy)
  .replace("STYLE", () => style)
  .replace("SCRIPT", () => script)
  .split("DATA\n");

// Pieces that any compiler takes as one literal.
const literal = (text) => {
  const bytes = [...Buffer.from(text, "utf8")];
  const character = (byte) =>
    byte === 0x22 || byte === 0x5c || byte === 0x3f
      ? `\\${String.fromCharCode(byte)}`
      : byte >= 0x20 && byte < 0x7f
        ? String.fromCharCode(byte)
        : `\\${byte.toString(8).padStart(3, "0")}`;
  const pieces = [];
  for (let i = 0; i < bytes.length; i += 2000) {
    pieces.push(`    "${bytes.slice(i, i + 2000).map(character).join("")}"`);
  }
  return pieces.join("\n");
};

writeFileSync(
  join(folder, "ReportPage.cpp"),
  `// Made from viewer/.

#include "nas2zdt/report/Page.h"

namespace {

constexpr char HEAD[] =
${literal(head)};

constexpr char TAIL[] =
${literal(tail)};

constexpr T_PAGE_D PAGE = {{HEAD, sizeof HEAD - 1}, {TAIL, sizeof TAIL - 1}};

} // namespace

const T_PAGE_D* GetReportPage() {
    return &PAGE;
}
`,
);
