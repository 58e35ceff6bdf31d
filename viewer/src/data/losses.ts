// Which parts and nodes of the model a loss, a finding or an id is about, and the lines of the deck that it is in.

import { readInts } from "./blocks";
import { beginsCard, type CardTargets, fieldsOf, targetsOf } from "./cards";
import type { Deck, DeckLine, Family } from "./deck";
import type { Model } from "./model";
import type { Finding, Loss, Report } from "./report";

const MOST_LINES = 500; // shown at a time
const MOST_TARGETS = 2e6; // ids, which ranges make many of

/** Parts and nodes by their places, and lines. */
export interface Places {
  title: string;
  parts: Set<number>;
  nodes: Set<number>;
  lines: DeckLine[];
  /** What the reader should know beside it. */
  remark: string;
}

function noTargets(): CardTargets {
  return { elements: [], nodes: [], properties: [], materials: [] };
}

function merge(all: CardTargets, more: CardTargets): void {
  for (const key of ["elements", "nodes", "properties", "materials"] as const) {
    for (const id of more[key]) all[key].push(id);
  }
}

/** The cards that ids of a loss stand for: what the account calls them, and its keyword. */
function familyOf(named: string, keyword: string): Family | null {
  const families: Record<string, Family> = {
    elements: "element",
    grids: "node",
    "loaded grids": "node",
    properties: "property",
    "coordinate systems": "frame",
    combinations: "loads",
  };
  if (named !== "sets") return families[named] ?? null;
  return keyword.startsWith("SPC") ? "supports" : keyword.startsWith("MPC") ? "equations" : "loads";
}

export class LossPlaces {
  private constructor(
    private readonly report: Report,
    private readonly model: Model,
    private readonly deck: Deck,
    private readonly ids: Int32Array,
    private readonly places: Int32Array,
  ) {}

  static async read(report: Report, model: Model, deck: Deck): Promise<LossPlaces> {
    return new LossPlaces(report, model, deck, await readInts("loss-id"), await readInts("loss-place"));
  }

  ofLoss(loss: Loss): Places {
    const found = this.empty(`${loss.keyword || "deck"}: ${loss.text}`);
    const targets = noTargets();
    const target = this.report.losses.find(
      (r) => r.keyword === loss.keyword && r.kind === loss.kind && r.text === loss.text,
    );
    if (!target) return found;
    const ids = this.ids.subarray(target.firstId, target.firstId + target.ids);
    this.addIds(found, targets, loss, ids);
    let known = 0;
    for (let i = target.firstPlace; i < target.firstPlace + target.places; ++i) {
      const [file, first, last] = this.places.subarray(3 * i, 3 * i + 3);
      if (this.addLines(found, targets, file, first, last)) ++known;
    }
    this.addTargets(found, targets);
    known = Math.max(target.ids, known);
    if (known < loss.count) found.remark = `${known} places are known of ${loss.count}.`;
    return found;
  }

  ofFinding(finding: Finding): Places {
    const found = this.empty(`${finding.keyword}: ${finding.code}`);
    const targets = noTargets();
    for (const { id, file, line } of finding.places) {
      if (file !== null && line !== null) this.addLines(found, targets, this.deck.fileOf(file), line, line);
      else if (id !== null) merge(targets, targetsOf([finding.keyword, String(id)]));
    }
    this.addTargets(found, targets);
    if (finding.places.length < finding.count) {
      found.remark = `${finding.places.length} places are known of ${finding.count}.`;
    }
    return found;
  }

  ofLines(title: string, lines: [file: number, line: number][]): Places {
    const found = this.empty(title);
    const targets = noTargets();
    for (const [file, line] of lines) if (line > 0) this.addLines(found, targets, file, line, line);
    this.addTargets(found, targets);
    return found;
  }

  ofElement(id: number): Places {
    const found = this.empty(`element ${id}`);
    this.addTargets(found, { ...noTargets(), elements: [id] });
    found.lines.push(...this.deck.findCards("element", id));
    return found;
  }

  ofNode(id: number): Places {
    const found = this.empty(`node ${id}`);
    this.addTargets(found, { ...noTargets(), nodes: [id] });
    found.lines.push(...this.deck.findCards("node", id));
    return found;
  }

  ofProperty(id: number): Places {
    const found = this.empty(`property ${id}`);
    this.addTargets(found, { ...noTargets(), properties: [id] });
    found.lines.push(...this.deck.findCards("property", id));
    return found;
  }

  private empty(title: string): Places {
    return { title, parts: new Set(), nodes: new Set(), lines: [], remark: "" };
  }

  private addIds(found: Places, targets: CardTargets, loss: Loss, ids: Int32Array): void {
    const named = /\(ids: ([^)]*)\)/.exec(loss.text)?.[1] ?? "";
    const list = Array.from(ids);
    if (named === "elements") targets.elements = list;
    else if (named === "grids" || named === "loaded grids") targets.nodes = list;
    else if (named === "properties") targets.properties = list;
    const family = familyOf(named, loss.keyword);
    for (const id of family ? list : []) {
      if (found.lines.length >= MOST_LINES) break;
      const lines = this.deck.findCards(family as Family, id);
      found.lines.push(...lines);
      if (named !== "sets") continue;
      const begins = lines.flatMap((line, i) => (beginsCard(line.text) ? [i] : []));
      begins.forEach((from, i) => merge(targets, targetsOf(fieldsOf(lines.slice(from, begins[i + 1]).map((line) => line.text)))));
    }
  }

  /** Adds what a place is about. False if its lines aren't in the page, or if there is too much already. */
  private addLines(found: Places, targets: CardTargets, file: number, first: number, last: number): boolean {
    if (Object.values(targets).some((ids) => ids.length > MOST_TARGETS)) return false;
    const lines = last > first ? this.deck.lines(file, first, last) : this.deck.cardAt(file, first);
    if (found.lines.length < MOST_LINES) found.lines.push(...lines);
    const begins = lines.findIndex((line) => beginsCard(line.text));
    if (begins >= 0) merge(targets, targetsOf(fieldsOf(lines.slice(begins).map((line) => line.text))));
    return lines.length > 0;
  }

  private addTargets(found: Places, targets: CardTargets): void {
    const { model } = this;
    for (const id of targets.elements) for (const part of model.findParts(id)) found.parts.add(part);
    for (const id of targets.nodes) for (const node of model.findNodes(id)) found.nodes.add(node);
    const collect = (of: Int32Array, ids: number[]) => {
      if (ids.length === 0) return;
      const wanted = new Set(ids);
      for (let i = 0; i < of.length; ++i) if (wanted.has(of[i])) found.parts.add(i);
    };
    collect(model.properties, targets.properties);
    collect(model.materials, targets.materials);
  }
}
