// The page of --report in a real browser.

import assert from "node:assert/strict";
import { readdirSync, statSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { after, before, describe, test } from "node:test";

import { choose, clickPicture, countLit, drawn, find, folder, launch, open, pageMemory, pdfPages, report, text, texts, writeDeck } from "./page.mjs";

const GRIDS = [
  [1, 0, 0, 0], [2, 2, 0, 0], [3, 2, 2, 0], [4, 0, 2, 0], [5, 4, 0, 0], [6, 4, 2, 0], [7, 0, 0, 4],
  [21, 8, 0, 0], [22, 9, 0, 0], [23, 9, 1, 0], [24, 8, 1, 0], [25, 8, 0, 1], [26, 9, 0, 1], [27, 9, 1, 1],
  [28, 8, 1, 1], [32, 10, 0, 0], [33, 10, 1, 0], [36, 10, 0, 1], [37, 10, 1, 1],
];
// Two plates side by side, a bar, a solid, a mass; element 12 loses its MCID, node 5 is held, two load sets and a sum.
const DECK = `SOL 101
CEND
SPC = 1
SUBCASE 1
LOAD = 1
BEGIN BULK
${GRIDS.map(([id, x, y, z]) => `GRID,${id},,${x}.,${y}.,${z}.\n`).join("")}CQUAD4,11,1,1,2,3,4
CQUAD4,12,1,2,5,6,3,3
CBAR,13,2,1,7,1.,0.,0.
CHEXA,14,3,21,22,23,24,25,26
,27,28
CHEXA,15,3,22,32,33,23,26,36
,37,27
CONM2,16,6,,5.
PSHELL,1,1,.02,1
PBARL,2,1,,BAR,,,,
,.3,.5
PSOLID,3,1
MAT1,1,2.1E11,,.3
CORD2R,3,,0.,0.,0.,0.,0.,1.
,1.,0.,0.
SPC1,1,123,5,6
FORCE,1,3,,10.,0.,0.,-1.
FORCE,1,7,,5.,1.,0.,0.
PLOAD4,2,12,2.5
LOAD,9,1.,1.,1,2.,2
ENDDATA
`;

let browser;
before(async () => {
  browser = await launch();
});
after(() => browser.close());

async function withPage(path, run) {
  const page = await open(browser, path);
  try {
    await run(page);
    assert.deepEqual(page.wrong, []);
  } finally {
    await page.close();
  }
}

const shown = (value) => (value === 0 ? "–" : value.toLocaleString("en-US"));

async function assertCounts(page, { account, check, log }) {
  const rows = async (caption) =>
    page.evaluate((titles) => {
      const table = [...document.querySelectorAll("table")].find((each) => [...each.tHead.rows[0].cells].map((cell) => cell.textContent).join() === titles);
      return table ? [...table.tBodies[0].rows].map((row) => [...row.cells].map((cell) => cell.textContent)) : [];
    }, caption);
  const keywords = await rows("keyword,read,stored,replaced,reported,skipped,unknown,lost,cut off");
  const wanted = account.keywords.map((row) => [row.keyword || "(none)", ...[row.read, row.stored, row.replaced, row.reported, row.skipped, row.unknown, row.lost, row.cut_off].map(shown)]);
  assert.deepEqual(keywords, wanted);
  const losses = await page.$$eval("tr.loss", (found) => found.map((row) => [...row.cells].map((cell) => cell.textContent)));
  assert.deepEqual(losses, account.lost.map((loss) => [loss.keyword || "deck", loss.count.toLocaleString("en-US"), loss.text]));
  assert.deepEqual(await rows("section,blocks,lines"), account.sections.map((row) => [row.section, row.blocks.toLocaleString("en-US"), row.lines.toLocaleString("en-US")]));
  const totals = (await rows("sum,deck,file,difference,because of")).filter((row) => row[1] !== "");
  assert.equal(totals.length, check.totals.length);
  assert.equal(totals.filter((row) => row[3] !== "–").length, check.totals.filter((row) => row.differs).length);
  const findings = await page.$$eval("#panel-check tr.error, #panel-check table:not(:has(th:nth-child(5))) tr.warning", (found) => found.map((row) => [row.cells[0].textContent, row.cells[1].textContent, row.cells[2].textContent]));
  const sorted = [...check.findings.filter((finding) => finding.severity === "error"), ...check.findings.filter((finding) => finding.severity === "warning")];
  assert.deepEqual(findings, sorted.map((finding) => [finding.keyword || "deck", finding.count.toLocaleString("en-US"), finding.code]));
  assert.equal(await text(page, "#panel-log pre"), log.join("\n").trim());
}

describe("counts are those of the account and of the check", () => {
  const examples = process.env.EXAMPLES;
  for (const name of readdirSync(examples).filter((each) => each.endsWith(".dat"))) {
    test(name, async () => {
      const { page, result } = report(join(examples, name));
      await withPage(page, (opened) => assertCounts(opened, result()));
    });
  }
  test("restated", async () => {
    const { page, result } = report(writeDeck("deck.dat", DECK), "--faithful");
    await withPage(page, async (opened) => {
      await assertCounts(opened, result());
      assert.ok((await texts(opened, "#panel-restated tbody tr")).length > 0);
    });
  });
});

describe("the model", () => {
  let path;
  before(() => {
    path = report(writeDeck("deck.dat", DECK)).page;
  });

  test("a row of the account lights its elements and shows their lines", () =>
    withPage(path, async (page) => {
      await page.select("#colour", "thickness"); // nothing but an axis looks as if it were lit
      await drawn(page);
      const before = await countLit(page);
      await choose(page, "CQUAD4", "1", "dropped: MCID");
      assert.deepEqual(await texts(page, "#lit-elements button"), ["12"]);
      assert.deepEqual(await texts(page, "pre.deck"), ["27 CQUAD4,12,1,2,5,6,3,3"]);
      assert.ok((await countLit(page)) > before + 500);
      await page.click("aria/clear");
      await drawn(page);
      assert.equal(await countLit(page), before);
    }));

  test("load cases and combinations switch", () =>
    withPage(path, async (page) => {
      const labels = () => texts(page, ".label");
      assert.deepEqual(await texts(page, "#case option"), ["none", "STLD1", "STLD2", "LCB9: 1 STLD1 + 2 STLD2"]);
      assert.deepEqual(await labels(), ["force 0, 0, -10", "force 5, 0, 0"]);
      await page.select("#case", "1");
      assert.deepEqual(await labels(), ["pressure 2.5"]);
      await page.select("#case", "2");
      assert.deepEqual(await labels(), ["force 0, 0, -10", "force 5, 0, 0", "pressure 5"]);
      await find(page, "element", 12);
      assert.deepEqual(await texts(page, ".loads li"), ["pressure 5"]);
      await find(page, "node", 3);
      assert.deepEqual(await texts(page, ".loads li"), ["force 0, 0, -10"]);
      await page.select("#case", "");
      assert.deepEqual(await labels(), []);
    }));

  test("search finds by id, with values and lines", () =>
    withPage(path, async (page) => {
      await find(page, "element", 13);
      assert.deepEqual(await texts(page, ".selection dd"), ["beam", "2: rectangle 0.5 × 0.3", "1: isotropic, E 210000000000, nu 0.3, alpha 0"]);
      assert.deepEqual(await texts(page, ".selection td"), ["1", "0", "0", "0", "7", "0", "0", "4"]);
      assert.match(await text(page, "pre.deck"), /^28 CBAR,13,2,1,7,1\.,0\.,0\.\n +35 PBARL,2,1,,BAR,,,,\n +36 ,\.3,\.5$/);
      await find(page, "node", 5);
      assert.deepEqual(await texts(page, ".selection dd"), ["4, 0, 0", "123"]);
      await find(page, "property", 3);
      assert.deepEqual(await texts(page, "#lit-elements button"), ["14", "15"]);
      await find(page, "element", 99);
      assert.equal(await text(page, "#lit"), "The file has no such thing.");
    }));

  for (const id of [11, 12, 13, 15, 16]) {
    test(`a click picks element ${id}, which is drawn there`, () =>
      withPage(path, async (page) => {
        await find(page, "element", id);
        await page.click("aria/clear");
        await clickPicture(page);
        assert.equal(await text(page, "#selected"), `element ${id}`);
      }));
  }

  test("hidden, isolated and cut elements aren't picked; what lies behind a solid is", () =>
    withPage(path, async (page) => {
      const pickAt = async (id) => {
        await find(page, "element", id);
        await page.click("aria/clear");
        await clickPicture(page);
        return (await page.$("#selected")) ? text(page, "#selected") : "nothing";
      };
      await page.click("aria/right"); // along x: the solids one behind the other
      assert.equal(await pickAt(14), "element 15");
      await page.click("aria/hide");
      assert.equal(await pickAt(14), "element 14");
      await page.click("#show-all");
      await page.select("#cut", "0");
      await page.$eval("#cut-share", (input) => {
        input.value = "0.9"; // of 10: between the middles of both
        input.dispatchEvent(new Event("input"));
      });
      assert.equal(await pickAt(14), "element 14");
      await page.select("#cut", "");
      await find(page, "element", 11);
      await page.click("aria/isolate");
      assert.equal(await pickAt(14), "nothing");
    }));

  test("a shell behind a hidden one is picked", async () => {
    const square = (id, z) => [0, 1, 2, 3].map((i) => `GRID,${10 * id + i},,${i === 1 || i === 2 ? 1 : 0}.,${i > 1 ? 1 : 0}.,${z}.\n`).join("");
    const quad = (id) => `CQUAD4,${id},1,${10 * id},${10 * id + 1},${10 * id + 2},${10 * id + 3}\n`;
    const deck = `BEGIN BULK\n${square(1, 1)}${square(2, 0)}${quad(1)}${quad(2)}PSHELL,1,1,.1\nMAT1,1,1.,,.3\nENDDATA\n`;
    await withPage(report(writeDeck("squares.dat", deck)).page, async (page) => {
      await page.click("aria/top");
      await clickPicture(page);
      assert.equal(await text(page, "#selected"), "element 1");
      await page.click("aria/hide");
      await clickPicture(page);
      assert.equal(await text(page, "#selected"), "element 2");
      await page.click("#show-all");
      await clickPicture(page);
      assert.equal(await text(page, "#selected"), "element 1");
    });
  });

  test("colours have their legend", () =>
    withPage(path, async (page) => {
      const legend = async (by) => {
        await page.select("#colour", by);
        return texts(page, ".legend li");
      };
      assert.deepEqual(await legend("kind"), ["beam (1)", "plate (2)", "solid (2)", "mass (1)"]);
      assert.deepEqual(await legend("property"), ["none (1)", "property 1 (2)", "property 2 (1)", "property 3 (2)"]);
      assert.deepEqual(await legend("thickness"), ["0.02", "no thickness"]);
      assert.deepEqual(await legend("loss"), ["model", "note", "nothing lost"]);
      await page.$$eval(".legend button", ([first]) => first.click());
      assert.deepEqual(await texts(page, "#lit-elements button"), ["12"]);
    }));

  test("all by keyboard", () =>
    withPage(path, async (page) => {
      await page.focus("#tab-account");
      await page.keyboard.press("ArrowRight");
      assert.equal(await page.$eval("[role=tabpanel].shown", (panel) => panel.id), "panel-check");
      await page.keyboard.press("ArrowLeft");
      await page.focus("tr.loss");
      await page.keyboard.press("Enter");
      assert.equal(await page.$eval("tr.loss", (row) => row.getAttribute("aria-current")), "true");
      await page.focus("canvas");
      const before = await page.$eval(".axes", (axes) => axes.innerHTML);
      await page.keyboard.press("1");
      await drawn(page);
      assert.notEqual(await page.$eval(".axes", (axes) => axes.innerHTML), before);
      for (const key of ["ArrowLeft", "ArrowUp", "+", "-", "f"]) await page.keyboard.press(key);
      await page.click("#projection");
      assert.equal(await page.$eval("#projection", (button) => button.getAttribute("aria-pressed")), "false");
      for (const option of ["extruded", "edges", "supports", "loads", "values"]) await page.click(`#option-${option}`);
      await page.click(".theme");
    }));

  test("prints the tables and a picture a load case", () =>
    withPage(path, async (page) => {
      await page.evaluate(() => {
        window.addEventListener("beforeprint", () => {
          window.captions = [...document.querySelectorAll(".pictures figcaption")].map((caption) => caption.textContent);
          window.isOpen = document.querySelector("details").open;
        });
      });
      const pdf = join(folder, "report.pdf");
      writeFileSync(pdf, await page.pdf({ preferCSSPageSize: true }));
      assert.deepEqual(await page.evaluate(() => window.captions), [
        "Load case STLD1: 2 loads with a direction, largest force 0, 0, -10",
        "Load case STLD2: 1 load with a direction, largest pressure 2.5",
        "Load case LCB9: 1 STLD1 + 2 STLD2: 3 loads with a direction, largest force 0, 0, -10, largest pressure 5",
      ]);
      assert.ok(await page.evaluate(() => window.isOpen));
      assert.ok(pdfPages(pdf) >= 3, `${pdfPages(pdf)} pages`);
    }));
});

test("a deck full of markup stays text", async () => {
  const bytes = Buffer.concat([
    Buffer.from("TITLE = </script><img src=x onerror=alert(1)>\nCEND\nBEGIN BULK\n"),
    Buffer.from("GRID,1,,0.,0.,0.\nGRID,2,,1.,0.,0.\nCONROD,1,1,1,2,.1,</script><script>alert(2)</script>\n"),
    Buffer.from("<B>\"'&,1,2\n<!--,3\n"),
    Buffer.from([0x58, 0xff, 0xfe, 0x3c, 0x2f, 0x2c, 0x31, 0x0a]),
    Buffer.from("ENDDATA\n"),
  ]);
  const { page, result } = report(writeDeck("<img src=x onerror=alert(3)>'&amp;.dat", bytes));
  await withPage(page, async (opened) => {
    await assertCounts(opened, result());
    assert.equal(await opened.$("img, b"), null);
    assert.equal((await opened.$$("script")).length, 1);
    assert.match(await text(opened, "h1"), /<img src=x onerror=alert\(3\)>'&amp;\.dat$/);
    assert.ok((await text(opened, "#panel-control pre")).includes("</SCRIPT><IMG SRC=X ONERROR=ALERT(1)>"));
    await choose(opened, "CONROD");
    assert.ok((await text(opened, "pre.deck")).includes("</script><script>alert(2)</script>"));
    await choose(opened, "X\u00ff\u00fe</");
    assert.ok((await text(opened, "pre.deck")).includes("X\u00ff\u00fe</,1"));
  });
});

test("without WebGL the tables are there", async () => {
  const plain = await launch("--disable-3d-apis");
  try {
    const { page } = report(writeDeck("deck.dat", DECK));
    const opened = await open(plain, page);
    assert.match(await text(opened, "#no-picture"), /^This browser draws no model: /);
    await choose(opened, "CQUAD4", "1", "dropped: MCID");
    assert.deepEqual(await texts(opened, "#lit-elements button"), ["12"]);
  } finally {
    await plain.close();
  }
});

test("a million shells", { timeout: 400000 }, async () => {
  const SIDE = 1000;
  const lines = ["CEND", "BEGIN BULK", "PSHELL,1,1,.1", "MAT1,1,2.1E11,,.3"];
  const pad = (value) => String(value).padEnd(8);
  for (let j = 0, id = 0; j <= SIDE; ++j) {
    for (let i = 0; i <= SIDE; ++i) lines.push(`GRID    ${pad(++id)}        ${pad(i.toFixed(1))}${pad(j.toFixed(1))}${pad((10 * Math.sin(i / 50) * Math.cos(j / 70)).toFixed(4))}`);
  }
  for (let j = 0, id = 0; j < SIDE; ++j) {
    for (let i = 0; i < SIDE; ++i) {
      const a = j * (SIDE + 1) + i + 1;
      lines.push(`CQUAD4  ${pad(++id)}${pad(1)}${pad(a)}${pad(a + 1)}${pad(a + SIDE + 2)}${pad(a + SIDE + 1)}`);
    }
  }
  lines.push("ENDDATA", "");
  let begun = performance.now();
  const since = () => {
    const passed = ((performance.now() - begun) / 1000).toFixed(1);
    begun = performance.now();
    return `${passed} s`;
  };
  const deck = writeDeck("million.dat", lines.join("\n"));
  since();
  const { page: path } = report(deck);
  const written = since();
  const size = statSync(path).size;
  assert.ok(size <= 40e6, `${size} bytes`);
  await withPage(path, async (page) => {
    const opened = since();
    assert.match(await text(page, "#status"), /^1,002,001 nodes, 1,000,000 elements and links/);
    const memory = await pageMemory(browser);
    await page.focus("canvas");
    await page.keyboard.press("ArrowLeft");
    await drawn(page);
    const turned = since();
    await find(page, "element", 500500);
    const found = since();
    await page.click("aria/clear");
    await clickPicture(page);
    assert.equal(await text(page, "#selected"), "element 500500");
    const picked = since();
    await clickPicture(page);
    console.log(
      `a million shells: run and page ${written}, ${(size / 1e6).toFixed(1)} MB, opened ${opened}, ` +
        `${(memory / 1e6).toFixed(0)} MB of memory, turned ${turned}, found ${found}, first pick ${picked}, next ${since()}`,
    );
  });
});
