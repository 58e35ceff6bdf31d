// Puts the page together from its data.

import { readJson } from "./data/blocks";
import { Deck } from "./data/deck";
import { LossPlaces, type Places } from "./data/losses";
import { Model } from "./data/model";
import type { LossClass, Report } from "./data/report";
import { count, h, plural } from "./dom";
import { makeAccount } from "./panels/account";
import { makeCheck } from "./panels/check";
import { makeHead } from "./panels/head";
import { makeLegend } from "./panels/legend";
import { SelectionPanel } from "./panels/selection";
import { makeSignOff } from "./panels/sign";
import { forgetChoice } from "./panels/table";
import { makeTabs } from "./panels/tabs";
import { makeControl, makeLog, makeRestated, makeSections, makeWarnings } from "./panels/texts";
import { makeToolbar } from "./panels/toolbar";
import { bindKeys, bindPicking } from "./input";
import { makePrintPictures, openForPrint } from "./print";
import { type LoadCase, loadCases } from "./scene/loads";
import { Viewer } from "./scene/viewer";
import { followTheme, makeThemeSwitch } from "./theme";

/** The worst class of loss of each part that has any. */
function lostParts(report: Report, places: LossPlaces): Map<number, LossClass> {
  const lost = new Map<number, LossClass>();
  for (const loss of report.result.account.lost) { // worst first
    for (const part of places.ofLoss(loss).parts) if (!lost.has(part)) lost.set(part, loss.class);
  }
  return lost;
}

function sizeText(report: Report, model: Model): string {
  const missing = report.withoutNodes.reduce((sum, value) => sum + value, 0);
  return [
    `${count(model.nodeIds.length)} nodes, ${count(model.partCount)} elements and links`,
    missing > 0 && `${plural(missing, "other")} without nodes`,
    report.loadsLeftOut > 0 && `${count(report.loadsLeftOut)} loads left out of this page`,
  ].filter(Boolean).join("; ");
}

class Page {
  private lit: Places | null = null;
  private readonly cases: LoadCase[];
  private readonly legend = h("div", { class: "legend-box" });
  private readonly status = h("p", { class: "status", role: "status", id: "status" });
  private readonly selection: SelectionPanel;
  private viewer: Viewer | null = null;
  private lost: Map<number, LossClass> | null = null;

  constructor(
    private readonly report: Report,
    private readonly model: Model,
    deck: Deck,
    private readonly places: LossPlaces,
  ) {
    this.cases = loadCases(report);
    this.selection = new SelectionPanel(report, model, deck, places, {
      light: (found) => this.light(found),
      fit: () => this.lit && this.viewer?.fitTo(this.lit.parts, this.lit.nodes),
      hide: () => this.lit && this.viewer?.hide(this.lit.parts),
      isolate: () => this.lit && this.viewer?.isolate(this.lit.parts),
      clear: () => this.clear(),
      loadsOn: (isIt) => (this.viewer?.loadCase ? this.viewer.loads.on(this.viewer.loadCase, isIt) : []),
    });
  }

  show(root: HTMLElement): void {
    document.title = `${this.report.result.deck} – report of a conversion`;
    const { report } = this;
    const left = makeTabs([
      { id: "account", title: "Account", content: makeAccount(report, (loss) => this.showPlaces(this.places.ofLoss(loss))) },
      {
        id: "check",
        title: "Check and totals",
        content: makeCheck(report.result.check, (finding) => this.showPlaces(this.places.ofFinding(finding)), (id) => this.selection.showElement(id)),
      },
      { id: "warnings", title: "Warnings", content: makeWarnings(report) },
      { id: "log", title: "Log", content: makeLog(report) },
      {
        id: "restated",
        title: "Restatements",
        content: makeRestated(report, (row) => this.showPlaces(this.places.ofLines(`${row.keyword}: ${row.rule}`, row.places))),
      },
      { id: "sections", title: "Sections of the file", content: makeSections(report) },
      { id: "control", title: "Case control", content: makeControl(report) },
      { id: "sign", title: "Sign-off", content: makeSignOff(() => window.print()) },
    ]);
    const right = h("main", { class: "model" });
    root.replaceChildren(makeHead(report), makeThemeSwitch(), left, right);
    this.makeViewer(root, right);
    right.append(this.selection.element, this.status);
    openForPrint(root);
    root.setAttribute("aria-busy", "false");
  }

  private makeViewer(root: HTMLElement, right: HTMLElement): void {
    try {
      const lost = () => (this.lost ??= lostParts(this.report, this.places));
      this.viewer = new Viewer(this.model, this.report, { lost });
    } catch (error) {
      right.append(h("p", { class: "hint", id: "no-picture" }, `This browser draws no model: ${error instanceof Error ? error.message : error}`));
      return;
    }
    const viewer = this.viewer;
    const toolbar = makeToolbar(viewer, this.cases, {
      search: (kind, id) => this.search(kind, id),
      changed: () => this.update(),
    });
    right.append(toolbar, h("div", { class: "stage" }, viewer.element, this.legend));
    root.append(makePrintPictures(viewer, this.cases));
    followTheme((paper) => viewer.setTheme(paper));
    bindKeys(viewer);
    bindPicking(viewer, (picked) => {
      if (picked.wantsNode && picked.node >= 0) this.selection.showNode(this.model.nodeIds[picked.node]);
      else if (picked.part >= 0 && this.model.partIds[picked.part] !== 0) this.selection.showElement(this.model.partIds[picked.part]);
      else this.clear();
    });
    this.update();
  }

  private search(kind: "element" | "node" | "property", id: number): void {
    if (kind === "element") this.selection.showElement(id);
    else if (kind === "node") this.selection.showNode(id);
    else this.showPlaces(this.places.ofProperty(id));
    if (this.lit) this.viewer?.fitTo(this.lit.parts, this.lit.nodes);
  }

  private showPlaces(found: Places): void {
    this.light(found);
    this.selection.showPlaces(found);
  }

  private light(found: Places): void {
    this.lit = found.parts.size + found.nodes.size > 0 ? found : null;
    this.viewer?.light(found.parts, found.nodes);
  }

  private clear(): void {
    this.lit = null;
    this.viewer?.light(new Set(), new Set());
    this.selection.clear();
    forgetChoice();
  }

  private update(): void {
    const { viewer } = this;
    if (!viewer) return;
    this.legend.replaceChildren(
      makeLegend(viewer.colouring.legend, ({ text, has }) => {
        const parts = new Set<number>();
        for (let part = 0; part < this.model.partCount; ++part) if (has?.(part)) parts.add(part);
        this.showPlaces({ title: text, parts, nodes: new Set(), lines: [], remark: "" });
      }),
    );
    const { drawn, all } = viewer.arrows;
    const arrows = all > 0 ? `; ${drawn < all ? `${count(drawn)} of ${plural(all, "load")} drawn` : `${plural(all, "load")} drawn`}` : "";
    this.status.textContent = sizeText(this.report, this.model) + arrows;
  }
}

async function start(): Promise<void> {
  const root = document.getElementById("page") as HTMLElement;
  const report = await readJson<Report>("report");
  const model = await Model.read();
  const deck = await Deck.read(report);
  const places = await LossPlaces.read(report, model, deck);
  new Page(report, model, deck, places).show(root);
}

start().catch((error: unknown) => {
  const waiting = document.getElementById("waiting") ?? document.body;
  waiting.textContent = `The page can't be shown: ${error instanceof Error ? error.message : error}`;
  throw error;
});
