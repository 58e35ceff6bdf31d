// Runs the command on a deck and opens its report in a browser. NAS2ZDT is the command, CHROMIUM the browser, EXAMPLES
// the folder with example decks, VIEWER_PACKAGES the one with the viewer's packages.

import { execFileSync } from "node:child_process";
import { mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { pathToFileURL } from "node:url";
import { inflateSync } from "node:zlib";

const require = createRequire(join(process.env.VIEWER_PACKAGES, "package.json"));
const { default: puppeteer } = await import(pathToFileURL(require.resolve("puppeteer-core")).href);

export const folder = mkdtempSync(join(tmpdir(), "report-"));
process.on("exit", () => rmSync(folder, { recursive: true, force: true }));

export const SIZE = { width: 1400, height: 900 };

export function launch(...more) {
  return puppeteer.launch({
    executablePath: process.env.CHROMIUM,
    protocolTimeout: 300000,
    args: ["--headless=new", "--no-sandbox", "--use-gl=angle", "--use-angle=swiftshader", "--enable-unsafe-swiftshader", ...more],
  });
}

/** Writes a deck, text or bytes, and returns its path. */
export function writeDeck(name, content) {
  const path = join(folder, name);
  writeFileSync(path, content);
  return path;
}

let reports = 0;

/** Converts a deck and returns the path of its report, with what a run without one gives as JSON. */
export function report(deck, ...options) {
  const page = join(folder, `report${++reports}.html`);
  const common = ["-q", "--no-warnings", "-o", join(folder, "result.zdt")];
  execFileSync(process.env.NAS2ZDT, [...common, ...options, "--report", page, deck], { cwd: folder });
  const json = () => {
    try {
      return execFileSync(process.env.NAS2ZDT, [...common, ...options, "--account=json", "--check=json", deck], { cwd: folder, encoding: "utf8" });
    } catch (error) {
      return error.stdout; // the deck has errors
    }
  };
  return { page, result: () => JSON.parse(json()).decks[0] };
}

/** Opens a report. What the page complains of, and all that it asks the network for, is collected in .wrong. */
export async function open(browser, path) {
  const page = await browser.newPage();
  await page.setViewport(SIZE);
  page.wrong = [];
  page.on("console", (message) => page.wrong.push(`console: ${message.text()}`));
  page.on("pageerror", (error) => page.wrong.push(`error: ${error.message}`));
  page.on("dialog", (dialog) => page.wrong.push(`dialog: ${dialog.message()}`) && dialog.dismiss());
  page.on("request", (request) => {
    if (!/^(data|blob):/.test(request.url()) && request.url() !== pathToFileURL(path).href) page.wrong.push(`request: ${request.url()}`);
  });
  await page.goto(pathToFileURL(path).href, { timeout: 200000 });
  await page.waitForSelector("#page[aria-busy=false]", { timeout: 200000 });
  await drawn(page);
  return page;
}

/** The largest resident memory of the browser's processes that show pages, in bytes. */
export async function pageMemory(browser) {
  const session = await browser.target().createCDPSession();
  const { processInfo } = await session.send("SystemInfo.getProcessInfo");
  const resident = ({ id }) => Number(/VmRSS:\s+(\d+) kB/.exec(readFileSync(`/proc/${id}/status`, "latin1"))[1]) * 1024;
  return Math.max(...processInfo.filter(({ type }) => type === "renderer").map(resident));
}

/** Waits for the next picture. */
export function drawn(page) {
  return page.evaluate(() => new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done))));
}

export function texts(page, selector) {
  return page.$$eval(selector, (elements) => elements.map((element) => element.textContent.trim()));
}
export function text(page, selector) {
  return page.$eval(selector, (element) => element.textContent.trim());
}

/** Clicks the row of a table whose cells begin with these texts. */
export async function choose(page, ...begins) {
  await page.evaluate((wanted) => {
    const rows = [...document.querySelectorAll("tr.choice")];
    const row = rows.find((each) => wanted.every((begin, i) => each.cells[i].textContent.startsWith(begin)));
    if (!row) throw new Error(`no row ${wanted}`);
    row.click();
  }, begins);
  await drawn(page);
}

export async function find(page, kind, id) {
  await page.select("#search-kind", kind);
  await page.$eval("#search", (input, value) => (input.value = value), String(id));
  await page.keyboard.press("Escape");
  await page.$eval("form[role=search]", (form) => form.requestSubmit());
  await drawn(page);
}

/** Clicks the picture, at its middle or beside it. */
export async function clickPicture(page, right = 0, down = 0) {
  await drawn(page); // as the last choice has it
  const box = await (await page.$("canvas")).boundingBox();
  await page.mouse.click(box.x + box.width / 2 + right, box.y + box.height / 2 + down);
  await drawn(page);
}

/** Reads the pixels of the picture: [red, green, blue] of each. */
export async function pixels(page) {
  const canvas = await page.$("canvas");
  const png = Buffer.from(await canvas.screenshot());
  const width = png.readUInt32BE(16);
  const height = png.readUInt32BE(20);
  const channels = png[25] === 6 ? 4 : 3;
  const pieces = [];
  for (let at = 8; at < png.length; at += 12 + png.readUInt32BE(at)) {
    if (png.toString("latin1", at + 4, at + 8) === "IDAT") pieces.push(png.subarray(at + 8, at + 8 + png.readUInt32BE(at)));
  }
  const rows = inflateSync(Buffer.concat(pieces));
  const line = width * channels;
  const found = [];
  let before = Buffer.alloc(line);
  for (let y = 0; y < height; ++y) {
    const kind = rows[y * (line + 1)];
    const row = Buffer.from(rows.subarray(y * (line + 1) + 1, (y + 1) * (line + 1)));
    for (let i = 0; i < line; ++i) {
      const left = i < channels ? 0 : row[i - channels];
      const up = before[i];
      const corner = i < channels ? 0 : before[i - channels];
      const [a, b, c] = [Math.abs(up - corner), Math.abs(left - corner), Math.abs(left + up - 2 * corner)];
      const paeth = a <= b && a <= c ? left : b <= c ? up : corner;
      row[i] += [0, left, up, (left + up) >> 1, paeth][kind];
    }
    for (let i = 0; i < line; i += channels) found.push([row[i], row[i + 1], row[i + 2]]);
    before = row;
  }
  return found;
}

/** How many pixels have the colour of what is lit, in any shade. */
export async function countLit(page) {
  return (await pixels(page)).filter(([red, green, blue]) => red > 100 && blue < 30 && green > red * 0.35 && green < red * 0.52).length;
}

export function pdfPages(path) {
  return (readFileSync(path, "latin1").match(/\/Type\s*\/Page\b(?!s)/g) ?? []).length;
}
